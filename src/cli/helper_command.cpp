// helper.

#include <algorithm>
#include <string>

#include "base/names.h"
#include "cli/commands.h"
#include "cli/machine.h"
#include "helper/helper_setting.h"
#include "helper/windows_folder.h"

namespace {

ExitCode ShowHelper(Output& output) {
  const std::string path = ReadHelperPath();
  const auto helper = HelperOfPath(path);
  if (helper) {
    output.Print(kHelperNames[*helper]);
  } else {
    output.Print(path.empty() ? "None is chosen" : "None of the four: " + path);
  }
  return ExitCode::kDone;
}

ExitCode ChooseHelper(std::size_t helper, const Options& options, Output& output) {
  const WriteLock lock(options.Wait);
  if (!MayChange(lock, output)) return ExitCode::kPartly;
  switch (WriteHelper(WindowsFolder(), helper)) {
    case WriteResult::kNoRights:
      output.Problem(options.Helper, "This user has no right to choose the helper");
      return ExitCode::kNoRights;
    case WriteResult::kFailed:
      output.Problem(options.Helper, "The registry refused to change the shell's settings");
      return ExitCode::kPartly;
    case WriteResult::kDone:
      break;
  }
  if (!options.Quiet) output.Print("Chose " + options.Helper);
  return ExitCode::kDone;
}

}  // namespace

ExitCode ShowOrChooseHelper(const Options& options, Output& output) {
  if (const ExitCode code = Admit(output); code != ExitCode::kDone) return code;
  if (options.Helper.empty()) return ShowHelper(output);
  const auto* const name = std::ranges::find(kHelperNames, options.Helper);
  if (name == kHelperNames.end()) {
    output.Problem(options.Helper, "There is no such helper; there are Peedy, Merlin, Robby and Genie");
    return ExitCode::kUsage;
  }
  return ChooseHelper(static_cast<std::size_t>(name - kHelperNames.begin()), options, output);
}
