#include "registry/catalogue/scheme_catalogue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "support/imported_calls.h"
#include "support/registry_test.h"

namespace {

class SchemeCatalogueTest : public RegistryTest {
 protected:
  CatalogueResult Load(const std::string& schemes) {
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, schemes);
    return catalogue_.LoadCatalogue();
  }
  // The schemes with their descriptions.
  std::string Listed() const {
    std::string text;
    for (const SchemeEntry& scheme : catalogue_.Schemes())
      text += scheme.Name + ":" + scheme.Description + " ";
    return text;
  }
  std::string Stored() const { return DumpTree(HKEY_LOCAL_MACHINE, kProductKey); }

  SchemeCatalogue catalogue_;
};

SchemeProperties Named(const std::string& name, const std::string& description) {
  SchemeProperties scheme;
  scheme.Name = name;
  scheme.Description = description;
  return scheme;
}

TEST_F(SchemeCatalogueTest, ListsTheValuesThatHaveAKeyUpToAnOverLongOne) {
  EXPECT_EQ(catalogue_.LoadCatalogue(), CatalogueResult::kNoSchemesKey);
  const std::string fits(259, 'x');
  EXPECT_EQ(Load("\"Juniors\"=\"" + fits + R"(" @="unnamed" "Gone"="1" "Infants"=hex(1):41
    "Inf\\Below"="no key's name" [infants] [Juniors] [Unlisted] [Inf\Below])"),
            CatalogueResult::kLoaded);
  EXPECT_EQ(":unnamed Infants:A Juniors:" + fits + " ", Listed());
  EXPECT_EQ(catalogue_.Unreadable(), (std::vector<std::string>{"Gone", "Inf\\Below"}));
  EXPECT_EQ(catalogue_.LoadCatalogue(2), CatalogueResult::kLoaded);
  EXPECT_EQ(":unnamed Infants:A ", Listed());

  std::string tooLong;  // and without a NUL
  for (int i = 0; i < 260; ++i)
    tooLong += "78 ";
  EXPECT_EQ(Load("\"J\"=hex(1):" + tooLong + " [J]"), CatalogueResult::kCutShort);
  EXPECT_EQ(":unnamed Infants:A ", Listed());
  EXPECT_TRUE(catalogue_.IsTaken("juniors")) << "not on the list, but in the registry with value and key";
  EXPECT_TRUE(catalogue_.IsTaken("INFANTS"));
  EXPECT_FALSE(catalogue_.IsTaken("Gone") || catalogue_.IsTaken("Unlisted"));
}

TEST_F(SchemeCatalogueTest, TellsWhatTheRegistryRefusesFromWhatIsMissing) {
  Load(R"("A"="1" "B"="2" [A] [B])");
  ImportedCalls calls({IMPORTED(RegOpenKeyExA), IMPORTED(RegEnumValueA), IMPORTED(RegQueryValueExA)});
  calls.FailEach("Schemes\\A", ERROR_ACCESS_DENIED);
  EXPECT_EQ(catalogue_.LoadCatalogue(), CatalogueResult::kReadError);
  EXPECT_EQ(Listed(), "B:2 ");
  for (const char* refused : {"Schemes\\A", "RegQueryValueExA A", "RegOpenKeyExA"}) {
    calls.FailEach(refused, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(catalogue_.IsTaken("A")) << "it may be there: " << refused;
  }
  calls.FailEach("RegEnumValueA", ERROR_READ_FAULT);
  EXPECT_EQ(catalogue_.LoadCatalogue(), CatalogueResult::kReadError);
  calls.FailEach("RegOpenKeyExA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(catalogue_.LoadCatalogue(), CatalogueResult::kNoAccess);
  EXPECT_EQ(Listed(), "");
}

// A character outside the code page reads as another one.
TEST_F(SchemeCatalogueTest, LeavesAloneWhatCannotBeToldApart) {
  Load(R"("Z"="z" [Z])");
  const UniqueKey schemes = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS);
  UniqueKey classes;
  ASSERT_EQ(0, CreateKey(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), KEY_ALL_ACCESS, classes));
  const wchar_t kOutside[] = L"a\u4e00";
  const std::string name = "a?";  // as both values are read
  for (const HKEY key : {schemes.Get(), classes.Get()}) {
    ASSERT_EQ(0, RegSetValueExW(key, kOutside, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"Z"), 4));
    ASSERT_EQ(0, WriteText(key, name, "Another"));
  }
  (void)catalogue_.LoadCatalogue();
  EXPECT_TRUE(catalogue_.IsAmbiguous(name));
  EXPECT_FALSE(catalogue_.IsAmbiguous("Z"));
  EXPECT_EQ(catalogue_.Unreadable(), std::vector<std::string>(2, name))
      << "both, so that the user learns of them";
  const std::string before = Stored();
  EXPECT_EQ(catalogue_.Remove(name), ChangeResult::kRefused);
  EXPECT_EQ(catalogue_.Append(Named(name, "new")), ChangeResult::kRefused);
  EXPECT_EQ(catalogue_.Replace(*catalogue_.Find("Z"), Named(name, "new")), ChangeResult::kRefused);
  EXPECT_EQ(before, Stored());
  EXPECT_EQ(catalogue_.Remove("Z"), ChangeResult::kIncomplete);
  EXPECT_EQ(ReadText(classes.Get(), name), "Another") << "the allocation of another class";
}

