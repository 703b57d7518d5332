#include "model/scheme_storage.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "support/imported_calls.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

using SchemeStorageTest = RegistryTest;

void Store(const std::string& text) { WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"), text); }

// Removes a value, or the whole key.
void Forget(const std::string& key, const char* value = nullptr) {
  const std::string path = SchemeKeyPath("Staff") + "\\" + key;
  EXPECT_EQ(0, value ? RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, path.c_str(), value)
                     : RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str()));
}

TEST_F(SchemeStorageTest, EveryValueHasItsPlace) {
  constexpr char kTabs[] = R"([TabSelection] "Page1"=dword:5 "Page2"=dword:6 "Page3"=dword:7)";
  Store(SchemeTree("Staff") + kTabs);
  SchemeProperties expected = Scheme("untouched"), scheme;
  expected.Tabs = {5, 6, 7};
  scheme.Name = scheme.Description = expected.Description = "untouched";
  EXPECT_EQ(Outcome::kComplete, LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);

  scheme.Name = "New";
  EXPECT_TRUE(SaveSchemeProperties("Old", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Old"), R"("Scheme Name"="New")");
  EXPECT_TRUE(SaveSchemeProperties("New", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("New"), SchemeTree("New") + kTabs);
}

// The order of the values in each key, which is neither that of the members nor that of a file.
TEST_F(SchemeStorageTest, SavesTheSectionsAndTheirValuesInOrder) {
  SchemeProperties scheme = Scheme("S");
  scheme.WebLinks.resize(1);
  const std::string page =
      "Back,Forward,Up,Rename,New,Cut,Copy,Paste,Delete,Undo,Print,Refresh,Icon,View,Help,Side,";
  WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "");
  const ImportedCalls calls({IMPORTED(RegSetValueExA)});
  EXPECT_TRUE(SaveSchemeProperties("S", scheme));
  std::string written;
  for (const std::string& line : calls.Lines())
    written += line.substr(line.find(' ') + 1) + ",";
  EXPECT_EQ(written,
            "Scheme Name,"
            "RootFolderCount,RootDisplayName,RootPath,FolderLevels,CollapsedIconFile,ExpandedIconFile,"
            "LongToolTip,ShortToolTip,Wav File,DenyModify,"
            "WebLinksCount,DisplayName,URL,IconFile,LongToolTip,ShortToolTip,Wav File,"
            "Page1,Page2,Page3," +
                page + page + page +
                "DefaultView,DefaultIconSize,DefaultFirstTab,ShortToolTips,Context Menu,Silent,"
                "Options Menu,");
}

// Loading must not keep what the scheme held before, so what is missing leaves its field empty.
TEST_F(SchemeStorageTest, MissingValuesCostThemselvesOnly) {
  Store(SchemeTree("Staff"));
  SchemeProperties scheme = Scheme("Staff"), expected = scheme;
  Forget("FolderDisplay\\Root 1", "RootPath");
  expected.FolderRoots[0].RootPath = "";
  Forget("WebLinks", "WebLinksCount");
  expected.WebLinks = {};
  EXPECT_EQ(Outcome::kComplete, LoadSchemeProperties("Staff", scheme))
      << "items and counts do not matter to the result";
  EXPECT_EQ(expected, scheme);

  scheme = Scheme("Staff");
  Forget("FolderDisplay");
  expected.FolderRoots = {};
  Forget("TabSelection", "Page2");
  expected.Tabs.Page3 = 0;  // the only section that stops at the first gap
  Forget("ToolBars\\Page 2");
  expected.ToolBars[1] = {};
  Forget("Defaults", "DefaultView");
  expected.Defaults.DefaultView = "";
  EXPECT_EQ(Outcome::kIncomplete, LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);
  for (const auto load : {&LoadFolderDisplay, &LoadTabSelection, &LoadToolBars, &LoadDefaults})
    EXPECT_EQ(Outcome::kIncomplete, load("Staff", scheme));
}

// What is damaged is known to be lost; what the registry refuses may be there, and must not be written over.
TEST_F(SchemeStorageTest, RefusedReadsAreToldApartFromDamage) {
  Store(SchemeTree("Staff") + R"([Defaults] "Silent"=hex(b):01 00 00 00 00 00 00 00 "DefaultView"=dword:1)");
  SchemeProperties scheme;
  EXPECT_EQ(Outcome::kIncomplete, LoadSchemeProperties("Staff", scheme));
  ImportedCalls calls({IMPORTED(RegOpenKeyExA), IMPORTED(RegQueryValueExA)});
  for (const char* refused : {"Staff\\WebLinks\\WebLink 2", "Staff\\TabSelection", "RootFolderCount",
                              "RegQueryValueExA Forward", "DefaultIconSize"}) {
    calls.FailEach(refused, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Outcome::kFailed, LoadSchemeProperties("Staff", scheme)) << refused;
  }
}

TEST_F(SchemeStorageTest, StatedCountsAreBounded) {
  const struct {
    std::int32_t Stated;
    std::size_t Items;
    Outcome Loaded;
  } cases[] = {{0, 0, Outcome::kComplete},
               {3, 3, Outcome::kComplete},
               {-1, 0, Outcome::kIncomplete},
               {1000, 1000, Outcome::kComplete},
               {1001, 3, Outcome::kIncomplete}};
  const std::string path = SchemeKeyPath("Staff") + "\\FolderDisplay";
  RegistryKey key(RegistryKey::kCreate, path);
  Store(R"([FolderDisplay\Root 3] "RootPath"="3")");
  SchemeProperties scheme;
  for (const auto& [stated, items, loaded] : cases) {
    EXPECT_TRUE(key.SetDword("RootFolderCount", static_cast<DWORD>(stated)));
    EXPECT_EQ(loaded, LoadFolderDisplay("Staff", scheme)) << stated;
    EXPECT_EQ(items, scheme.FolderRoots.size()) << stated;
  }
  scheme.FolderRoots.resize(2);
  EXPECT_TRUE(SaveFolderDisplay("Staff", scheme));
  EXPECT_EQ(Outcome::kComplete, LoadFolderDisplay("Staff", scheme));
  EXPECT_EQ(2u, scheme.FolderRoots.size()) << "the list's own count";
  EXPECT_TRUE(RegistryKey::KeyExists(path + "\\Root 3")) << "what is beyond the count stays";
}

// What is there may be damaged, of another type, or hold characters that this program cannot write.
TEST_F(SchemeStorageTest, AddsWhatIsMissingAndLeavesTheRestAlone) {
  const std::string tree = SchemeTree("Staff") + R"([] "Scheme Name"=hex(1):a9 03 00 00
      [FolderDisplay] "RootFolderCount"=dword:3e8 [TabSelection] "Page1"="one"
      [Defaults] "DefaultView"=dword:1 "Silent"=hex(b):01 00 00 00 00 00 00 00)";
  Store(tree);
  Forget("FolderDisplay\\Root 1", "RootPath");
  Forget("WebLinks", "WebLinksCount");
  Forget("TabSelection", "Page2");
  Forget("ToolBars\\Page 2", "Side");
  Forget("Defaults", "Options Menu");
  EXPECT_TRUE(AddMissingProperties("Staff"));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"),
             tree + R"([FolderDisplay\Root 1] "RootPath"="" [WebLinks] "WebLinksCount"=dword:0
                       [ToolBars\Page 2] "Side"=dword:0 [Defaults] "Options Menu"=dword:0)");

  ImportedCalls calls({IMPORTED(RegQueryValueExA), IMPORTED(RegSetValueExA)});
  EXPECT_TRUE(AddMissingProperties("Staff"));
  calls.FailEach("RegQueryValueExA Page1", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(AddMissingProperties("Staff"));
  for (const std::string& line : calls.Lines())
    EXPECT_FALSE(line.starts_with("RegSetValueExA")) << "twice, or over what could not be read: " << line;
}

TEST_F(SchemeStorageTest, NothingIsTouchedWithoutAKeysNameOrTheShell) {
  for (const char* name : {"", "Staff\\x", "S"}) {
    SchemeProperties scheme;
    EXPECT_EQ(Outcome::kIncomplete, LoadSchemeProperties(name, scheme));
    EXPECT_FALSE(SaveSchemeProperties(name, Scheme(name)));
    EXPECT_FALSE(SaveFolderDisplay(name, Scheme(name)));
  }
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
}

}  // namespace
