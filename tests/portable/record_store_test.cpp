#include "schemefile/record_store.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

RecordStore Filled(std::vector<SchemeRecord> records) {
  RecordStore store;
  store.Fill(std::move(records));
  return store;
}

// A wrong order of the two look-ups, a first match instead of the last, and a cursor that follows the record
// found all show in the answers of such a walk.
TEST(RecordStoreTest, LooksAtTheCursorFirstThenForTheLastMatch) {
  RecordStore store =
      Filled({{"a", "1", "first"}, {"b", "1", "other"}, {"a", "1", "last"}, {"c", "1", "end"}});
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "first");  // at the cursor
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "last");   // cursor on b
  EXPECT_EQ(store.ReadStringRecord("c", "1"), "end");    // cursor on the last a
  EXPECT_EQ(store.ReadStringRecord("c", "1"), "end");    // at the cursor again
  EXPECT_EQ(store.ReadCursor(), 4u);
  EXPECT_EQ(store.ReadStringRecord("b", "1"), "other");  // past the end
  EXPECT_EQ(store.ReadStringRecord("b", "2"), "");
  EXPECT_EQ(store.ReadCursor(), 6u);
  store.ResetReadCursor();
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "first");
}

TEST(RecordStoreTest, ComparesWholeTexts) {
  RecordStore store =
      Filled({{"", "", "blank"}, {"key", "item", "value"}, {std::string("k\0y", 3), "i", "nul"}});
  const struct {
    std::string key1, key2, value;
  } cases[] = {
      {"Key", "item", ""}, {"key", "Item", ""},
      {"ke", "item", ""},  {"key", "items", ""},
      {"keyitem", "", ""}, {"item", "key", ""},
      {"", "", "blank"},   {"key", "item", "value"},
      {"k", "i", ""},      {std::string("k\0y", 3), "i", "nul"},
  };
  for (const auto& asked : cases) {
    EXPECT_EQ(store.ReadStringRecord(asked.key1, asked.key2), asked.value) << asked.key1 << "/" << asked.key2;
  }
}

TEST(RecordStoreTest, FindsWhatWasAddedOrRemovedSinceTheLastLookUp) {
  RecordStore store;
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "");
  store.WriteStringRecord("a", "1", "v");
  // What is written ends in the terminator, its keys included.
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "");
  EXPECT_EQ(store.ReadStringRecord("a\xAC", "1\xAC"), "v\xAC");
  for (int i = 0; i < 100; ++i)
    store.WriteIntRecord("n", std::to_string(i), i);
  EXPECT_EQ(store.ReadIntRecord("n\xAC", "99\xAC"), 99);
  store.ClearRecordStore();
  EXPECT_EQ(store.ReadStringRecord("a\xAC", "1\xAC"), "");
  EXPECT_EQ(store.ReadCursor(), 5u);
  store.Fill({{"x", "1", "y"}, {"a", "1", "w"}});
  EXPECT_EQ(store.ReadCursor(), 0u);
  EXPECT_EQ(store.ReadStringRecord("a", "1"), "w");
}

TEST(RecordStoreTest, NumbersAreReadAsAtoiDoes) {
  constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
  constexpr auto kMin = std::numeric_limits<std::int32_t>::min();
  const struct {
    std::string text;
    std::int32_t number;
  } cases[] = {
      {"7", 7},
      {"-1", -1},
      {"+12", 12},
      {" \t\r\n\v\f42", 42},
      {"3 pages", 3},
      {"007", 7},
      {"0x10", 0},
      {"", 0},
      {"-", 0},
      {"- 5", 0},
      {"abc", 0},
      {"--5", 0},
      {"1.9", 1},
      {"\xA0"
       "5",
       0},
      {std::string("1\0"
                   "2",
                   3),
       1},
      {"2147483647", kMax},
      {"2147483648", kMax},
      {"99999999999999999999999", kMax},
      {"-2147483648", kMin},
      {"-2147483649", kMin},
      {"-99999999999999999999999", kMin},
  };
  for (const auto& stored : cases) {
    RecordStore store = Filled({{"a", "b", stored.text}});
    EXPECT_EQ(store.ReadIntRecord("a", "b"), stored.number) << stored.text;
  }
}

TEST(RecordStoreTest, FlushReplacesTheListByACopy) {
  RecordStore store;
  store.WriteIntRecord("Scheme Count", "The number of schemes", -2);
  store.WriteStringRecord("", "k", std::string("v\xAC\0w", 4));
  std::vector<SchemeRecord> records = {{"old", "", ""}};
  EXPECT_EQ(store.FlushRecordStore(records), 2u);
  const std::vector<SchemeRecord> expected = {{"Scheme Count\xAC", "The number of schemes\xAC", "-2\xAC"},
                                              {"\xAC", "k\xAC", std::string("v\xAC\0w\xAC", 5)}};
  EXPECT_EQ(records, expected);
  EXPECT_EQ(store.Count(), 2u);
}

}  // namespace
