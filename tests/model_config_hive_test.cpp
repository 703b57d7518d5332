#include "model/config_hive.h"

#include <gtest/gtest.h>

#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "schemefile/record_store.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

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

  const std::string fits(259, 'f');
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey,
            R"(
              @="blank"
              "Gone"="its key was deleted"
              "Inf\\Below"="names no key"
              "Infants"=hex(1):41 42
              "Juniors"=hex(1):
              "Long"=")" +
                fits + R"("
              "Not text"=hex(3):43 00 44
              [Infants\Below]
              [Inf\Below]
              [Juniors]
              [Long]
              [Not text]
              [No value])");
  hive_.LoadFromRegistry();
  EXPECT_EQ((Entries{{"", "blank"}, {"Infants", "AB"}, {"Juniors", ""}, {"Long", fits}, {"Not text", "C"}}),
            hive_.Entries);

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"Junior\"=\"" + fits + "x\"\n[Junior]");
  hive_.LoadFromRegistry();  // in the order of the registry, the new one comes before "Juniors"
  EXPECT_EQ((Entries{{"", "blank"}, {"Infants", "AB"}}), hive_.Entries);
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
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(
    "Infants"="For \"us\""
    "Juniors"=""
    "Stale"="stays"
  )");
}

TEST_F(ConfigHiveTest, WritesAndReadsTwoRecordsAnEntry) {
  hive_.Entries = {{"Infants", "one"}, {"", "blank"}, {"Juniors", ""}};
  hive_.WriteToFile();
  std::vector<SchemeRecord> records;
  TheRecordStore().FlushRecordStore(records);
  const std::vector<SchemeRecord> expected = {
      {"Config Hive", "Config1", "Infants"}, {"Config Hive", "Infants", "one"},
      {"Config Hive", "Config2", ""},        {"Config Hive", "", "blank"},
      {"Config Hive", "Config3", "Juniors"}, {"Config Hive", "Juniors", ""},
  };
  ASSERT_EQ(expected.size(), records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    EXPECT_EQ(expected[i].Key1 + '\xAC', records[i].Key1);
    EXPECT_EQ(expected[i].Key2 + '\xAC', records[i].Key2);
    EXPECT_EQ(expected[i].Value + '\xAC', records[i].Value);
  }

  ConfigHive read;
  const struct {
    const char* Stated;
    Entries Read;
  } counts[] = {
      {"3", hive_.Entries},
      {"1", {{"Infants", "one"}}},
      {"", {}},
      {"-1", {}},
      {"2000000000",
       {{"Infants", "one"},
        {"", "blank"},
        {"Juniors", ""},
        {"", "blank"},
        {"", "blank"},
        {"", "blank"},
        {"", "blank"}}},
  };
  for (const auto& count : counts) {
    SCOPED_TRACE(count.Stated);
    std::vector<SchemeRecord> file = expected;
    file.push_back({"Scheme Count", "The number of schemes", count.Stated});
    TheRecordStore().Fill(file);
    read.ReadFromFile();
    EXPECT_EQ(count.Read, read.Entries);
  }
}

}  // namespace
