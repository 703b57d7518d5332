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
double TimeRestoring(Report& report, const RegistryTree& tree, const std::function<double()>& work) {
  EmptyKey(kSchemesKey);
  const double time = work();
  report.Demand(ReadTree(kSchemesKey) == tree, "The schemes restored are not those that were saved.");
  return time;
}

void ReportExchange(Report& report) {
  const RegistryTree made = MakeSchemes(kSchemes);
  WriteTree(made);
  const RegistryTree tree = ReadTree(kSchemesKey);
  report.Demand(tree.size() == made.size(), "The machine could not be made.");
  report.Demand(TimeProcess(RegExport(kSmallBranch, kStartUpFile)) > 0, "`reg` does not work.");

  Series exports, regExports, reads, imports, regImports, writes, exportStarts, importStarts;
  for (int round = 0; round < kRounds; ++round) {
    exportStarts.Add(TimeProcess(RegExport(kSmallBranch, kStartUpFile)));
    exports.Add(Time(&ExportToFile));
    regExports.Add(TimeProcess(RegExport(kSchemesBranch, kRegFile)));
    reads.Add(Time([] { ReadTree(kSchemesKey); }));

    importStarts.Add(TimeProcess(RegImport(kStartUpFile)));
    imports.Add(TimeRestoring(
        report, tree, [] { return Time([] { SchemeFile(nullptr).Read(kSchemeFile, kSchemeFile); }); }));
    regImports.Add(TimeRestoring(report, tree, [] { return TimeProcess(RegImport(kRegFile)); }));
    writes.Add(TimeRestoring(report, tree, [&made] { return Time([&made] { WriteTree(made); }); }));
  }
  regExports = regExports.Less(exportStarts.Median());
  regImports = regImports.Less(importStarts.Median());
  report.Demand(exportStarts.Least() > 0 && regExports.Least() > 0, "`reg export` did not work.");

  report.Table("Export and import of 400 schemes", "work | median in ms | least");
  report.Times("export", exports);
  report.Times("`reg export`, without its start", regExports);
  report.Times("bare walk: open each key, enumerate each value", reads);
  report.Times("import", imports);
  report.Times("`reg import`, without its start", regImports);
  report.Times("bare walk: create each key, set each value", writes);
  report.Times("start of `reg export`", exportStarts);
  report.Times("start of `reg import`", importStarts);

  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("export to `reg export`", exports.Median() / regExports.Median(), 1);
  report.Target("import to `reg import`", imports.Median() / regImports.Median(), 1);
  report.Row("export to bare walk | %.2f | - | ", exports.Median() / reads.Median());
  report.Row("import to bare walk | %.2f | - | ", imports.Median() / writes.Median());
}

void ReportCalls(Report& report, const char* what) {
  int total = 0;
  std::string details;
  for (const auto& [name, calls] : CallCounts()) {
    total += calls;
    details += (details.empty() ? "" : ", ") + std::to_string(calls) + " " + name;
  }
  report.Row("%s | %d | %s", what, total, details.c_str());
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
  Series manager, notepad;
  for (int round = 0; round < kRounds; ++round) {
    manager.Add(TimeToWindow(std::string("\"") + x64 + "\""));
    notepad.Add(TimeToWindow("notepad"));
  }
  report.Demand(manager.Least() > 0 && notepad.Least() > 0, "A program showed no window.");

  report.Table("Start until the first window", "program | median in ms | least");
  report.Times("this program, x64, with 50 schemes", manager);
  report.Times("`notepad`", notepad);
  report.Table("Size of the program", "build | KB");
  report.Row("x86 | %.0f", static_cast<double>(std::filesystem::file_size(x86)) / 1024);
  report.Row("x64 | %.0f", static_cast<double>(std::filesystem::file_size(x64)) / 1024);
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
  report.End();
}