TEST_F(SchemeCatalogueTest, AppendsASchemeAndAddsToTheOthersWhatTheyLack) {
  Load(R"("A"=hex(2):61 00 "Cut"=dword:31 "Other"="o" "Past"="p" [A\TabSelection] "Page1"=dword:9
          [Cut] [Other] [Past])");
  // Another program works on the same machine.
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Other"="changed")");
  SchemeProperties other;
  (void)catalogue_.ReadScheme(catalogue_.Schemes()[2], other);
  EXPECT_EQ(other.Description, "changed");
  EXPECT_EQ(SchemeCatalogue(catalogue_).Remove("Past"), ChangeResult::kDone);

  SchemeProperties added = Named("New", "fresh");
  added.Tabs = {1, 2, 3};
  EXPECT_EQ(catalogue_.Append(added), ChangeResult::kDone);
  EXPECT_EQ(Listed(), "A:a Cut:1 Other:changed New:fresh ");
  (void)catalogue_.LoadCatalogue();
  EXPECT_EQ(Listed(), "A:a Cut:1 New:fresh Other:changed ") << "what is gone does not come back";
  const auto tabs = [this](const std::string& name) {
    SchemeProperties scheme;
    EXPECT_EQ(Outcome::kComplete, catalogue_.ReadScheme({name, ""}, scheme)) << name << " is whole now";
    return scheme.Tabs;
  };
  EXPECT_EQ(tabs("New"), (TabSelection{1, 2, 3}));
  EXPECT_EQ(tabs("A"), (TabSelection{9, 0, 0})) << "what was there stays";
  EXPECT_EQ(tabs("Cut"), TabSelection());
}

TEST_F(SchemeCatalogueTest, ReplacesTheValueOfTheOldNameOrPutsItBack) {
  Load(R"("Old"=hex(2):25 61 25 00 "Other"="o" [Old] [Other])");
  const std::string before = Stored();
  const auto replace = [this](const char* refused) {
    ImportedCalls calls({IMPORTED(RegOpenKeyExA), IMPORTED(RegDeleteValueA), IMPORTED(RegSetValueExA)});
    (void)catalogue_.LoadCatalogue();
    calls.FailEach(refused, ERROR_ACCESS_DENIED);
    return catalogue_.Replace(*catalogue_.Find("Old"), Named("New", "n"));
  };
  EXPECT_EQ(replace("RegSetValueExA New"), ChangeResult::kRefused);
  EXPECT_EQ(before, Stored()) << "type and bytes of the old value included";
  for (const char* refused : {"RegOpenKeyExA", "RegDeleteValueA Old"}) {
    EXPECT_EQ(replace(refused), ChangeResult::kIncomplete);
    EXPECT_EQ(Listed(), "Old:%a% Other:o ") << "a value that cannot be deleted stays";
  }
  EXPECT_EQ(replace("RegSetValueExA DefaultView"), ChangeResult::kIncomplete);
  EXPECT_TRUE(RegistryKey(RegistryKey::kOpen, SchemeKeyPath("New") + "\\Defaults").HasValue("Options Menu"))
      << "the values behind it are written";
  EXPECT_EQ(Listed(), "New:n Other:o ");
  EXPECT_TRUE(RegistryKey::KeyExists(SchemeKeyPath("Old"))) << "it stays behind";
  EXPECT_FALSE(ReadText(OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ).Get(), "Old"));
  EXPECT_TRUE(catalogue_.IsTaken("New"));
}

