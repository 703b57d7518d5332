#include "model/property_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "schemefile/records/record_splitter.h"
#include "support/scheme_file_bytes.h"

namespace {

SchemeProperties Scheme(const std::string& name, std::size_t roots, std::size_t links) {
  SchemeProperties scheme;
  scheme.Name = name;
  scheme.FolderRoots.resize(roots);
  for (FolderRoot& root : scheme.FolderRoots)
    root.RootPath = name + std::to_string(root.FolderLevels = 0xFFFFFFF0 + roots--);
  scheme.WebLinks.resize(links);
  for (WebLink& link : scheme.WebLinks)
    link.URL = name + std::to_string(links--);
  scheme.ToolBars[2].Back = scheme.Tabs.Page2 = 1;
  scheme.Defaults.DefaultView = name;
  return scheme;
}

// The records as a file holds them once it is written and split.
RecordList ThroughFile(const RecordStore& store) { return SplitRecords(FileBytes(store)); }

TEST(PropertyRecordsTest, ReadsBackWhatItWroteInAnyOrderOfTheFile) {
  // Names that are prefixes of one another, or hold what separates a name from a label.
  const std::vector<SchemeProperties> schemes = {Scheme("Infants", 3, 2), Scheme("Infants - Tabs", 0, 0),
                                                 Scheme("Infant", 11, 1000)};
  std::vector<SchemeProperties> written = schemes;
  written[0].Tabs.Page2 = 5;  // read back as 1
  RecordStore store;
  WriteSchemeCount(store, written.size());
  WriteSchemes(store, written, [] {});
  const RecordList file = ThroughFile(store);
  std::vector<SchemeRecord> records = Records(file);
  for (const bool shuffled : {false, true}) {
    if (shuffled) std::shuffle(records.begin(), records.end(), std::mt19937(1));
    store.Fill(ListOf(records));
    int steps = 0;
    EXPECT_EQ(ReadSchemes(store, ReadSchemeCount(store), [&] { ++steps; }), schemes);
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(store.ReadCursor(), records.size());
  }
}

// A few bytes a scheme that each state a thousand roots would otherwise cost gigabytes.
TEST(PropertyRecordsTest, GivesUpOnAFileThatStatesMostlyMissingRecords) {
  std::vector<SchemeRecord> records(50000);
  records[0] = {"Scheme Count", "The number of schemes", "2000000000"};
  records[1] = {" - FolderDisplay", "RootFoldersCount", "1000"};
  RecordStore store;
  store.Fill(ListOf(records));
  EXPECT_EQ(ReadSchemeCount(store), 50000);
  EXPECT_LT(ReadSchemes(store, 50000, [] {}).size(), 130u);
}

}  // namespace
