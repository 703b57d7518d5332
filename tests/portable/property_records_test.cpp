#include "schemefile/property_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "model/scheme_layout.h"
#include "schemefile/record_splitter.h"

namespace {

// A scheme whose values all differ, so that no two can change places unnoticed.
SchemeProperties DistinctScheme(const std::string& name, std::int32_t roots, std::int32_t links) {
  SchemeProperties scheme{name, "", {roots, {}}, {links, {}}, {1, 0, 1}, {}, {}};
  std::uint32_t next = 0xFFFFFFF0;
  const auto fill = [&next](auto& record, const auto& fields) {
    for (const auto& field : fields) {
      if (field.Member.index() == 0) {
        record.*std::get<0>(field.Member) = std::to_string(++next);
      } else {
        record.*std::get<1>(field.Member) = ++next;
      }
    }
  };
  scheme.FolderDisplay.Records.resize(static_cast<std::size_t>(roots));
  scheme.WebLinks.Records.resize(static_cast<std::size_t>(links));
  for (FolderRoot& root : scheme.FolderDisplay.Records)
    fill(root, kFolderRootFields);
  for (WebLink& link : scheme.WebLinks.Records)
    fill(link, kWebLinkFields);
  for (ToolBarPage& page : scheme.ToolBars)
    fill(page, kToolBarPageFields);
  fill(scheme.Defaults, kDefaultsFields);
  return scheme;
}

// The records as a file holds them once it is written and split.
std::vector<SchemeRecord> ThroughFile(const RecordStore& store) {
  std::vector<SchemeRecord> records;
  store.FlushRecordStore(records);
  std::string file(kSignature);
  for (const SchemeRecord& record : records)
    file += record.Key1 + record.Key2 + record.Value;
  return SplitRecords(file);
}

TEST(PropertyRecordsTest, ReadsBackWhatItWroteInAnyOrderOfTheFile) {
  // Names that are prefixes of one another, or hold what separates a name from a label.
  const std::vector<SchemeProperties> schemes = {DistinctScheme("Infants", 3, 2),
                                                 DistinctScheme("Infants - Tabs", 0, 0),
                                                 DistinctScheme("Infant", 11, 10)};
  RecordStore store;
  WriteSchemeCount(store, schemes.size());
  WriteSchemes(store, schemes, [] {});
  std::vector<SchemeRecord> records = ThroughFile(store);
  for (bool shuffled : {false, true}) {
    if (shuffled) std::shuffle(records.begin(), records.end(), std::mt19937(1));
    store.Fill(records);
    int steps = 0;
    EXPECT_EQ(ReadSchemes(store, ReadSchemeCount(store), [&] { ++steps; }), schemes);
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(store.ReadCursor(), records.size());
  }
}

TEST(PropertyRecordsTest, CountsThatDoNotAgreeWithTheRecords) {
  const struct {
    const char* stated;
    std::int32_t count;
    std::size_t length;
    bool good;
  } cases[] = {{"1", 1, 1, true},           {"-1", -1, 0, true},
               {"nonsense", 0, 0, true},    {"1000", 1000, 1000, true},
               {"1001", 1001, 1000, false}, {"4000000000", 2147483647, 1000, false}};
  const SchemeProperties stored = DistinctScheme("S", 2, 2);
  RecordStore store;
  WritePropertyRecords(store, stored);
  std::vector<SchemeRecord> records = ThroughFile(store);
  for (const auto& file : cases) {
    for (SchemeRecord& record : records) {
      if (record.Key2 == "RootFoldersCount" || record.Key2 == "WeblinksCount") record.Value = file.stated;
    }
    store.Fill(records);
    SchemeProperties scheme = DistinctScheme("S", 5, 5);
    EXPECT_EQ(ReadPropertyRecords(store, scheme), file.good) << file.stated;
    EXPECT_EQ(scheme.FolderDisplay.Count, file.count);
    EXPECT_EQ(scheme.WebLinks.Count, file.count);
    EXPECT_EQ(scheme.FolderDisplay.Records.size(), file.length);
    EXPECT_EQ(scheme.WebLinks.Records.size(), file.length);
    EXPECT_EQ(scheme.Defaults, stored.Defaults);
    if (file.length > 2) {
      EXPECT_EQ(scheme.FolderDisplay.Records[1], stored.FolderDisplay.Records[1]);
      EXPECT_EQ(scheme.FolderDisplay.Records[2], FolderRoot());
    }
    // What was read so is written without running past the list, or below it.
    RecordStore written;
    WritePropertyRecords(written, scheme);
    EXPECT_EQ(written.Count(), 60 + file.length * (9 + 6));
  }
}

// A few bytes a scheme that each state a thousand roots would otherwise cost gigabytes.
TEST(PropertyRecordsTest, GivesUpOnAFileThatStatesMostlyMissingRecords) {
  std::vector<SchemeRecord> records(50000);
  records[0] = {"Scheme Count", "The number of schemes", "2000000000"};
  records[1] = {" - FolderDisplay", "RootFoldersCount", "1000"};
  RecordStore store;
  store.Fill(std::move(records));
  EXPECT_EQ(ReadSchemeCount(store), 50000);
  EXPECT_LT(ReadSchemes(store, 50000, [] {}).size(), 130u);
}

}  // namespace
