// What the program costs: its registry work beside that of Windows' own tools, its reading of scheme files,
// its size and its start. Run by bench/run.
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "base/unique_handle.h"
#include "call_counter.h"
#include "machine.h"
#include "model/scheme_storage.h"
#include "processes.h"
#include "registry/registry_paths.h"
#include "report.h"
#include "schemefile/property_records.h"
#include "schemefile/record_splitter.h"
#include "schemefile/scheme_file.h"
#include "stopwatch.h"

namespace {

constexpr int kRounds = 7;
constexpr int kSchemes = 400;

const char kFolder[] = "C:\\bench";
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
  std::vector<std::string> keys;
  for (const RegistryValue& value : tree)
    keys.push_back(value.Key);
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());

  report.Table("Registry calls of one scheme", "work | calls | of which");
  // ToolBars has subkeys only.
  report.Row("keys and values that it has | %zu | %zu keys, %zu values", keys.size() + 1 + tree.size(),
             keys.size() + 1, tree.size());
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

std::vector<SchemeProperties> SomeSchemes(int count) {
  std::vector<SchemeProperties> schemes(static_cast<std::size_t>(count));
  int number = 0;
  for (SchemeProperties& scheme : schemes) {
    scheme.Name = "Scheme " + std::to_string(++number);
    scheme.FolderDisplay.Assign(std::vector<FolderRoot>(2));
    scheme.FolderDisplay.Records[1].RootPath = "S:\\Shared\\" + scheme.Name;
    scheme.WebLinks.Assign(std::vector<WebLink>(2));
    scheme.WebLinks.Records[0].URL = "http://www.greenfield.example/";
    scheme.Tabs.Page1 = 1;
    scheme.Defaults.DefaultView = "tree1";
  }
  return schemes;
}

std::string FileOf(const std::vector<SchemeProperties>& schemes, bool shuffled) {
  RecordStore store;
  WriteSchemeCount(store, schemes.size());
  WriteSchemes(store, schemes, [] {});
  std::vector<SchemeRecord> records;
  store.FlushRecordStore(records);
  if (shuffled) std::shuffle(records.begin(), records.end(), std::mt19937(1));
  std::string file(kSignature);
  for (const SchemeRecord& record : records)
    file += record.Key1 + record.Key2 + record.Value;
  return file;
}

// The file split, and every scheme read from its records.
double TimeReading(Report& report, const std::string& file, const std::vector<SchemeProperties>& expected) {
  std::vector<SchemeProperties> schemes;
  const double time = Time([&] {
    RecordStore store;
    store.Fill(SplitRecords(file));
    const std::int32_t count = ReadSchemeCount(store);
    schemes = ReadSchemes(store, count, [] {});
  });
  report.Demand(schemes == expected, "The schemes read are not those that were written.");
  return time;
}

void ReportReading(Report& report) {
  const std::vector<SchemeProperties> many = SomeSchemes(1100), few = SomeSchemes(110);
  const std::string inOrder = FileOf(many, false), shuffled = FileOf(many, true);
  const std::string small = FileOf(few, false), smallShuffled = FileOf(few, true);
  std::vector<double> times[4];
  for (int round = 0; round < kRounds; ++round) {
    times[0].push_back(TimeReading(report, inOrder, many));
    times[1].push_back(TimeReading(report, shuffled, many));
    times[2].push_back(TimeReading(report, small, few));
    times[3].push_back(TimeReading(report, smallShuffled, few));
  }

  report.Table("Splitting a file and reading its records", "file | records | median in ms");
  const std::size_t records = SplitRecords(inOrder).size(), smallRecords = SplitRecords(small).size();
  report.Row("1,100 schemes, in order | %zu | %.1f", records, Median(times[0]));
  report.Row("1,100 schemes, shuffled | %zu | %.1f", records, Median(times[1]));
  report.Row("110 schemes, in order | %zu | %.1f", smallRecords, Median(times[2]));
  report.Row("110 schemes, shuffled | %zu | %.1f", smallRecords, Median(times[3]));
  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("shuffled to in order", Median(times[1]) / Median(times[0]), 2);
  report.Target("ten times the schemes, in order", Median(times[0]) / Median(times[2]), 12);
  report.Target("ten times the schemes, shuffled", Median(times[1]) / Median(times[3]), 12);
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
