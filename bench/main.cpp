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

constexpr char kExportCommand[] = "export";
constexpr char kImportCommand[] = "import";

const std::string kSchemesBranch = std::string("HKLM\\") + kSchemesKey;
const std::string kSmallBranch = std::string("HKLM\\") + kProtectedSchemesKey;

std::string InFolder(const char* name) { return std::string(kFolder) + "\\" + name; }

int ExportTo(const std::string& path) {
  SchemeHive hive;
  if (ReadMachine(hive, {}) != CatalogueResult::kLoaded) return 1;
  SchemeFile file;
  file.Save(hive, {});
  return file.Write(kFolder, path) ? 0 : 1;
}

int ImportFrom(const std::string& path) {
  SchemeFile file;
  if (file.Read(path, path) != FileResult::kDone) return 1;
  SchemeHive hive;
  hive.Records = file.TakeRecords();
  ImportSchemes(hive, {});
  return ApplyImport(hive, {}, {}).None() ? 0 : 1;
}

// Export and import by one program, each by a process of its own; what a process takes that finds nothing to
// do is its start.
struct Exchange {
  std::string Export, Import, ExportNothing, ImportNothing;
  Series Exports = {}, Imports = {}, ExportStarts = {}, ImportStarts = {};

  void MeasureStarts() {
    ExportStarts.Add(TimeProcess(ExportNothing));
    ImportStarts.Add(TimeProcess(ImportNothing));
  }
  // Without the starts.
  Series ExportWork() const { return Exports.Less(ExportStarts.Median()); }
  Series ImportWork() const { return Imports.Less(ImportStarts.Median()); }
};

Exchange OurExchange() {
  const auto command = [](const char* what, const char* file) {
    return ThisProgram(what + std::string(" ") + InFolder(file));
  };
  return {command(kExportCommand, "tree.ksf"), command(kImportCommand, "tree.ksf"),
          command(kExportCommand, "nothing.ksf"), command(kImportCommand, "nothing.ksf")};
}

Exchange RegExchange() {
  const auto exportCommand = [](const std::string& branch, const char* file) {
    return "reg export \"" + branch + "\" " + InFolder(file) + " /y";
  };
  const auto importCommand = [](const char* file) { return "reg import " + InFolder(file); };
  return {exportCommand(kSchemesBranch, "tree.reg"), importCommand("tree.reg"),
          exportCommand(kSmallBranch, "nothing.reg"), importCommand("nothing.reg")};
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

  Exchange ours = OurExchange(), reg = RegExchange();
  Series reads, writes;
  for (int round = 0; round < kRounds; ++round) {
    ours.Exports.Add(TimeProcess(ours.Export));
    reg.Exports.Add(TimeProcess(reg.Export));
    reads.Add(Time([] { ReadTree(kSchemesKey); }));

    ours.Imports.Add(TimeRestoring(report, tree, [&ours] { return TimeProcess(ours.Import); }));
    reg.Imports.Add(TimeRestoring(report, tree, [&reg] { return TimeProcess(reg.Import); }));
    EmptyKey(kSchemesKey);
    ours.MeasureStarts();
    reg.MeasureStarts();
    writes.Add(TimeRestoring(report, tree, [&made] { return Time([&made] { WriteTree(made); }); }));
  }
  // `reg` answers failure in one of some hundred rounds, even with nothing to do; the medians do not mind.
  // Data that an export or import of ours loses show in the tree.
  for (const Exchange& exchange : {ours, reg}) {
    report.Demand(exchange.ExportStarts.Median() > 0 && exchange.ImportStarts.Median() > 0 &&
                      exchange.Exports.Median() > 0 && exchange.Imports.Median() > 0,
                  "An export or import does not work.");
  }

  report.Table("Export and import of 400 schemes", "work | median in ms | least");
  report.Times("export, without its start", ours.ExportWork());
  report.Times("`reg export`, without its start", reg.ExportWork());
  report.Times("bare walk: open each key, enumerate each value", reads);
  report.Times("import, without its start", ours.ImportWork());
  report.Times("`reg import`, without its start", reg.ImportWork());
  report.Times("bare walk: create each key, set each value", writes);
  report.Times("start of the export", ours.ExportStarts);
  report.Times("start of `reg export`", reg.ExportStarts);
  report.Times("start of the import", ours.ImportStarts);
  report.Times("start of `reg import`", reg.ImportStarts);

  const Series exported = ours.ExportWork(), imported = ours.ImportWork();
  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("export to `reg export`", exported.Over(reg.ExportWork()).Median(), 1);
  report.Target("import to `reg import`", imported.Over(reg.ImportWork()).Median(), 1);
  report.Row("export to bare walk | %.2f | - | ", exported.Over(reads).Median());
  report.Row("import to bare walk | %.2f | - | ", imported.Over(writes).Median());
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
  bool sound = LoadSchemeProperties(name, scheme) == Outcome::kComplete;
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
  const std::string command = argc > 2 ? argv[1] : "";
  if (argc == 4 && command == kReadCommand) return ReadOnce(argv[2], std::atoi(argv[3]));
  if (argc == 3 && command == kExportCommand) return ExportTo(argv[2]);
  if (argc == 3 && command == kImportCommand) return ImportFrom(argv[2]);
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
