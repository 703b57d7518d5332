#include "registry/scheme_catalogue.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

class SchemeCatalogueTest : public RegistryTest {
 protected:
  void Load(const std::string& schemes) {
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, schemes);
    catalogue_.LoadCatalogue(false);
  }
  // The schemes with their descriptions; behind the bar, what the config hive has.
  std::string Listed() const {
    std::string text;
    for (const SchemeProperties& scheme : catalogue_.Schemes)
      text += scheme.Name + ":" + scheme.Description + " ";
    text += "|";
    for (const ConfigHiveEntry& entry : catalogue_.Config.Entries)
      text += " " + entry.SchemeName + ":" + entry.ConfigText;
    return text;
  }

  SchemeCatalogue catalogue_;
};

TEST_F(SchemeCatalogueTest, ListsTheValuesThatHaveAKeyUpToAnOverLongOne) {
  catalogue_.Schemes.resize(3);
  Load(R"(
    @="unnamed" "Gone"="1" "Infants"="For us" "Inf\\Below"="names no key" "Juniors"=hex(1):41
    [infants\Defaults] "DefaultView"="icons" [Juniors] [Unlisted] [Inf\Below])");
  EXPECT_EQ(":unnamed Infants:For us Juniors:A | :unnamed Infants:For us Juniors:A", Listed());
  EXPECT_EQ(SchemeDefaults(), catalogue_.Schemes[0].Defaults);
  EXPECT_EQ("icons", catalogue_.Schemes[1].Defaults.DefaultView);
  Load("\"J\"=\"" + std::string(260, 'x') + "\" [J]");
  EXPECT_EQ(":unnamed Infants:For us | :unnamed Infants:For us", Listed());
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

TEST_F(SchemeCatalogueTest, SavesEverySchemeBack) {
  EXPECT_FALSE(catalogue_.SaveCatalogue());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
  Load(R"("A"="about A" "B"="" [A] [B])");
  catalogue_.Schemes[0].Defaults.DefaultIconSize = 7;
  EXPECT_TRUE(catalogue_.SaveCatalogue());
  SchemeCatalogue again;
  again.LoadCatalogue(false);
  EXPECT_EQ(catalogue_.Schemes, again.Schemes);
}

TEST_F(SchemeCatalogueTest, ProtectedNamesAreComparedWithCase) {
  WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Default User"=dword:1 "Staff"="")");
  catalogue_.LoadProtectedSchemes();
  EXPECT_TRUE(catalogue_.IsProtected("Default User") && catalogue_.IsProtected("Staff"));
  EXPECT_FALSE(catalogue_.IsProtected("staff"));
  ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProtectedSchemesKey));
  catalogue_.LoadProtectedSchemes();  // the old list must not stay
  EXPECT_FALSE(catalogue_.IsProtected("Staff"));
}

TEST_F(SchemeCatalogueTest, DeletesASchemeWithAllThatHangsOffIt) {
  // Neighbours in the order of the registry are allocated, in the first, the middle and the last place.
  const std::string kept = R"("0"="" "3"="Staff 2" "6"=")" + std::string(300, 'x') + '"';
  const std::string allocations =
      kept + R"("1"="Staff" "2"="STAFF" "4"=hex(1):73 74 61 66 66 "5"="staff" "7"="Staff")";
  for (const char* kind : {kClassSchemes, kUserSchemes, kUserGroupSchemes})
    WriteTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), allocations);
  Load(R"(@="unnamed" "Staff"="1" "Staff 2"="2" [Staff 2\Deep] [Staff\Deep 2]
          [Staff\Deep\Deeper\Deepest 1] [Staff\Deep\Deeper\Deepest 2] "x"="y")");
  catalogue_.Schemes.push_back({"staff", {}, {}, {}, {}, {}, {}});
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  for (const char* noKey : {"", "Staff\\Deep"}) {
    catalogue_.DeleteScheme(noKey);
    SchemeCatalogue::DeleteSchemeKeyTree(noKey);
  }
  EXPECT_EQ(before, DumpTree(HKEY_LOCAL_MACHINE, ""));
  EXPECT_EQ(":unnamed Staff:1 Staff 2:2 staff: | :unnamed Staff:1 Staff 2:2", Listed());

  catalogue_.DeleteScheme("Staff");
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(@="unnamed" "Staff 2"="2" [Staff 2\Deep])");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), kept);
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), kept);
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserGroupSchemes), allocations);
  EXPECT_EQ(":unnamed Staff 2:2 staff: | :unnamed Staff 2:2", Listed());
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

}  // namespace
