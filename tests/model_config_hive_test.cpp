#include "model/config_hive.h"

#include <gtest/gtest.h>

#include "registry/registry_paths.h"
#include "schemefile/record_splitter.h"
#include "schemefile/record_store.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/scheme_file_bytes.h"

namespace {

using Entries = std::vector<ConfigHiveEntry>;

TEST_F(RegistryTest, ConfigHiveKeepsTheTextsOfSchemesThatHaveAKey) {
  ConfigHive hive{{{"Infants", "For \"us\""}, {"", "blank"}, {"a\\b", "no name"}, {"Juniors", ""}}};
  DialogScript script;
  script.ExpectMessage("Settings Problem",
                       "Caution: There has been a problem setting Software\\Tessaly\\Kelvanstead\\Schemes");
  EXPECT_FALSE(hive.SaveToRegistry());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Gone"="stays" "Juniors"=dword:1)");
  EXPECT_TRUE(hive.SaveToRegistry());
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Infants"="For \"us\"" "Juniors"="" "Gone"="stays")");

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey,
            R"(@="blank" "Not text"=hex(3):43 00 44 [Infants] [Juniors] [Not text] [No value])");
  hive.LoadFromRegistry();
  EXPECT_EQ((Entries{{"", "blank"}, {"Infants", "For \"us\""}, {"Juniors", ""}, {"Not text", "C"}}),
            hive.Entries);
}

TEST(ConfigHive, WritesAndReadsTwoRecordsAnEntry) {
  TheRecordStore().ClearRecordStore();
  ConfigHive hive{{{"Infants", "one"}, {"", "blank"}, {"Juniors", ""}}};
  hive.WriteToFile();
  const std::string file =
      "Config Hive: Config1=Infants; Infants=one; Config2=; =blank; Config3=Juniors; Juniors=";
  EXPECT_EQ(FileBytes(file), FileBytes(TheRecordStore()));

  const std::pair<const char*, std::size_t> counts[] = {{"3", 3}, {"", 0}, {"-1", 0}, {"2000000000", 7}};
  for (const auto& [stated, read] : counts) {
    const std::string count = "\nScheme Count: The number of schemes=";
    TheRecordStore().Fill(SplitRecords(FileBytes(file + count + stated)));
    ConfigHive again;
    again.ReadFromFile();
    Entries expected = hive.Entries;
    expected.resize(read, {"", "blank"});
    EXPECT_EQ(expected, again.Entries) << stated;
  }

  // The walk over the values would end at a longer text and hide the schemes behind it.
  const std::string fits(259, 'f');
  TheRecordStore().Fill({{"Scheme Count", "The number of schemes", "1"},
                         {"Config Hive", "Config1", "Infants"},
                         {"Config Hive", "Infants", fits + "x"}});
  hive.ReadFromFile();
  EXPECT_EQ((Entries{{"Infants", fits}}), hive.Entries);
}

}  // namespace
