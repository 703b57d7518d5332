// What the program costs: its registry work beside that of Windows' own tools, its reading of scheme files,
// its size and its start. Run by bench/run.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/unique_handle.h"
#include "call_counter.h"
#include "machine.h"
#include "model/scheme_storage.h"
#include "processes.h"
#include "reading.h"
#include "registry/registry_paths.h"
#include "report.h"
#include "schemefile/scheme_file.h"
#include "stopwatch.h"

namespace {

constexpr int kSchemes = 400;

const std::string kRegFile = std::string(kFolder) + "\\tree.reg";
const std::string kStartUpFile = std::string(kFolder) + "\\start-up.reg";
const std::string kSchemeFile = std::string(kFolder) + "\\tree.ksf";
const std::string kSchemesBranch = std::string("HKLM\\") + kSchemesKey;
const std::string kSmallBranch = std::string("HKLM\\") + kProtectedSchemesKey;

std::string RegExport(const std::string& branch, const std::string& file) {
  return "reg export \"" + branch + "\" " + file + " /y";
}
std::string RegImport(const std::string& file) { return "reg import " + file; }

void ExportToFile() {
  SchemeFile file(nullptr);
  file.Save();
  SchemeFile::Remove(kSchemeFile);
  if (!file.Write(kFolder, kSchemeFile)) std::exit(1);
}

// Takes the schemes away, runs the work that is to bring them back, and sees whether it did.
double TimeRestoring(Report& report, const RegistryTree& tree, const char* who,
                     const std::function<double()>& work) {
  EmptyKey(kSchemesKey);
  const double time = work();
  const RegistryTree restored = ReadTree(kSchemesKey);
  if (restored != tree) std::printf("%s: %zu of %zu values\n", who, restored.size(), tree.size());
  report.Demand(restored == tree, "The schemes restored are not those that were saved.");
  return time;
}

struct ExchangeTimes {
  std::vector<double> Export, RegExport, Read, Import, RegImport, Write, ExportStartUp, ImportStartUp;
};

ExchangeTimes MeasureExchange(Report& report, const RegistryTree& made) {
  WriteTree(made);
  const RegistryTree tree = ReadTree(kSchemesKey);
  report.Demand(tree.size() == made.size(), "The machine could not be made.");
  TimeProcess(RegExport(kSmallBranch, kStartUpFile));

  ExchangeTimes times;
  for (int round = 0; round < kRounds; ++round) {
    times.ExportStartUp.push_back(TimeProcess(RegExport(kSmallBranch, kStartUpFile)));
    times.Export.push_back(Time(&ExportToFile));
    times.RegExport.push_back(TimeProcess(RegExport(kSchemesBranch, kRegFile)));
    times.Read.push_back(Time([] { ReadTree(kSchemesKey); }));

    times.ImportStartUp.push_back(TimeProcess(RegImport(kStartUpFile)));
    times.Import.push_back(TimeRestoring(report, tree, "import", [] {
      return Time([] { SchemeFile(nullptr).Read(kSchemeFile, kSchemeFile); });
    }));
    times.RegImport.push_back(
        TimeRestoring(report, tree, "reg import", [] { return TimeProcess(RegImport(kRegFile)); }));
    times.Write.push_back(
        TimeRestoring(report, tree, "bare walk", [&made] { return Time([&made] { WriteTree(made); }); }));
  }
  return times;
}

void ReportExchange(Report& report) {
  const ExchangeTimes times = MeasureExchange(report, MakeSchemes(kSchemes));
  const double exportStartUp = Median(times.ExportStartUp);
  const double importStartUp = Median(times.ImportStartUp);
  const double exported = Median(times.Export), imported = Median(times.Import);
  const double regExport = Median(times.RegExport) - exportStartUp;
  const double regImport = Median(times.RegImport) - importStartUp;
  const double read = Median(times.Read), write = Median(times.Write);

  report.Table("Export and import of 400 schemes", "work | median in ms | start-up apart, in ms");
  report.Row("export | %.0f | in the running program", exported);
  report.Row("`reg export` | %.0f | %.0f", regExport, exportStartUp);
  report.Row("bare walk: open each key, enumerate each value | %.0f | in the running program", read);
  report.Row("import | %.0f | in the running program", imported);
  report.Row("`reg import` | %.0f | %.0f", regImport, importStartUp);
  report.Row("bare walk: create each key, set each value | %.0f | in the running program", write);

  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("export to `reg export`", exported / regExport, 1);
  report.Target("import to `reg import`", imported / regImport, 1);
  report.Row("export to bare walk | %.2f | - | ", exported / read);
  report.Row("import to bare walk | %.2f | - | ", imported / write);
}

int ReportCalls(Report& report, const char* what) {
  int total = 0;
  std::string details;
  for (const auto& [name, calls] : CallCounts()) {
    total += calls;
    details += (details.empty() ? "" : ", ") + std::to_string(calls) + " " + name;
  }
  report.Row("%s | %d | %s", what, total, details.c_str());
  return total;
}

void ReportRegistryCalls(Report& report) {
  EmptyKey(kSchemesKey);
  WriteTree(MakeSchemes(1));
  const std::string name = "Scheme 001";
  const RegistryTree tree = ReadTree(SchemeKeyPath(name));
  const auto keys = std::count_if(tree.begin(), tree.end(),
                                  [](const RegistryValue& value) { return value.Type == kKeyOnly; });

  report.Table("Registry calls of one scheme", "work | calls | of which");
  report.Row("keys and values that it has | %zu | %d keys, %d values", tree.size(), static_cast<int>(keys),
             static_cast<int>(std::ssize(tree) - keys));
  ResetCounts();
  ReadTree(SchemeKeyPath(name));
  ReportCalls(report, "bare walk, reading");
  SchemeProperties scheme;
  scheme.Name = name;
  ResetCounts();
  bool sound = LoadSchemeProperties(name, scheme);
  ReportCalls(report, "load");
  ResetCounts();
  WriteTree(tree);
  ReportCalls(report, "bare walk, writing");
  ResetCounts();
  sound &= SaveSchemeProperties(name, scheme);
  ReportCalls(report, "save");
  EmptyKey(SchemeKeyPath(name));
  ResetCounts();
  sound &= SaveSchemeProperties(name, scheme);
  ReportCalls(report, "save of a scheme that is new");
  report.Demand(sound && ReadTree(SchemeKeyPath(name)) == tree,
                "The scheme saved is not the one that was loaded.");
}

void ReportProgram(Report& report, const char* x86, const char* x64) {
  EmptyKey(kSchemesKey);
  WriteTree(MakeSchemes(50));
  std::vector<double> manager, notepad;
  for (int round = 0; round < kRounds; ++round) {
    manager.push_back(TimeToWindow(std::string("\"") + x64 + "\""));
    notepad.push_back(TimeToWindow("notepad"));
  }
  report.Table("The program", "what | figure");
  report.Row("size, x86 | %.0f KB", static_cast<double>(std::filesystem::file_size(x86)) / 1024);
  report.Row("size, x64 | %.0f KB", static_cast<double>(std::filesystem::file_size(x64)) / 1024);
  report.Row("start to main window with 50 schemes, x64 | %.0f ms", Median(manager));
  report.Row("start of `notepad` to its window | %.0f ms", Median(notepad));
  report.Demand(*std::min_element(manager.begin(), manager.end()) > 0, "The program showed no window.");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && argv[1] == std::string(kReadCommand)) return ReadOnce(argv[2], std::atoi(argv[3]));
  if (argc != 3) {
    std::puts("usage: bench X86_PROGRAM X64_PROGRAM");
    return 2;
  }
  UniqueKey shell;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kSchemesKey, 0, KEY_READ, shell.Put()) == ERROR_SUCCESS) {
    std::puts("This machine has schemes, which the benchmark would destroy.");
    return 2;
  }
  CreateDirectoryA(kFolder, nullptr);
  UniqueFile(CreateFileA((std::string(kFolder) + "\\a.bmp").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                         0, nullptr));
  WriteTree(MakeShell(kFolder));

  Report report;
  report.Demand(StartCounting(), "Not every registry call can be counted.");
  ReportExchange(report);
  ReportRegistryCalls(report);
  ReportReading(report);
  ReportProgram(report, argv[1], argv[2]);
  EmptyKey(kProductKey);
  return report.Failed() ? 1 : 0;
}
