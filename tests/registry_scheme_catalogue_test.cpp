#include "registry/scheme_catalogue.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "support/child_process.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

class SchemeCatalogueTest : public RegistryTest {
 protected:
  void Load(const std::string& schemes) {
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, schemes);
    catalogue_.LoadCatalogue(false);
  }
  std::string Listed() const {
    std::string text;
    for (const SchemeProperties& scheme : catalogue_.Schemes) {
      text += scheme.Name + ":" + scheme.Description + ",";
    }
    return text;
  }
  std::string InConfig() const {
    std::string text;
    for (const ConfigHiveEntry& entry : catalogue_.Config.Entries) {
      text += entry.SchemeName + ":" + entry.ConfigText + ",";
    }
    return text;
  }

  SchemeCatalogue catalogue_;
};

TEST_F(SchemeCatalogueTest, ListsTheValuesThatHaveAKey) {
  catalogue_.Schemes.resize(3);
  Load(R"(
    @="unnamed" "Gone"="1" "Infants"="For the small ones" "Inf\\Below"="names no key" "Juniors"=hex(1):41
    [infants\Defaults] "DefaultView"="icons" [Juniors] [Unlisted] [Inf\Below]
  )");
  EXPECT_EQ(":unnamed,Infants:For the small ones,Juniors:A,", Listed());
  EXPECT_EQ(Listed(), InConfig());
  EXPECT_EQ(SchemeDefaults(), catalogue_.Schemes[0].Defaults);
  EXPECT_EQ("icons", catalogue_.Schemes[1].Defaults.DefaultView);
}

// Runs in a process of its own, as the call does not return.
TEST_F(SchemeCatalogueTest, DISABLED_EndsTheProcess) {
  DialogScript script;
  script.Expect("Serious Problem", [](HWND box) {
    EXPECT_EQ(MessageText(box),
              "There has been a problem reading Kelvanstead Settings.\n"
              "This is due to Kelvanstead not being installed or the settings have become damaged.\n"
              "It is recommended that Kelvanstead is reinstalled.\n\n"
              "Kelvanstead Scheme Manager can not run so will now exit");
    std::puts("The message was shown.");
    std::fflush(stdout);
    Click(box, IDOK);
  });
  catalogue_.LoadCatalogue(false);
  ExitProcess(1);
}

TEST_F(SchemeCatalogueTest, MissingSchemesKeyEndsTheProgram) {
  const ChildResult child = RunTestInChildProcess("SchemeCatalogueTest.DISABLED_EndsTheProcess");
  EXPECT_EQ(0u, child.ExitCode);
  EXPECT_NE(std::string::npos, child.Output.find("The message was shown."));
  EXPECT_EQ(std::string::npos, child.Output.find("Failure")) << child.Output;
}

TEST_F(SchemeCatalogueTest, SavesEverySchemeBack) {
  Load("\"A\"=\"about A\"\n\"B\"=\"\"\n[A]\n[B]");
  catalogue_.Schemes[0].Defaults.DefaultIconSize = 7;
  EXPECT_TRUE(catalogue_.SaveCatalogue());
  SchemeCatalogue again;
  again.LoadCatalogue(false);
  EXPECT_EQ(catalogue_.Schemes, again.Schemes);
  EXPECT_EQ("about A", again.Schemes[0].Description);

  ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey));
  EXPECT_FALSE(catalogue_.SaveCatalogue());
  EXPECT_FALSE(RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, kSchemesKey));
}

TEST_F(SchemeCatalogueTest, ProtectedNamesAreComparedWithCase) {
  WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, "\"Default User\"=dword:1\n\"Staff\"=\"\"");
  catalogue_.LoadProtectedSchemes();
  EXPECT_TRUE(catalogue_.IsProtected("Default User"));
  EXPECT_TRUE(catalogue_.IsProtected("Staff"));
  EXPECT_FALSE(catalogue_.IsProtected("staff"));
  ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProtectedSchemesKey));
  catalogue_.LoadProtectedSchemes();  // the old list must not stay
  EXPECT_FALSE(catalogue_.IsProtected("Staff"));
}

TEST_F(SchemeCatalogueTest, DeletesASchemeWithAllThatHangsOffIt) {
  // Neighbours in the order of the registry are allocated, in the first, the middle and the last place.
  const std::string tooLong = "\"6\"=\"" + std::string(300, 'x') + "\"";
  const std::string kept = R"("3"="Staff 2")" + tooLong;
  const std::string allocations =
      R"("1"="Staff" "2"="STAFF" "4"=hex(1):73 74 61 66 66 "5"="staff" "7"="Staff")" + kept;
  for (const char* kind : {kClassSchemes, kUserSchemes, kUserGroupSchemes}) {
    WriteTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), allocations);
  }
  Load(R"("Staff"="1" "Staff 2"="2" [Staff 2\Deep] [Staff\Deep 2]
          [Staff\Deep\Deeper\Deepest 1] [Staff\Deep\Deeper\Deepest 2] "x"="y")");
  catalogue_.Schemes.push_back({"staff", {}, {}, {}, {}, {}, {}});
  catalogue_.DeleteScheme("Staff");
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"Staff 2\"=\"2\"\n[Staff 2\\Deep]");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), kept);
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), kept);
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserGroupSchemes), allocations);
  EXPECT_EQ("Staff 2:2,staff:,", Listed());
  EXPECT_EQ("Staff 2:2,", InConfig());
}

TEST_F(SchemeCatalogueTest, NamesThatNameNoKeyDeleteNothing) {
  Load("@=\"blank\"\n\"Staff\"=\"\"\n[Staff\\Deep]");
  WriteTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), "\"Sam\"=\"\"");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  for (const char* name : {"", "Staff\\Deep"}) {
    catalogue_.DeleteScheme(name);
    SchemeCatalogue::DeleteSchemeKeyTree(name);
  }
  EXPECT_EQ(before, DumpTree(HKEY_LOCAL_MACHINE, ""));
  EXPECT_EQ(2u, catalogue_.Schemes.size());
}

// A first subkey with a long name ends the walk; behind a shorter one it is deleted like any other.
TEST_F(SchemeCatalogueTest, TreeDeletionKeepsItsLimitOnTheFirstName) {
  const std::string fits(127, 'a');
  const std::string tooLong(128, 'a');
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("A"), "[" + fits + "]\n[b]");
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("B"), "[" + tooLong + "]\n[b]");
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("C"), "[a]\n[" + tooLong + "]\n[c]");
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("D"), "[a]\n[b\\" + tooLong + "]\n[c]");
  for (const char* name : {"A", "B", "C", "D"})
    SchemeCatalogue::DeleteSchemeKeyTree(name);
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey,
             "[A]\n[B\\" + tooLong + "]\n[B\\b]\n[C]\n[D\\b\\" + tooLong + "]\n[D\\c]");
}

}  // namespace
