#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/output.h"
#include "cli/text.h"

// What would print the exception that nobody caught, and brings 50 KB for it, is replaced.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }  // NOLINT(bugprone-reserved-identifier)

namespace {

// The arguments behind the program's name. Nothing, after a line about it, when one cannot be said in the
// ANSI code page, which the registry and the files of the shell are in.
std::optional<std::vector<std::string>> Arguments(int count, wchar_t** wide, Output& output) {
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    std::optional<std::string> argument = ToAnsi(wide[i]);
    if (!argument) {
      output.Problem("ksm", "Argument " + std::to_string(i) +
                                " has a character that the code page of this machine does not have");
      return std::nullopt;
    }
    arguments.push_back(*std::move(argument));
  }
  return arguments;
}

ExitCode Run(int count, wchar_t** wide, Output& output) {
  try {
    const auto arguments = Arguments(count, wide, output);
    return arguments ? RunCommandLine(*arguments, output) : ExitCode::kUsage;
  } catch (const std::exception& exception) {  // memory is exhausted
    output.Problem("ksm", exception.what());
    return ExitCode::kPartly;
  }
}

}  // namespace

int wmain(int count, wchar_t** wide) {
  Output output;
  const ExitCode code = Run(count, wide, output);
  const bool isTold = output.Flush() || code > ExitCode::kFound;
  if (!isTold) output.Problem("ksm", "Not all of the results could be written");
  return static_cast<int>(isTold ? code : ExitCode::kPartly);
}
