#include "cli/file_input.h"

#include <algorithm>
#include <utility>

#include "cli/machine.h"
#include "cli/progress_line.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/scheme_file.h"

ExitCode ReadAndCheck(const std::string& path, RecordList& records, CheckResult& check, Output& output) {
  std::string bytes;
  switch (ReadSchemeFile(path, bytes)) {
    case FileResult::kUnreadable:
      output.Problem(path, "This file cannot be read");
      return ExitCode::kFile;
    case FileResult::kNotASchemeFile:
      output.Problem(path, "This is no scheme file");
      return ExitCode::kFile;
    case FileResult::kDone:
      break;
  }
  records = SplitRecords(std::move(bytes));
  check = CheckRecords(records);
  return ExitCode::kDone;
}

ExitCode ReadInput(const Options& options, FileInput& file, Output& output) {
  const ExitCode code = ReadAndCheck(options.File, file.Hive.Records, file.Check, output);
  if (code != ExitCode::kDone) return code;
  ProgressLine line("Reading scheme", options.Quiet);
  ImportSchemes(file.Hive, line.Callback());
  AddDescriptions(file.Hive);
  return ExitCode::kDone;
}

bool KeepSchemes(const std::vector<std::string>& names, SchemeHive& hive, Output& output) {
  if (names.empty()) return true;
  std::vector<std::string> known;
  for (const SchemeProperties& scheme : hive.Schemes)
    known.push_back(scheme.Name);
  const bool allThere = AreThere(names, known, output);
  FilterHive(hive, [&](const std::string& name) { return std::ranges::find(names, name) != names.end(); });
  return allThere;
}

std::string InOneLine(const Finding& finding) {
  const std::string place = "byte " + std::to_string(finding.Offset);
  return finding.Record.empty() ? place + ": " + finding.Text
                                : place + ": \"" + finding.Record + "\" " + finding.Text;
}

ExitCode TellDamage(const Options& options, const FileInput& file, Output& output) {
  if (file.Check.IsWhole()) return ExitCode::kDone;
  output.Problem(options.File, "This file is damaged; \"ksm check\" tells where");
  return ExitCode::kFound;
}
