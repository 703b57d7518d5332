#include "exchange.h"

#include <array>

#include "app/exchange_work.h"
#include "files.h"
#include "machine.h"
#include "processes.h"
#include "registry/registry_paths.h"
#include "schemefile/scheme_file.h"
#include "stopwatch.h"

namespace {

constexpr int kSchemes = 400;

const std::string kSchemesBranch = std::string("HKLM\\") + kSchemesKey;
const std::string kSmallBranch = std::string("HKLM\\") + kProtectedSchemesKey;

std::string RegExport(const std::string& branch, const std::string& file) {
  return "reg export \"" + branch + "\" " + file + " /y";
}

std::string Own(const std::string& command, const std::string& file) {
  return ThisProgram(command + " " + file);
}

// One process a round.
struct Work {
  std::string CommandLine;
  Series Times = {};

  void Measure() { Times.Add(TimeProcess(CommandLine)); }
};

struct Works {
  explicit Works(const std::string& ksm)
      : KsmExport{ksm + " export " + InFolder("ksm.ksf")},
        KsmImport{ksm + " import --no-verify " + InFolder("ksm.ksf")},
        KsmImportReadBack{ksm + " import " + InFolder("ksm.ksf")} {}

  Work Export{Own(kExportCommand, InFolder("tree.ksf"))};
  Work Import{Own(kImportCommand, InFolder("tree.ksf"))};
  Work RegExport{::RegExport(kSchemesBranch, InFolder("tree.reg"))};
  Work RegImport{"reg import " + InFolder("tree.reg")};
  Work KsmExport, KsmImport, KsmImportReadBack;
  Series Reads = {}, Writes = {};  // by bare walks

  // What a process takes that finds nothing to do is its start.
  Work ExportStart{Own(kExportCommand, InFolder("nothing.ksf"))};
  Work ImportStart{Own(kImportCommand, InFolder("nothing.ksf"))};
  Work RegExportStart{::RegExport(kSmallBranch, InFolder("nothing.reg"))};
  Work RegImportStart{"reg import " + InFolder("nothing.reg")};

  std::array<Work*, 3> Exports() { return {&Export, &RegExport, &KsmExport}; }
  std::array<Work*, 4> Imports() { return {&Import, &RegImport, &KsmImport, &KsmImportReadBack}; }
  std::array<Work*, 4> Starts() { return {&ExportStart, &ImportStart, &RegExportStart, &RegImportStart}; }
};

// Takes the schemes away, runs the work that is to bring them back, and sees whether it did.
template <class Restore>
void Restoring(Report& report, const RegistryTree& tree, Restore restore) {
  EmptyKey(kSchemesKey);
  restore();
  report.Demand(ReadTree(kSchemesKey) == tree, "The schemes restored are not those that were saved.");
}

void MeasureRound(Report& report, Works& works, const RegistryTree& made, const RegistryTree& tree) {
  for (Work* work : works.Exports())
    work->Measure();
  works.Reads.Add(Time([] { ReadTree(kSchemesKey); }));
  for (Work* work : works.Imports())
    Restoring(report, tree, [&] { work->Measure(); });
  EmptyKey(kSchemesKey);
  for (Work* work : works.Starts())
    work->Measure();
  Restoring(report, tree, [&] { works.Writes.Add(Time([&] { WriteTree(made); })); });
}

// `reg` returns failure in one of some hundred rounds, even with nothing to do; the medians do not mind. Data
// that an import of ours loses show in the tree.
template <std::size_t Count>
void DemandSuccess(Report& report, const std::array<Work*, Count>& works) {
  for (const Work* work : works)
    report.Demand(work->Times.Median() > 0, ("This does not work: " + work->CommandLine).c_str());
}

Series WithoutStart(const Work& work, const Work& start) { return work.Times.Less(start.Times.Median()); }

void PrintProgram(Report& report, const Works& works) {
  const Series exported = WithoutStart(works.Export, works.ExportStart);
  const Series imported = WithoutStart(works.Import, works.ImportStart);
  const Series regExported = WithoutStart(works.RegExport, works.RegExportStart);
  const Series regImported = WithoutStart(works.RegImport, works.RegImportStart);

  report.Table("Export and import of 400 schemes", "work | median in ms | least");
  report.Times("export, without its start", exported);
  report.Times("`reg export`, without its start", regExported);
  report.Times("bare walk: open each key, enumerate each value", works.Reads);
  report.Times("import, without its start", imported);
  report.Times("`reg import`, without its start", regImported);
  report.Times("bare walk: create each key, set each value", works.Writes);
  report.Times("start of the export", works.ExportStart.Times);
  report.Times("start of `reg export`", works.RegExportStart.Times);
  report.Times("start of the import", works.ImportStart.Times);
  report.Times("start of `reg import`", works.RegImportStart.Times);

  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("export to `reg export`", exported.Over(regExported).Median(), 0.70);
  report.Row("export to bare walk | %.2f | - | ", exported.Over(works.Reads).Median());
  report.Target("import to `reg import`", imported.Over(regImported).Median(), 1.02);
  report.Target("import to bare walk", imported.Over(works.Writes).Median(), 1.10);
}

void PrintKsm(Report& report, const Works& works) {
  const Series& exported = works.KsmExport.Times;
  const Series& imported = works.KsmImport.Times;
  const Series readBack = works.KsmImportReadBack.Times.Less(imported);

  report.Table("Export and import of 400 schemes by ksm, starts included", "work | median in ms | least");
  report.Times("`ksm export`", exported);
  report.Times("`reg export`", works.RegExport.Times);
  report.Times("`ksm import --no-verify`", imported);
  report.Times("`reg import`", works.RegImport.Times);
  report.Times("`ksm import`", works.KsmImportReadBack.Times);

  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("`ksm export` to `reg export`", exported.Over(works.RegExport.Times).Median(), 0.75);
  report.Target("`ksm import --no-verify` to `reg import`", imported.Over(works.RegImport.Times).Median(),
                1.05);
  report.Target("what `ksm import` takes longer to `ksm export`", readBack.Over(exported).Median(), 1);
}

}  // namespace

void ReportExchange(Report& report, const std::string& ksm) {
  const RegistryTree made = MakeSchemes(kSchemes);
  WriteTree(made);
  const RegistryTree tree = ReadTree(kSchemesKey);
  report.Demand(tree.size() == made.size(), "The machine could not be made.");

  Works works(ksm);
  for (int round = 0; round < kRounds; ++round)
    MeasureRound(report, works, made, tree);
  DemandSuccess(report, works.Exports());
  DemandSuccess(report, works.Imports());
  DemandSuccess(report, works.Starts());
  report.Demand(FileBytes(InFolder("tree.ksf")) == FileBytes(InFolder("ksm.ksf")),
                "ksm saves something else than the program.");
  PrintProgram(report, works);
  PrintKsm(report, works);
}

int ExportOnce(const char* path) {
  return SaveMachine(nullptr, {.Path = path, .Folder = kFolder}) == Ending::kDone ? 0 : 1;
}

int ImportOnce(const char* path) {
  SchemeFile file;
  if (file.Read(path, path) != FileResult::kDone) return 1;
  SchemeHive hive;
  hive.Records = file.TakeRecords();
  ReadRecords(nullptr, hive);
  ImportProblems problems;
  return WriteAndReload(
             nullptr, hive, [] {}, problems) == Ending::kDone &&
                 problems.None()
             ? 0
             : 1;
}
