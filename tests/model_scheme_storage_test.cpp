#include "model/scheme_storage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "support/imported_calls.h"
#include "support/numbered_values.h"
#include "support/registry_test.h"

namespace {

using SchemeStorageTest = RegistryTest;

void Store(const std::string& text) { WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"), text); }

// A scheme in which every value is another, and what it is in the registry.
SchemeProperties DistinctScheme() {
  std::uint32_t last = 0;
  const auto n = [&last] { return ++last; };
  const auto t = [&n] { return "text " + std::to_string(n()); };
  SchemeProperties scheme;
  scheme.FolderRoots = {{t(), t(), n(), t(), t(), t(), t(), t(), n(), 0, 0},
                        {t(), t(), n(), t(), t(), t(), t(), t(), n(), 0, 0}};
  scheme.WebLinks = {{t(), t(), t(), t(), t(), t()}, {t(), t(), t(), t(), t(), t()}};
  scheme.Tabs = {n(), n(), n()};
  for (ToolBarPage& page : scheme.ToolBars)
    page = {n(), n(), n(), n(), n(), n(), n(), n(), n(), n(), n(), n(), n(), n(), n(), n()};
  scheme.Defaults = {t(), n(), n(), n(), n(), n(), n()};
  return scheme;
}

// The names of a key's values stand in the order of the members.
std::string DistinctTree(const std::string& schemeName) {
  NumberedValues values;
  values.Add("FolderDisplay", "*RootFolderCount");
  for (const char* root : {"FolderDisplay\\Root 1", "FolderDisplay\\Root 2"})
    values.Add(root,
               "RootDisplayName,RootPath,#FolderLevels,CollapsedIconFile,ExpandedIconFile,"
               "LongToolTip,ShortToolTip,Wav File,#DenyModify");
  values.Add("WebLinks", "*WebLinksCount");
  for (const char* link : {"WebLinks\\WebLink 1", "WebLinks\\WebLink 2"})
    values.Add(link, "DisplayName,URL,IconFile,LongToolTip,ShortToolTip,Wav File");
  values.Add("TabSelection", "#Page1,#Page2,#Page3");
  for (const char* page : {"ToolBars\\Page 1", "ToolBars\\Page 2", "ToolBars\\Page 3"})
    values.Add(page,
               "#Back,#Forward,#New,#Rename,#Cut,#Copy,#Paste,#Delete,#Undo,#Print,#Refresh,#Icon,#View,"
               "#Help,#Up,#Side");
  values.Add("Defaults",
             "DefaultView,#DefaultIconSize,#DefaultFirstTab,#ShortToolTips,#Silent,#Context Menu,"
             "#Options Menu");
  return values.Tree + "[] \"Scheme Name\"=\"" + schemeName + '"';
}

TEST_F(SchemeStorageTest, EveryValueHasItsPlace) {
  Store(DistinctTree("Staff"));
  SchemeProperties scheme, expected = DistinctScheme();
  scheme.Name = expected.Name = scheme.Description = expected.Description = "untouched";
  EXPECT_EQ(Outcome::kComplete, LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);

  scheme.Name = "New";
  EXPECT_TRUE(SaveSchemeProperties("Old", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Old"), R"("Scheme Name"="New")");
  EXPECT_TRUE(SaveSchemeProperties("New", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("New"), DistinctTree("New"));
}

// The order of the values in each key, which is neither that of the members nor that of a file.
TEST_F(SchemeStorageTest, SavesTheSectionsAndTheirValuesInOrder) {
  WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "");
  SchemeProperties scheme;
  scheme.Name = "S";
  scheme.FolderRoots.resize(1);
  scheme.WebLinks.resize(1);
  const std::string page =
      "Back,Forward,Up,Rename,New,Cut,Copy,Paste,Delete,Undo,Print,Refresh,Icon,View,Help,Side,";
  const std::string expected =
      "Scheme Name,"
      "RootFolderCount,RootDisplayName,RootPath,FolderLevels,CollapsedIconFile,ExpandedIconFile,LongToolTip,"
      "ShortToolTip,Wav File,DenyModify,"
      "WebLinksCount,DisplayName,URL,IconFile,LongToolTip,ShortToolTip,Wav File,"
      "Page1,Page2,Page3," +
      page + page + page +
      "DefaultView,DefaultIconSize,DefaultFirstTab,ShortToolTips,Context Menu,Silent,Options Menu,";
  const ImportedCalls calls({IMPORTED(RegSetValueExA)});
  EXPECT_TRUE(SaveSchemeProperties("S", scheme));
  std::string written;
  for (const std::string& line : calls.Lines())
    written += line.substr(std::strlen("RegSetValueExA ")) + ",";
  EXPECT_EQ(expected, written);
}

// Loading must not keep what the scheme held before, so what is missing leaves its field empty.
TEST_F(SchemeStorageTest, MissingValuesCostThemselvesOnly) {
  const auto forget = [](const std::string& key, const char* value) {
    const std::string path = SchemeKeyPath("Staff") + "\\" + key;
    EXPECT_EQ(0, value ? RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, path.c_str(), value)
                       : RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str()));
  };
  Store(DistinctTree("Staff"));
  SchemeProperties scheme = DistinctScheme(), expected = scheme;
  forget("FolderDisplay\\Root 2", "RootPath");
  expected.FolderRoots[1].RootPath = "";
  forget("WebLinks", "WebLinksCount");
  expected.WebLinks = {};
  EXPECT_EQ(Outcome::kComplete, LoadSchemeProperties("Staff", scheme))
      << "items and counts do not matter to the result";
  EXPECT_EQ(expected, scheme);

  scheme = DistinctScheme();
  forget("FolderDisplay", nullptr);
  expected.FolderRoots = {};
  forget("TabSelection", "Page2");
  expected.Tabs.Page2 = expected.Tabs.Page3 = 0;  // the only section that stops at the first gap
  forget("ToolBars\\Page 2", nullptr);
  expected.ToolBars[1] = {};
  forget("Defaults", "DefaultView");
  expected.Defaults.DefaultView = "";
  EXPECT_EQ(Outcome::kIncomplete, LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);
  EXPECT_EQ(Outcome::kIncomplete, LoadFolderDisplay("Staff", scheme));
  EXPECT_EQ(Outcome::kIncomplete, LoadTabSelection("Staff", scheme));
  EXPECT_EQ(Outcome::kIncomplete, LoadToolBars("Staff", scheme));
  EXPECT_EQ(Outcome::kIncomplete, LoadDefaults("Staff", scheme));
}

// What is damaged is known to be lost; what the registry refuses may be there, and must not be written over.
TEST_F(SchemeStorageTest, RefusedReadsAreToldApartFromDamage) {
  Store(DistinctTree("Staff") +
        R"([Defaults] "Silent"=hex(b):01 00 00 00 00 00 00 00 "DefaultView"=dword:1)");
  SchemeProperties scheme;
  EXPECT_EQ(Outcome::kIncomplete, LoadSchemeProperties("Staff", scheme));
  ImportedCalls calls({IMPORTED(RegOpenKeyExA), IMPORTED(RegQueryValueExA)});
  for (const char* refused : {"RegOpenKeyExA "
                              "Software\\Tessaly\\Kelvanstead\\Schemes\\Staff\\WebLinks\\WebLink 2",
                              "Schemes\\Staff\\TabSelection", "RegQueryValueExA RootFolderCount",
                              "RegQueryValueExA Forward", "RegQueryValueExA DefaultIconSize"}) {
    SCOPED_TRACE(refused);
    calls.FailEach(refused, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Outcome::kFailed, LoadSchemeProperties("Staff", scheme));
  }
}

TEST_F(SchemeStorageTest, StatedCountsAreBounded) {
  const struct {
    std::int32_t Stated;
    std::size_t Items;
    Outcome Loaded;
  } cases[] = {{0, 0, Outcome::kComplete},           {1, 1, Outcome::kComplete},
               {3, 3, Outcome::kComplete},           {-1, 0, Outcome::kIncomplete},
               {1000, 1000, Outcome::kComplete},     {1001, 3, Outcome::kIncomplete},
               {0x7FFFFFFF, 3, Outcome::kIncomplete}};
  const std::string path = SchemeKeyPath("Staff") + "\\FolderDisplay";
  RegistryKey key(RegistryKey::kCreate, path);
  Store(R"([FolderDisplay\Root 3] "RootPath"="3")");
  for (const auto& [stated, items, loaded] : cases) {
    SCOPED_TRACE(stated);
    EXPECT_TRUE(key.SetDword("RootFolderCount", static_cast<DWORD>(stated)));
    SchemeProperties scheme;
    EXPECT_EQ(loaded, LoadFolderDisplay("Staff", scheme));
    EXPECT_EQ(items, scheme.FolderRoots.size());
  }
  SchemeProperties scheme;
  scheme.FolderRoots.resize(2);
  EXPECT_TRUE(SaveFolderDisplay("Staff", scheme));
  DWORD stored = 99;
  EXPECT_TRUE(key.GetDword("RootFolderCount", &stored));
  EXPECT_EQ(2u, stored) << "the list's own count";
  EXPECT_TRUE(RegistryKey::KeyExists(path + "\\Root 2"));
  EXPECT_TRUE(RegistryKey::KeyExists(path + "\\Root 3")) << "what is beyond the count stays";
}

// What is there may be damaged, of another type, or hold characters that this program cannot write.
TEST_F(SchemeStorageTest, AddsWhatIsMissingAndLeavesTheRestAlone) {
  const std::string there = R"("Scheme Name"=hex(1):a9 03 00 00
    [FolderDisplay] "RootFolderCount"=dword:3e8 [FolderDisplay\Root 2] "RootPath"=hex(1):a9 03 00 00
    [TabSelection] "Page1"="one" "Page3"=dword:7
    [ToolBars\Page 2] "Back"=dword:5
    [Defaults] "DefaultView"=dword:1 "Silent"=hex(b):01 00 00 00 00 00 00 00)";
  Store(there);
  EXPECT_TRUE(AddMissingProperties("Staff"));
  const std::string buttons = R"("Forward"=dword:0 "Up"=dword:0 "Rename"=dword:0 "New"=dword:0 "Cut"=dword:0
    "Copy"=dword:0 "Paste"=dword:0 "Delete"=dword:0 "Undo"=dword:0 "Print"=dword:0 "Refresh"=dword:0
    "Icon"=dword:0 "View"=dword:0 "Help"=dword:0 "Side"=dword:0 )";
  const std::string added = R"([FolderDisplay\Root 2] "RootDisplayName"="" "FolderLevels"=dword:0
    "CollapsedIconFile"="" "ExpandedIconFile"="" "LongToolTip"="" "ShortToolTip"="" "Wav File"=""
    "DenyModify"=dword:0
    [WebLinks] "WebLinksCount"=dword:0
    [TabSelection] "Page2"=dword:0
    [ToolBars\Page 1] "Back"=dword:0 )" +
                            buttons + "[ToolBars\\Page 2] " + buttons +
                            R"([ToolBars\Page 3] "Back"=dword:0 )" + buttons +
                            R"([Defaults] "DefaultIconSize"=dword:0 "DefaultFirstTab"=dword:0
    "ShortToolTips"=dword:0 "Context Menu"=dword:0 "Options Menu"=dword:0)";
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"), there + added);

  ImportedCalls calls({IMPORTED(RegQueryValueExA), IMPORTED(RegSetValueExA)});
  EXPECT_TRUE(AddMissingProperties("Staff"));
  calls.FailEach("RegQueryValueExA Page1", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(AddMissingProperties("Staff"));
  EXPECT_EQ(0, std::ranges::count_if(
                   calls.Lines(), [](const std::string& line) { return line.starts_with("RegSetValueExA"); }))
      << "nothing is written twice, nor over what could not be read";
}

