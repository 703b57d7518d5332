#include "registry/catalogue/scheme_catalogue.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "registry/registry_paths.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/scheme_file_bytes.h"

namespace {

class SchemeCatalogueTest : public RegistryTest {
 protected:
  void Load(const std::string& schemes) {
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, schemes);
    catalogue_.LoadCatalogue(false);
  }
  // The schemes with their descriptions, which the config hive has too.
  std::string Listed() const {
    std::string text, hive;
    for (const SchemeProperties& scheme : catalogue_.Schemes)
      text += scheme.Name + ":" + scheme.Description + " ";
    for (const ConfigHiveEntry& entry : catalogue_.Config.Entries)
      hive += entry.SchemeName + ":" + entry.ConfigText + " ";
    EXPECT_EQ(text, hive);
    return text;
  }

  SchemeCatalogue catalogue_;
};

TEST_F(SchemeCatalogueTest, ListsTheValuesThatHaveAKeyUpToAnOverLongOne) {
  EXPECT_FALSE(catalogue_.SaveCatalogue());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
  const std::string fits(259, 'x');
  catalogue_.Schemes.resize(3);
  Load("\"Juniors\"=\"" + fits + R"(" @="unnamed" "Gone"="1" "Infants"=hex(1):41 "Inf\\Below"="no key's name"
    [infants\Defaults] "DefaultView"="icons" [Juniors] [Unlisted] [Inf\Below])");
  EXPECT_EQ(":unnamed Infants:A Juniors:" + fits + " ", Listed());
  ConfigHive hive;
  hive.LoadFromRegistry();
  EXPECT_EQ(catalogue_.Config.Entries, hive.Entries);
  EXPECT_EQ("icons", catalogue_.Schemes[1].Defaults.DefaultView);
  Load("\"J\"=\"" + fits + "x\" [J]");
  EXPECT_EQ(":unnamed Infants:A ", Listed());
}

TEST_F(SchemeCatalogueTest, MissingSchemesKeyEndsTheProgram) {
  const auto load = [this] {
    DialogScript script;
    script.Expect("Serious Problem", [](HWND box) {
      std::fputs(MessageText(box).c_str(), stderr);
      Click(box, IDOK);
    });
    catalogue_.LoadCatalogue(false);
  };
  EXPECT_EXIT(load(), testing::ExitedWithCode(0),
              "There has been a problem reading Kelvanstead Settings.\n"
              "This is due to Kelvanstead not being installed or the settings have become damaged.\n"
              "It is recommended that Kelvanstead is reinstalled.\n\n"
              "Kelvanstead Scheme Manager can not run so will now exit");
}

TEST_F(SchemeCatalogueTest, DeletesASchemeWithAllThatHangsOffIt) {
  // Neighbours in the order of the registry are allocated, in the first, the middle and the last place.
  const std::string kept = R"("0"="" "3"="Staff 2" "6"=")" + std::string(300, 'x') + '"';
  const std::string all =
      kept + R"("1"="Staff" "2"="STAFF" "4"=hex(1):73 74 61 66 66 "5"="staff" "7"="Staff")";
  for (const char* kind : {kClassSchemes, kUserSchemes, kUserGroupSchemes})
    WriteTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), all);
  Load(R"(@="unnamed" "Staff"="1" "Staff 2"="2" [Staff 2\Deep] [Staff\Deep 2]
          [Staff\Deep\Deeper\Deepest 1] [Staff\Deep\Deeper\Deepest 2] "x"="y")");
  catalogue_.Schemes.push_back({"staff", {}, {}, {}, {}, {}, {}});
  catalogue_.Config.Entries.push_back({"staff", ""});
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  for (const char* noKey : {"", "Staff\\Deep"}) {
    catalogue_.DeleteScheme(noKey);
    SchemeCatalogue::DeleteSchemeKeyTree(noKey);
  }
  EXPECT_EQ(before, DumpTree(HKEY_LOCAL_MACHINE, ""));
  EXPECT_EQ(":unnamed Staff:1 Staff 2:2 staff: ", Listed());

  catalogue_.DeleteScheme("Staff");
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(@="unnamed" "Staff 2"="2" [Staff 2\Deep])");
  for (const char* kind : {kClassSchemes, kUserSchemes, kUserGroupSchemes})
    ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), kind == kUserGroupSchemes ? all : kept);
  EXPECT_EQ(":unnamed Staff 2:2 staff: ", Listed());
}

// A first subkey with a long name ends the walk; behind a shorter one it is deleted like any other.
TEST_F(SchemeCatalogueTest, TreeDeletionKeepsItsLimitOnTheFirstName) {
  const std::string fits(127, 'a'), tooLong(128, 'a');
  const std::string longFirst = "[B\\" + tooLong + "] [B\\b]", longBelow = "[D\\b\\" + tooLong + "] [D\\c]";
  Load("[A\\" + fits + "] [A\\b] [C\\a] [C\\" + tooLong + "] [C\\c] [D\\a]" + longFirst + longBelow);
  for (const char* name : {"A", "B", "C", "D"})
    SchemeCatalogue::DeleteSchemeKeyTree(name);
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, "[A] [C]" + longFirst + longBelow);
}

TEST_F(SchemeCatalogueTest, ConfigHiveSavesTheTextsBesideTheSchemesKeys) {
  ConfigHive hive{{{"Infants", "For \"us\""}, {"", "blank"}, {"a\\b", "no name"}, {"Juniors", ""}}};
  DialogScript script;
  script.ExpectMessage("Settings Problem",
                       "Caution: There has been a problem setting Software\\Tessaly\\Kelvanstead\\Schemes");
  EXPECT_FALSE(hive.SaveToRegistry());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Gone"="stays" "Juniors"=dword:1)");
  EXPECT_TRUE(hive.SaveToRegistry());
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Infants"="For \"us\"" "Juniors"="" "Gone"="stays")");
}

TEST(ConfigHiveTest, ReadsAsManyEntriesAsStatedAndThereCanBe) {
  // The walk over the values would end at a longer text and hide the schemes behind it.
  const std::string fits(259, 'f');
  const std::string file =
      "Config Hive: Config1=Infants; Infants=one; Config2=; =blank; Config3=Juniors; Juniors=" + fits +
      "x\nScheme Count: The number of schemes=";
  const std::pair<const char*, std::size_t> counts[] = {{"3", 3}, {"", 0}, {"-1", 0}, {"2000000000", 7}};
  for (const auto& [stated, read] : counts) {
    TheRecordStore().Fill(SplitRecords(FileBytes(file + stated)));
    ConfigHive hive{{{"left", "over"}}};
    hive.ReadFromFile();
    std::vector<ConfigHiveEntry> expected{{"Infants", "one"}, {"", "blank"}, {"Juniors", fits}};
    expected.resize(read, {"", "blank"});
    EXPECT_EQ(expected, hive.Entries) << stated;
  }
}

}  // namespace
