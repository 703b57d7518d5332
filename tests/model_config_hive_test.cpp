#include "model/config_hive.h"

#include <gtest/gtest.h>

#include "registry/registry_paths.h"
#include "schemefile/record_splitter.h"
#include "schemefile/record_store.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/scheme_file_bytes.h"

namespace {

class ConfigHiveTest : public RegistryTest {
 protected:
  ConfigHiveTest() { TheRecordStore().ClearRecordStore(); }

  ConfigHive hive_;
};

using Entries = std::vector<ConfigHiveEntry>;

TEST_F(ConfigHiveTest, LoadsTheTextsOfSchemesThatHaveAKey) {
  hive_.Entries = {{"old", "old"}};
  hive_.LoadFromRegistry();
  EXPECT_EQ(Entries(), hive_.Entries);

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(
    @="blank" "Gone"="its key was deleted" "Infants"=hex(1):41 42 "Not text"=hex(3):43 00 44
    [Infants] [Not text] [No value])");
  hive_.LoadFromRegistry();
  EXPECT_EQ((Entries{{"", "blank"}, {"Infants", "AB"}, {"Not text", "C"}}), hive_.Entries);
}

TEST_F(ConfigHiveTest, SavesIntoAnExistingKeyOnly) {
  hive_.Entries = {{"Infants", "For \"us\""}, {"", "blank"}, {"a\\b", "no name"}, {"Juniors", ""}};
  {
    DialogScript script;
    script.ExpectMessage("Settings Problem",
                         "Caution: There has been a problem setting Software\\Tessaly\\Kelvanstead\\Schemes");
    EXPECT_FALSE(hive_.SaveToRegistry());
  }
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"Stale\"=\"stays\"\n\"Juniors\"=dword:1");
  EXPECT_TRUE(hive_.SaveToRegistry());
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Infants"="For \"us\"" "Juniors"="" "Stale"="stays")");
}

TEST_F(ConfigHiveTest, WritesAndReadsTwoRecordsAnEntry) {
  hive_.Entries = {{"Infants", "one"}, {"", "blank"}, {"Juniors", ""}};
  hive_.WriteToFile();
  const std::string file =
      "Config Hive: Config1=Infants; Infants=one; Config2=; =blank; Config3=Juniors; Juniors=";
  EXPECT_EQ(FileBytes(file), FileBytes(TheRecordStore()));

  const struct {
    const char* Stated;
    std::size_t Read;
  } counts[] = {{"3", 3}, {"1", 1}, {"", 0}, {"-1", 0}, {"2000000000", 7}};
  for (const auto& count : counts) {
    SCOPED_TRACE(count.Stated);
    TheRecordStore().Fill(
        SplitRecords(FileBytes(file + "\nScheme Count: The number of schemes=" + count.Stated)));
    ConfigHive read;
    read.ReadFromFile();
    Entries expected = hive_.Entries;
    expected.resize(count.Read, {"", "blank"});
    EXPECT_EQ(expected, read.Entries);
  }

  // The walk over the values would end at a longer text and hide the schemes behind it.
  const std::string fits(259, 'f');
  TheRecordStore().Fill({{"Scheme Count", "The number of schemes", "1"},
                         {"Config Hive", "Config1", "Infants"},
                         {"Config Hive", "Infants", fits + "x"}});
  hive_.ReadFromFile();
  EXPECT_EQ((Entries{{"Infants", fits}}), hive_.Entries);
}

}  // namespace
