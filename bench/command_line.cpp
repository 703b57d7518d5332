#include "command_line.h"

#include <algorithm>

#include "files.h"
#include "machine.h"
#include "processes.h"
#include "reading.h"
#include "registry/registry_paths.h"
#include "stopwatch.h"

namespace {

constexpr double kMB = 1e6;

void ReportMemory(Report& report, const std::string& ksm, const std::string& path) {
  const double fileSize = static_cast<double>(FileBytes(path).size());
  double most = 0;
  report.Table("Memory of ksm at its peak", "work | MB | of the file's size");
  const auto row = [&](const char* work, const std::string& commandLine) {
    const double peak = PeakMemory(commandLine);
    report.Row("%s | %.1f | %.1f", work, peak / kMB, peak / fileSize);
    report.Demand(peak > 0, "The memory of ksm cannot be measured.");
    most = std::max(most, peak);
  };
  report.Row("(the file) | %.1f | 1", fileSize / kMB);
  row("`ksm --version`", ksm + " --version");
  row("`ksm check`", ksm + " check " + path);
  row("`ksm import`", ksm + " import " + path);
  row("`ksm diff`", ksm + " diff " + path);
  row("`ksm export`", ksm + " export " + InFolder("ksm.ksf"));
  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("memory at its peak to the file's size", most / fileSize, 8);
}

}  // namespace

void ReportCommandLine(Report& report, const std::string& ksm) {
  const RecordFile file(1100, false);
  Series versions, regHelps, checks, imports;
  for (int round = 0; round < kRounds; ++round) {
    versions.Add(TimeProcess(ksm + " --version"));
    regHelps.Add(TimeProcess("reg /?"));
    EmptyKey(kSchemesKey);
    checks.Add(TimeProcess(ksm + " check " + file.Path));
    imports.Add(TimeProcess(ksm + " import --no-verify " + file.Path));
  }
  report.Demand(versions.Least() > 0 && checks.Least() > 0 && imports.Least() > 0, "ksm does not work.");

  report.Table("ksm, its start included", "work | median in ms | least");
  report.Times("`ksm --version`", versions);
  report.Times("`reg /?`", regHelps);
  report.Times("`ksm check` of " + std::to_string(file.Records) + " records", checks);
  report.Times("`ksm import --no-verify` of the same file", imports);
  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("`ksm --version` to `reg /?`", versions.Over(regHelps).Median(), 2);
  report.Target("`ksm check` to the import", checks.Over(imports).Median(), 0.10);
  ReportMemory(report, ksm, file.Path);
}