TEST_F(SchemeCatalogueTest, RemovesASchemeWithAllThatHangsOffIt) {
  // Neighbours in the order of the registry are allocated, in the first, the middle and the last place.
  const std::string kept = R"("0"="" "3"="Staff 2" "6"=")" + std::string(300, 'x') + '"';
  const std::string all =
      kept + R"("1"="Staff" "2"="STAFF" "4"=hex(1):73 74 61 66 66 "5"="staff" "7"="Staff")";
  for (const char* kind : {kClassSchemes, kUserSchemes, kUserGroupSchemes})
    WriteTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), all);
  Load(R"(@="unnamed" "Staff"="1" "Staff 2"="2" [Staff 2\Deep] [Staff\Deep 2]
          [Staff\Deep\Deeper\Deepest 1] [Staff\Deep\Deeper\Deepest 2] "x"="y")");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  for (const char* noKey : {"", "Staff\\Deep"}) {
    EXPECT_EQ(catalogue_.Remove(noKey), ChangeResult::kRefused);
    SchemeCatalogue::DeleteSchemeKeyTree(noKey);
  }
  {
    ImportedCalls calls({IMPORTED(RegOpenKeyExA)});
    calls.FailEach(kSchemesKey, ERROR_ACCESS_DENIED);
    EXPECT_EQ(catalogue_.Remove("Staff"), ChangeResult::kRefused);
  }
  EXPECT_EQ(before, DumpTree(HKEY_LOCAL_MACHINE, "")) << "its allocations included";
  EXPECT_EQ(":unnamed Staff:1 Staff 2:2 ", Listed());

  EXPECT_EQ(catalogue_.Remove("Staff"), ChangeResult::kDone);
  ExpectTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(@="unnamed" "Staff 2"="2" [Staff 2\Deep])");
  for (const char* kind : {kClassSchemes, kUserSchemes, kUserGroupSchemes})
    ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), kind == kUserGroupSchemes ? all : kept);
  EXPECT_EQ(":unnamed Staff 2:2 ", Listed());
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
  ConfigHive hive{{{"Infants", "For \"us\""},
                   {"", "blank"},
                   {"a\\b", "no name"},
                   {"Juniors", ""},
                   {"Omega", "?"},
                   {"Twice", "first"},
                   {"twice", "last"}}};
  std::string caution;
  const auto tell = [&caution](const std::string& keyPath) { caution += keyPath; };
  EXPECT_FALSE(hive.SaveToRegistry(tell).Complete);
  EXPECT_EQ(caution, "Software\\Tessaly\\Kelvanstead\\Schemes");
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");

  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey,
            R"("Gone"="stays" "Infants"="FOR \"us\"" "Juniors"=dword:1 "Twice"="last")");
  const UniqueKey schemes = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS);
  const wchar_t outside[] = L"\u4e00";  // reads as a question mark, and stays what it is
  RegSetValueExW(schemes.Get(), L"Omega", 0, REG_SZ, reinterpret_cast<const BYTE*>(outside), sizeof(outside));
  EXPECT_FALSE(hive.SaveToRegistry(tell).Complete) << "two of the names cannot be those of schemes";
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey),
            "[]\n[] Gone=1 stays<0>\n[] Infants=1 For \"us\"<0>\n[] Juniors=1 <0>\n[] Omega=1 <19968><0>\n[] "
            "Twice=1 last<0>\n");
}

}  // namespace
