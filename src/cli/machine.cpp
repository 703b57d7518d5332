#include "cli/machine.h"

#include <windows.h>

#include <algorithm>

#include "base/names.h"
#include "base/program_processes.h"
#include "cli/progress_line.h"
#include "registry/policy.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

// What the list of schemes lacks. kPartly after a line about it.
ExitCode TellGaps(const SchemeCatalogue& catalogue, CatalogueResult result, Output& output) {
  if (result == CatalogueResult::kCutShort)
    output.Problem("ksm", "The list of schemes ends at a text that is too long to be read");
  if (result == CatalogueResult::kReadError)
    output.Problem("ksm", "The registry refused to read part of the list of schemes");
  for (const std::string& name : catalogue.Unreadable())
    output.Problem(name, "This scheme cannot be read: it has no key of its own");
  const bool isWhole = result == CatalogueResult::kLoaded && catalogue.Unreadable().empty();
  return isWhole ? ExitCode::kDone : ExitCode::kPartly;
}

}  // namespace

ExitCode AdmitUser(Output& output) {
  if (!IsLockedByPolicy()) return ExitCode::kDone;
  output.Problem("ksm", "The policy locks this user out");
  return ExitCode::kNoRights;
}

ExitCode Admit(Output& output) {
  const ExitCode code = AdmitUser(output);
  if (code != ExitCode::kDone || RegistryKey::KeyExists(kSchemesKey)) return code;
  output.Problem("ksm", "Kelvanstead is not installed on this machine");
  return ExitCode::kNothingThere;
}

ExitCode OpenCatalogue(SchemeCatalogue& catalogue, SchemesAccess access, Output& output, Gaps gaps) {
  if (const ExitCode code = Admit(output); code != ExitCode::kDone) return code;
  const CatalogueResult result = catalogue.LoadCatalogue(SIZE_MAX, access);
  if (result == CatalogueResult::kNoSchemesKey || result == CatalogueResult::kNoAccess) {
    output.Problem("ksm", access == SchemesAccess::kRead ? "This user has no right to read the schemes"
                                                         : "This user has no right to change the schemes");
    return ExitCode::kNoRights;
  }
  // To know them, no right to change them is needed.
  catalogue.LoadProtectedSchemes(SchemesAccess::kRead);
  return gaps == Gaps::kTold ? TellGaps(catalogue, result, output) : ExitCode::kDone;
}

bool MayChange(const WriteLock& lock, Output& output) {
  if (!lock.IsHeld()) {
    output.Problem("ksm", "Another ksm is changing this machine; nothing was done");
    return false;
  }
  if (!ProgramProcesses().empty())
    output.Problem("Kelvanstead Scheme Manager", "The program is open and may not show what ksm changes");
  return true;
}

bool IsThere(const std::string& wanted, const std::vector<std::string>& names, Output& output) {
  if (std::ranges::find(names, wanted) != names.end()) return true;
  const auto similar =
      std::ranges::find_if(names, [&](const std::string& name) { return IsSameName(name, wanted); });
  output.Problem(wanted, similar == names.end()
                             ? "There is no such scheme"
                             : "There is no such scheme; did you mean \"" + *similar + "\"?");
  return false;
}

bool AreThere(const std::vector<std::string>& wanted, const std::vector<std::string>& names, Output& output) {
  bool allThere = true;
  for (const std::string& name : wanted)
    allThere &= IsThere(name, names, output);
  return allThere;
}

std::vector<std::string> NamesOf(const std::vector<SchemeEntry>& schemes) {
  std::vector<std::string> names;
  names.reserve(schemes.size());
  for (const SchemeEntry& scheme : schemes)
    names.push_back(scheme.Name);
  return names;
}

std::optional<std::vector<SchemeEntry>> ChooseSchemes(const SchemeCatalogue& catalogue,
                                                      const std::vector<std::string>& names, Output& output) {
  std::vector<SchemeEntry> schemes = catalogue.Schemes();
  if (names.empty()) return schemes;
  if (!AreThere(names, NamesOf(schemes), output)) return std::nullopt;
  std::erase_if(schemes, [&](const SchemeEntry& scheme) {
    return std::ranges::find(names, scheme.Name) == names.end();
  });
  return schemes;
}

ReadResult ReadFromRegistry(const SchemeCatalogue& catalogue, const std::vector<SchemeEntry>& schemes,
                            const Options& options, Output& output) {
  ReadResult result;
  ProgressLine line("Reading scheme", options.Quiet);
  const Progress progress = line.Callback();
  for (const SchemeEntry& entry : schemes) {
    const Outcome outcome = catalogue.ReadScheme(entry, result.Schemes.emplace_back());
    if (outcome != Outcome::kComplete) {
      result.Code = ExitCode::kPartly;
      result.Refused |= outcome == Outcome::kFailed;
      output.Problem(entry.Name, outcome == Outcome::kFailed
                                     ? "The registry refused to read all of this scheme"
                                     : "Some of this scheme's settings are missing or damaged");
    }
    if (progress) progress(static_cast<int>(result.Schemes.size()), static_cast<int>(schemes.size()));
  }
  return result;
}
