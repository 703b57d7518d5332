#include "programs.h"

#include <filesystem>
#include <string>

#include "machine.h"
#include "processes.h"
#include "registry/registry_paths.h"
#include "stopwatch.h"

namespace {

double TimeToWindowWith(int schemes, const std::string& commandLine) {
  EmptyKey(kSchemesKey);
  WriteTree(MakeSchemes(schemes));
  return TimeToWindow(commandLine);
}

double Size(const char* path) { return static_cast<double>(std::filesystem::file_size(path)); }

}  // namespace

void ReportStarts(Report& report, const std::string& manager) {
  Series with4, with50, with400, notepad;
  for (int round = 0; round < kRounds; ++round) {
    with4.Add(TimeToWindowWith(4, manager));
    with50.Add(TimeToWindowWith(50, manager));
    notepad.Add(TimeToWindow("notepad"));
    with400.Add(TimeToWindowWith(400, manager));
  }
  report.Demand(with4.Least() > 0 && with50.Least() > 0 && with400.Least() > 0 && notepad.Least() > 0,
                "A program showed no window.");

  report.Table("Start until the main window", "program | median in ms | least");
  report.Times("this program, x64, with 4 schemes", with4);
  report.Times("with 50 schemes", with50);
  report.Times("with 400 schemes", with400);
  report.Times("`notepad`", notepad);
  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("400 schemes to 4", with400.Over(with4).Median(), 2);
  report.Target("50 schemes to `notepad`", with50.Over(notepad).Median(), 1.5);
}

void ReportSizes(Report& report, const char* const (&paths)[4]) {
  constexpr double kMB = 1e6;
  report.Table("Size of the programs", "program | x86 in MB | x64 in MB");
  report.Row("the program | %.2f | %.2f", Size(paths[0]) / kMB, Size(paths[1]) / kMB);
  report.Row("ksm | %.2f | %.2f", Size(paths[2]) / kMB, Size(paths[3]) / kMB);
  report.Table("Compared", "size in MB | measured | at most | ");
  report.Target("ksm, x86", Size(paths[2]) / kMB, 1.5);
}
