// import.

#include <algorithm>
#include <set>
#include <string>

#include "base/names.h"
#include "cli/commands.h"
#include "cli/differences.h"
#include "cli/file_input.h"
#include "cli/file_output.h"
#include "cli/machine.h"
#include "cli/progress_line.h"
#include "model/scheme_storage.h"

namespace {

// Reads the file and takes out what is not asked for. kFound for a damaged one that is not accepted.
ExitCode ReadWanted(const Options& options, FileInput& file, Output& output) {
  if (const ExitCode code = ReadInput(options, file, output); code != ExitCode::kDone) return code;
  for (const Finding& finding : file.Check.Findings)
    output.Problem(options.File, InOneLine(finding));
  if (!file.Check.IsWhole() && !options.AcceptDamage) {
    output.Problem(options.File, "Nothing was imported: this file is damaged");
    return ExitCode::kFound;
  }
  return KeepSchemes(options.Schemes, file.Hive, output) ? ExitCode::kDone : ExitCode::kNothingThere;
}

bool IsBuiltIn(const std::string& name, const SchemeCatalogue& catalogue) {
  return std::ranges::any_of(catalogue.Schemes(), [&](const SchemeEntry& entry) {
    return catalogue.IsProtected(entry.Name) && IsSameName(entry.Name, name);
  });
}

void LeaveBuiltIn(const SchemeCatalogue& catalogue, SchemeHive& hive, const Options& options,
                  Output& output) {
  for (const SchemeProperties& scheme : hive.Schemes) {
    if (!options.Quiet && IsBuiltIn(scheme.Name, catalogue))
      output.Print("Left " + scheme.Name + " as it is: it is built in");
  }
  FilterHive(hive, [&](const std::string& name) { return !IsBuiltIn(name, catalogue); });
}

ExitCode Write(const SchemeHive& hive, const Options& options, Output& output) {
  ImportProblems problems;
  {
    ProgressLine line("Writing scheme", options.Quiet);
    problems = ApplyImport(hive, {}, line.Callback());
  }
  if (problems.NoAccess) output.Problem("ksm", "The registry refused to change the schemes");
  if (problems.ConfigList) output.Problem("ksm", "Not all of the descriptions could be written");
  std::set<std::string> told;  // a file may name many schemes alike
  for (const std::string& name : problems.Schemes) {
    if (told.insert(name).second) output.Problem(name, "Not all of this scheme could be written");
  }
  if (!options.Quiet) {
    const std::size_t count = hive.Schemes.size(),
                      failed = problems.NoAccess ? count : problems.Schemes.size();
    const std::string part = failed ? std::to_string(count - failed) + " of " : "";
    output.Print("Imported " + part + Counted(count, "scheme"));
  }
  return problems.None() ? ExitCode::kDone : ExitCode::kPartly;
}

// Tells where the registry now holds something else than the file.
ExitCode Verify(const SchemeHive& hive, const Options& options, Output& output) {
  SchemeCatalogue catalogue;
  if (const ExitCode code = OpenCatalogue(catalogue, SchemesAccess::kRead, output, Gaps::kOfNoConcern);
      code != ExitCode::kDone)
    return code;
  std::vector<SchemeEntry> written;
  std::ranges::copy_if(catalogue.Schemes(), std::back_inserter(written), [&](const SchemeEntry& entry) {
    return std::ranges::any_of(
        hive.Schemes, [&](const SchemeProperties& scheme) { return IsSameName(scheme.Name, entry.Name); });
  });
  const ReadResult read = ReadFromRegistry(catalogue, written, options, output);
  ExitCode code = read.Code;
  for (const SchemeComparison& scheme : CompareSchemes(read.Schemes, hive.Schemes)) {
    if (scheme.State == SchemeState::kSame) continue;
    code = ExitCode::kPartly;
    if (scheme.State == SchemeState::kNew)
      output.Problem(scheme.Name, "This scheme is not there after the import");
    for (const Difference& difference : scheme.Differences)
      output.Problem(scheme.Name, "Differs after the import: " + InOneLine(difference));
  }
  return code;
}

}  // namespace

ExitCode ImportFile(const Options& options, Output& output) {
  if (const ExitCode code = Admit(output); code != ExitCode::kDone) return code;
  if (!options.Backup.empty() && IsSamePath(options.File, options.Backup)) {
    output.Problem(options.Backup, "The backup would replace the file that is to be imported");
    return ExitCode::kUsage;
  }
  FileInput file;
  if (const ExitCode code = ReadWanted(options, file, output); code != ExitCode::kDone) return code;
  const WriteLock lock(options.DryRun ? 0 : options.Wait);
  if (!options.DryRun && !MayChange(lock, output)) return ExitCode::kPartly;

  SchemeCatalogue catalogue;
  // The import may mend them; a comparison, a backup and the look for what is built in need the whole list.
  const Gaps gaps =
      options.DryRun || options.KeepBuiltIn || !options.Backup.empty() ? Gaps::kTold : Gaps::kOfNoConcern;
  const ExitCode opened =
      OpenCatalogue(catalogue, options.DryRun ? SchemesAccess::kRead : SchemesAccess::kChange, output, gaps);
  if (!GoesOn(opened)) return opened;
  if (options.KeepBuiltIn) LeaveBuiltIn(catalogue, file.Hive, options, output);
  if (options.DryRun) {
    const ExitCode damage = file.Check.IsWhole() ? ExitCode::kDone : ExitCode::kFound;
    return std::max({opened, damage, PrintDifferences(catalogue, file.Hive, options, output)});
  }

  ExitCode code = file.Check.IsWhole() ? opened : ExitCode::kPartly;
  if (!options.Backup.empty()) {
    const SaveResult saved = SaveSchemes(catalogue, {}, options.Backup, options, output);
    code = std::max(code, saved.Code);
    if (!saved.IsWhole) return code;
  }
  code = std::max(code, Write(file.Hive, options, output));
  return options.NoVerify ? code : std::max(code, Verify(file.Hive, options, output));
}