TEST_F(SchemeStorageTest, NothingIsTouchedWithoutAKeysNameOrTheShell) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, DistinctTree(""));
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  const auto named = [](const std::string& name) { return SchemeProperties{name, {}, {}, {}, {}, {}, {}}; };
  for (const std::string& name :
       {std::string(), std::string("Staff\\x"), std::string("a\0b", 3), std::string(256, 'x')}) {
    SchemeProperties scheme;
    EXPECT_EQ(Outcome::kIncomplete, LoadSchemeProperties(name, scheme));
    EXPECT_FALSE(SaveSchemeProperties(name, named("Staff")) || SaveSchemeProperties("Staff", named(name)));
    EXPECT_EQ(SchemeProperties(), scheme);
  }
  EXPECT_EQ(before, DumpTree(HKEY_LOCAL_MACHINE, ""));

  ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software"));
  const SchemeProperties s = named("S");
  EXPECT_FALSE(SaveSchemeProperties("S", s) || SaveFolderDisplay("S", s) || SaveWebLinks("S", s) ||
               SaveTabSelection("S", s) || SaveToolBars("S", s) || SaveDefaults("S", s) ||
               SaveFolderRoot("S", 1, {}) || SaveWebLink("S", 1, {}) || SaveToolBarPage("S", 1, {}));
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
}

}  // namespace
