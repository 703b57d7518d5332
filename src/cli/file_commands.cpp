// export, check, diff.

#include <windows.h>

#include <algorithm>
#include <utility>

#include "base/names.h"
#include "cli/commands.h"
#include "cli/differences.h"
#include "cli/file_input.h"
#include "cli/file_output.h"
#include "cli/json.h"
#include "cli/machine.h"

namespace {

const char* KindWord(FindingKind kind) {
  switch (kind) {
    case FindingKind::kMissing:
      return "missing";
    case FindingKind::kDoubled:
      return "doubled";
    case FindingKind::kStray:
      return "stray";
    case FindingKind::kNumber:
      return "number";
    case FindingKind::kCount:
      return "count";
    case FindingKind::kText:
      return "text";
    case FindingKind::kName:
      return "name";
    default:
      return "tornEnd";
  }
}

void PrintCheckAsJson(const Options& options, const CheckResult& check, Output& output) {
  std::vector<Json> findings;
  for (const Finding& finding : check.Findings) {
    findings.emplace_back()
        .SetText("kind", KindWord(finding.Kind))
        .SetText("scheme", finding.Scheme)
        .SetText("record", finding.Record)
        .SetNumber("byte", static_cast<std::int64_t>(finding.Offset))
        .SetText("text", finding.Text);
  }
  Json()
      .SetText("file", options.File)
      .SetFlag("whole", check.IsWhole())
      .SetNumber("schemes", static_cast<std::int64_t>(check.Schemes))
      .SetList("findings", std::move(findings))
      .Print(output);
}

void PrintCheck(const CheckResult& check, Output& output) {
  if (check.IsWhole()) return output.Print("Whole, with " + Counted(check.Schemes, "scheme"));
  std::vector<std::vector<std::string>> rows = {{"Byte", "Scheme", "Record", "Problem"}};
  for (const Finding& finding : check.Findings)
    rows.push_back({std::to_string(finding.Offset), finding.Scheme, finding.Record, finding.Text});
  output.PrintTable(rows);
}

}  // namespace

ExitCode ExportFile(const Options& options, Output& output) {
  SchemeCatalogue catalogue;
  const ExitCode code = OpenCatalogue(catalogue, SchemesAccess::kRead, output);
  if (!GoesOn(code)) return code;
  return std::max(code, SaveSchemes(catalogue, options.Schemes, options.File, options, output).Code);
}

ExitCode CheckFile(const Options& options, Output& output) {
  if (const ExitCode code = AdmitUser(output); code != ExitCode::kDone) return code;
  RecordList records;
  CheckResult check;
  if (const ExitCode code = ReadAndCheck(options.File, records, check, output); code != ExitCode::kDone)
    return code;
  options.Json ? PrintCheckAsJson(options, check, output) : PrintCheck(check, output);
  if (check.Findings.size() == kMaxFindings) {
    output.Problem(options.File, "Only the first " + std::to_string(kMaxFindings) + " findings are listed");
  }
  return check.IsWhole() ? ExitCode::kDone : ExitCode::kFound;
}

ExitCode DiffFile(const Options& options, Output& output) {
  SchemeCatalogue catalogue;
  const ExitCode opened = OpenCatalogue(catalogue, SchemesAccess::kRead, output);
  if (!GoesOn(opened)) return opened;
  FileInput file;
  if (const ExitCode code = ReadInput(options, file, output); code != ExitCode::kDone) return code;
  const ExitCode damage = TellDamage(options, file, output);
  return std::max({opened, damage, PrintDifferences(catalogue, file.Hive, options, output)});
}
