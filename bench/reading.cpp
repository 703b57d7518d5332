#include "reading.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "files.h"
#include "model/config_hive.h"
#include "model/property_records.h"
#include "processes.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/scheme_file.h"
#include "stopwatch.h"

namespace {

std::vector<SchemeProperties> SomeSchemes(int count) {
  std::vector<SchemeProperties> schemes(static_cast<std::size_t>(count));
  int number = 0;
  for (SchemeProperties& scheme : schemes) {
    scheme.Name = "Scheme " + std::to_string(++number);
    scheme.FolderRoots.resize(2);
    scheme.FolderRoots[1].RootPath = "S:\\Shared\\" + scheme.Name;
    scheme.WebLinks.resize(2);
    scheme.WebLinks[0].URL = "http://www.greenfield.example/";
    scheme.Tabs.Page1 = 1;
    scheme.Defaults.DefaultView = "tree1";
  }
  return schemes;
}

std::string FileOf(const std::vector<SchemeProperties>& schemes, bool shuffled) {
  ConfigHive config;
  for (const SchemeProperties& scheme : schemes)
    config.Entries.push_back({scheme.Name, "For " + scheme.Name});
  RecordStore& store = TheRecordStore();
  store.ClearRecordStore();
  config.WriteToFile();
  WriteSchemeCount(store, schemes.size());
  WriteSchemes(store, schemes, [] {});
  RecordList list;
  store.FlushRecordStore(list);
  std::vector<SchemeRecord> records;
  for (std::size_t i = 0; i < list.Count(); ++i)
    records.push_back(list[i]);
  if (shuffled) std::shuffle(records.begin(), records.end(), std::mt19937(1));
  std::string file(kSignature);
  for (const SchemeRecord& record : records)
    file.append(record.Key1).append(record.Key2).append(record.Value);
  return file;
}

struct Reading {
  explicit Reading(int schemes, bool shuffled) : File(schemes, shuffled) {}

  void Measure(Report& report) {
    const DWORD microseconds =
        RunProcess(ThisProgram(kReadCommand + (" " + File.Path) + " " + std::to_string(File.Schemes)));
    report.Demand(microseconds > 0, "The schemes read are not those that were written.");
    Times.Add(microseconds / 1000.0);
  }

  RecordFile File;
  Series Times;
};

}  // namespace

RecordFile::RecordFile(int schemes, bool shuffled)
    : Schemes(schemes),
      Path(InFolder((shuffled ? "shuffled-" : "in-order-") + std::to_string(schemes) + ".ksf")) {
  const std::string bytes = FileOf(SomeSchemes(schemes), shuffled);
  Records = SplitRecords(bytes).Count();
  std::ofstream(Path, std::ios::binary) << bytes;
}

void ReportReading(Report& report) {
  Reading inOrder(1100, false), shuffled(1100, true), small(110, false), smallShuffled(110, true);
  const std::array<std::pair<const char*, Reading*>, 4> files{{{"1,100 schemes, in order", &inOrder},
                                                               {"1,100 schemes, shuffled", &shuffled},
                                                               {"110 schemes, in order", &small},
                                                               {"110 schemes, shuffled", &smallShuffled}}};
  for (int round = 0; round < kRounds; ++round) {
    for (const auto& [name, reading] : files)
      reading->Measure(report);
  }

  report.Table("Splitting a file and reading its records", "file | median in ms | least");
  for (const auto& [name, reading] : files)
    report.Times(name + (", " + std::to_string(reading->File.Records) + " records"), reading->Times);
  report.Table("Compared", "ratio | measured | at most | ");
  report.Target("shuffled to in order", shuffled.Times.Over(inOrder.Times).Median(), 2);
  report.Target("ten times the schemes, in order", inOrder.Times.Over(small.Times).Median(), 12);
  report.Row("ten times the schemes, shuffled | %.2f | - | ",
             shuffled.Times.Over(smallShuffled.Times).Median());
}

int ReadOnce(const char* path, int schemes) {
  std::vector<SchemeProperties> read;
  const double time = Time([&] {
    std::string bytes;
    if (ReadSchemeFile(path, bytes) != FileResult::kDone) return;
    RecordStore& store = TheRecordStore();
    store.Fill(SplitRecords(std::move(bytes)));
    const std::int32_t count = ReadSchemeCount(store);
    store.ResetReadCursor();
    ConfigHive config;
    config.ReadFromFile();
    read = ReadSchemes(store, count, [] {});
  });
  return read == SomeSchemes(schemes) ? static_cast<int>(time * 1000) : 0;
}
