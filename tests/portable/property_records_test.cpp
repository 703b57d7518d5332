#include "schemefile/property_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "model/scheme_layout.h"
#include "schemefile/record_splitter.h"

namespace {

// A scheme whose values all differ, so that no two can change places unnoticed.
SchemeProperties DistinctScheme(const std::string& name, int roots, int links) {
  SchemeProperties scheme;
  scheme.Name = name;
  std::uint32_t next = 1;
  const auto fill = [&](auto& record, const auto& fields) {
    for (const auto& field : fields) {
      if (field.Member.index() == 0) {
        record.*std::get<0>(field.Member) = field.Name + std::to_string(next++);
      } else {
        record.*std::get<1>(field.Member) = next++;
      }
    }
  };
  for (int i = 0; i < roots; ++i)
    fill(scheme.FolderDisplay.Records.emplace_back(), kFolderRootFields);
  for (int i = 0; i < links; ++i)
    fill(scheme.WebLinks.Records.emplace_back(), kWebLinkFields);
  scheme.FolderDisplay.Count = roots;
  scheme.WebLinks.Count = links;
  scheme.Tabs = {1, 0, 1};
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

std::vector<SchemeRecord> RecordsOf(const SchemeProperties& scheme) {
  RecordStore store;
  WritePropertyRecords(store, scheme);
  return ThroughFile(store);
}

bool Read(std::vector<SchemeRecord> records, SchemeProperties& scheme) {
  RecordStore store;
  store.Fill(std::move(records));
  return ReadPropertyRecords(store, scheme);
}

std::string Described(const std::vector<SchemeRecord>& records) {
  std::string text;
  for (const SchemeRecord& record : records)
    text += record.Key1 + "/" + record.Key2 + "=" + record.Value + "\n";
  return text;
}

TEST(PropertyRecordsTest, WritesEveryRecordInItsOrder) {
  SchemeProperties scheme;
  scheme.Name = "S";
  scheme.FolderDisplay.Assign(
      {{"Work", "H:\\", 4000000000u, "closed", "open", "long", "short", "r.wav", 2}, FolderRoot()});
  scheme.FolderDisplay.Records[1].RootDisplayName = "More";
  scheme.WebLinks.Assign({{"Site", "http://a", "l.ico", "longer", "shorter", "l.wav"}});
  scheme.Tabs = {5, 0, 0xFFFFFFFF};
  scheme.ToolBars[0] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  scheme.ToolBars[1].Side = 21;
  scheme.ToolBars[2].Back = 31;
  scheme.Defaults = {"tree1", 41, 42, 43, 44, 45, 46};
  const auto page = [](const std::string& number, std::initializer_list<int> values) {
    const char* const names[] = {"Back",  "Copy",  "Cut",     "Delete", "Forward", "Help", "Icon", "New",
                                 "Paste", "Print", "Refresh", "Rename", "Side",    "Undo", "Up",   "View"};
    std::string text;
    const char* const* name = names;
    for (int value : values) {
      text += "S - ToolBars - Page " + number + "/" + *name++ + "=" + std::to_string(value) + "\n";
    }
    return text;
  };
  EXPECT_EQ(Described(RecordsOf(scheme)),
            "S - FolderDisplay/RootFoldersCount=2\n"
            "S - FolderDisplay - Root 1/CollapsedIconFile=closed\n"
            "S - FolderDisplay - Root 1/ExpandedIconFile=open\n"
            "S - FolderDisplay - Root 1/RootDisplayName=Work\n"
            "S - FolderDisplay - Root 1/RootPath=H:\\\n"
            "S - FolderDisplay - Root 1/DenyModify=2\n"
            "S - FolderDisplay - Root 1/FolderLevels=-294967296\n"
            "S - FolderDisplay - Root 1/LongToolTip=long\n"
            "S - FolderDisplay - Root 1/ShortToolTip=short\n"
            "S - FolderDisplay - Root 1/Wav File=r.wav\n"
            "S - FolderDisplay - Root 2/CollapsedIconFile=\n"
            "S - FolderDisplay - Root 2/ExpandedIconFile=\n"
            "S - FolderDisplay - Root 2/RootDisplayName=More\n"
            "S - FolderDisplay - Root 2/RootPath=\n"
            "S - FolderDisplay - Root 2/DenyModify=0\n"
            "S - FolderDisplay - Root 2/FolderLevels=0\n"
            "S - FolderDisplay - Root 2/LongToolTip=\n"
            "S - FolderDisplay - Root 2/ShortToolTip=\n"
            "S - FolderDisplay - Root 2/Wav File=\n"
            "S - Folder Display/WeblinksCount=1\n"
            "S - Weblinks - WebLink 1/DisplayName=Site\n"
            "S - Weblinks - WebLink 1/URL=http://a\n"
            "S - Weblinks - WebLink 1/IconFile=l.ico\n"
            "S - Weblinks - WebLink 1/LongToolTip=longer\n"
            "S - Weblinks - WebLink 1/ShortToolTip=shorter\n"
            "S - Weblinks - WebLink 1/Wav File=l.wav\n"
            "S - Tabs/Page1=1\n"
            "S - Tabs/Page2=0\n"
            "S - Tabs/Page3=1\n" +
                page("1", {1, 6, 5, 8, 2, 14, 12, 3, 7, 10, 11, 4, 16, 9, 15, 13}) +
                page("2", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 21, 0, 0, 0}) +
                page("3", {31, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) +
                "S - Defaults/DefaultView=tree1\n"
                "S - Defaults/DefaultIconSize=41\n"
                "S - Defaults/DefaultFirstTab=42\n"
                "S - Defaults/ShortToolTips=43\n"
                "S - Defaults/Silent=44\n"
                "S - Defaults/Context Menu=45\n"
                "S - Defaults/Options Menu=46\n");
}

TEST(PropertyRecordsTest, ReadsBackWhatItWroteInAnyOrderOfTheFile) {
  // Names that are prefixes of one another, or hold what separates a name from a label.
  std::vector<SchemeProperties> schemes = {
      DistinctScheme("Infants", 3, 2), DistinctScheme("Infants - Tabs", 0, 0),
      DistinctScheme("Infant", 11, 10), DistinctScheme("\xC9t\xE9", 1, 0)};
  schemes[0].FolderDisplay.Records[1].FolderLevels = 0xFFFFFFFF;
  RecordStore written;
  WriteSchemeCount(written, schemes.size());
  WriteSchemes(written, schemes, [] {});
  std::vector<SchemeRecord> records = ThroughFile(written);
  ASSERT_EQ(records.size(), written.Count());

  RecordStore store;
  for (bool shuffled : {false, true}) {
    if (shuffled) std::shuffle(records.begin(), records.end(), std::mt19937(1));
    store.Fill(records);
    int steps = 0;
    EXPECT_EQ(ReadSchemes(store, ReadSchemeCount(store), [&] { ++steps; }), schemes);
    EXPECT_EQ(steps, 4);
    EXPECT_EQ(store.ReadCursor(), records.size());
  }
}

TEST(PropertyRecordsTest, CountsThatDoNotAgreeWithTheRecords) {
  const struct {
    const char* count;
    std::int32_t kept;
    std::size_t length;
    bool good;
  } cases[] = {
      {"0", 0, 0, true},           {"1", 1, 1, true},
      {"-1", -1, 0, true},         {"5", 5, 5, true},
      {"nonsense", 0, 0, true},    {"1000", 1000, 1000, true},
      {"1001", 1001, 1000, false}, {"4000000000", 2147483647, 1000, false},
  };
  const SchemeProperties stored = DistinctScheme("S", 2, 2);
  for (const auto& stated : cases) {
    for (const char* name : {"RootFoldersCount", "WeblinksCount"}) {
      std::vector<SchemeRecord> records = RecordsOf(stored);
      const auto count =
          std::find_if(records.begin(), records.end(), [&](auto& r) { return r.Key2 == name; });
      ASSERT_NE(count, records.end());
      count->Value = stated.count;
      SchemeProperties scheme;
      scheme.Name = "S";
      EXPECT_EQ(Read(records, scheme), stated.good) << name << " " << stated.count;
      const bool roots = name == std::string("RootFoldersCount");
      EXPECT_EQ(roots ? scheme.FolderDisplay.Count : scheme.WebLinks.Count, stated.kept);
      EXPECT_EQ(roots ? scheme.FolderDisplay.Records.size() : scheme.WebLinks.Records.size(), stated.length);
      if (roots && stated.length >= 2) {
        EXPECT_EQ(scheme.FolderDisplay.Records[1], stored.FolderDisplay.Records[1]);
      }
      if (roots && stated.length >= 3) {
        EXPECT_EQ(scheme.FolderDisplay.Records.back(), FolderRoot());
      }
      EXPECT_EQ(scheme.Defaults, stored.Defaults);
    }
  }
}

TEST(PropertyRecordsTest, WritesNoRecordsThatAListDoesNotHold) {
  SchemeProperties scheme = DistinctScheme("S", 1, 1);
  scheme.FolderDisplay.Count = 2147483647;
  scheme.WebLinks.Count = -1;
  const std::vector<SchemeRecord> records = RecordsOf(scheme);
  EXPECT_EQ(records.size(), 2u + 9u + 3u + 48u + 7u);
  EXPECT_EQ(records[0].Value, "2147483647");
  EXPECT_EQ(records[10].Value, "-1");
}

TEST(PropertyRecordsTest, SchemeCountIsBoundedByTheRecords) {
  const struct {
    const char* stated;
    std::int32_t read;
  } cases[] = {{"2", 2}, {"3", 3}, {"4", 3}, {"2147483647", 3}, {"-1", 0}, {"", 0}};
  for (const auto& file : cases) {
    RecordStore store;
    store.Fill({{"Scheme Count", "The number of schemes", file.stated}, {"a", "", ""}, {"b", "", ""}});
    EXPECT_EQ(ReadSchemeCount(store), file.read) << file.stated;
  }
}

// Twelve bytes a scheme that each state a thousand roots would otherwise cost gigabytes.
TEST(PropertyRecordsTest, GivesUpOnAFileThatStatesMostlyMissingRecords) {
  std::vector<SchemeRecord> records(100000);
  records[0] = {"Scheme Count", "The number of schemes", "99999"};
  records[1] = {" - FolderDisplay", "RootFoldersCount", "1000"};
  RecordStore store;
  store.Fill(std::move(records));
  const std::vector<SchemeProperties> schemes = ReadSchemes(store, ReadSchemeCount(store), [] {});
  EXPECT_GT(schemes.size(), 100u);
  EXPECT_LT(schemes.size(), 130u);
}

}  // namespace
