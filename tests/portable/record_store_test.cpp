#include "schemefile/records/record_store.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "support/scheme_file_bytes.h"

namespace {

constexpr std::string_view kWithNul("1\0", 2);

// A wrong order of the two look-ups, a first match instead of the last, keys compared in part, and a cursor
// that follows the record found all show in what such a walk returns.
TEST(RecordStoreTest, LooksAtTheCursorFirstThenForTheLastMatch) {
  RecordStore store;
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "");
  store.Fill(ListOf({{"a", "1", "first"}, {"b", "1", "other"}, {"a", "1", "last"}, {"c", kWithNul, "end"}}));
  const struct {
    std::string key1, key2, answer;
  } walk[] = {{"a", "1", "first"}, {"a", "1", "last"}, {"c", std::string(kWithNul), "end"},
              {"c", "1", ""},      {"B", "1", ""},     {"b1", "", ""},
              {"1", "b", ""},      {"b", "1", "other"}};
  for (const auto& asked : walk)
    EXPECT_EQ(store.ReadStringRecord(asked.key1, asked.key2), asked.answer);
  EXPECT_EQ(store.ReadCursor(), std::size(walk));
  store.ResetReadCursor();
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "first");
}

// So many keys that some of them have one hash.
TEST(RecordStoreTest, ReadsRecordsTogetherAsOneByOne) {
  constexpr int kKeys = 200'000;
  std::vector<std::string> keys;
  for (int i = 0; i < kKeys; ++i)
    keys.push_back(std::to_string(i));
  std::vector<SchemeRecord> records = {{"a", "0", "an earlier one"}};
  for (const std::string& key : keys)
    records.push_back({"a", key, key});
  RecordStore store;
  store.Fill(ListOf(records));
  for (int i = 0; i < kKeys; i += 2) {
    std::string_view texts[] = {keys[i + 1], "no such key", keys[i]};
    store.ReadRecords("a", texts);
    ASSERT_EQ(std::vector(texts, std::end(texts)), (std::vector<std::string_view>{keys[i + 1], "", keys[i]}));
  }
  store.ResetReadCursor();
  std::string_view texts[] = {"0", "1"};
  store.ReadRecords("a", texts);
  EXPECT_EQ(texts[0], "an earlier one") << "which stands at the cursor";
  EXPECT_EQ(store.ReadCursor(), 2u);
}

TEST(RecordStoreTest, FindsWhatWasAddedOrRemovedSinceTheLastLookUp) {
  RecordStore store;
  for (int i = 0; i < 100; ++i) {
    store.WriteIntRecord("n", std::to_string(i), -i);
    EXPECT_EQ(store.ReadIntRecord("n\xAC", std::to_string(i) + "\xAC"), -i);
    EXPECT_EQ(store.ReadIntRecord("n\xAC", "0\xAC"), 0);
  }
  EXPECT_EQ(store.ReadStringRecord("n", "99"), "");  // what is written ends in the terminator, keys included
  RecordList records = ListOf({{"old", "", ""}});
  EXPECT_EQ(store.FlushRecordStore(records), 100u);
  EXPECT_EQ(records[99], (SchemeRecord{"n\xAC", "99\xAC", "-99\xAC"}));
  store.ClearRecordStore();
  EXPECT_EQ(store.ReadStringRecord("n\xAC", "99\xAC"), "");
  for (const char* file : {"one", "two"}) {
    store.Fill(ListOf({{"before", "", ""}, {file, "", "found"}}));
    EXPECT_EQ(store.ReadStringRecord(file, ""), "found");
  }
}

TEST(RecordStoreTest, NumbersAreReadAsAtoiDoes) {
  constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
  constexpr auto kMin = std::numeric_limits<std::int32_t>::min();
  const std::string embedded("1\0002", 3);
  const std::pair<std::string, std::int32_t> cases[] = {{" \t\r\n\v\f+42", 42},
                                                        {"-3 pages", -3},
                                                        {"0x10", 0},
                                                        {"", 0},
                                                        {"- 5", 0},
                                                        {"\xA0", 0},
                                                        {embedded, 1},
                                                        {"-2147483649", kMin},
                                                        {"99999999999999999999", kMax}};
  for (const auto& [text, number] : cases) {
    RecordStore store;
    store.Fill(ListOf({{"a", "b", text}}));
    EXPECT_EQ(store.ReadIntRecord("a", "b"), number) << text;
  }
}

}  // namespace
