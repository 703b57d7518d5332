#include "model/property_records.h"

#include <gtest/gtest.h>

#include "support/scheme_file_bytes.h"

namespace {

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
