#include "model/scheme_storage.h"

#include <gtest/gtest.h>

#include <tuple>

#include "registry/registry_key.h"
#include "registry/registry_paths.h"
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
  scheme.FolderDisplay.Assign({{t(), t(), n(), t(), t(), t(), t(), t(), n(), 0, 0},
                               {t(), t(), n(), t(), t(), t(), t(), t(), n(), 0, 0}});
  scheme.WebLinks.Assign({{t(), t(), t(), t(), t(), t()}, {t(), t(), t(), t(), t(), t()}});
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
  EXPECT_TRUE(LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);

  scheme.Name = "New";
  EXPECT_TRUE(SaveSchemeProperties("Old", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Old"), R"("Scheme Name"="New")");
  EXPECT_TRUE(SaveSchemeProperties("New", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("New"), DistinctTree("New"));
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
  expected.FolderDisplay.Records[1].RootPath = "";
  forget("WebLinks", "WebLinksCount");
  expected.WebLinks = {};
  EXPECT_TRUE(LoadSchemeProperties("Staff", scheme)) << "records and counts do not matter to the result";
  EXPECT_EQ(expected, scheme);

  scheme = DistinctScheme();
  forget("FolderDisplay", nullptr);
  expected.FolderDisplay = {};
  forget("TabSelection", "Page2");
  expected.Tabs.Page2 = expected.Tabs.Page3 = 0;  // the only section that stops at the first gap
  forget("ToolBars\\Page 2", nullptr);
  expected.ToolBars[1] = {};
  forget("Defaults", "DefaultView");
  expected.Defaults.DefaultView = "";
  EXPECT_FALSE(LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);
  EXPECT_FALSE(LoadFolderDisplay("Staff", scheme) || LoadTabSelection("Staff", scheme) ||
               LoadToolBars("Staff", scheme) || LoadDefaults("Staff", scheme));
}

// A list of two is saved as far as the count states. What was stored beyond it stays.
TEST_F(SchemeStorageTest, StatedCountsAreBounded) {
  const std::tuple<std::int32_t, std::size_t, bool> cases[] = {
      {0, 0, true},       {1, 1, true},     {3, 3, true},          {-1, 0, false},
      {1000, 1000, true}, {1001, 3, false}, {0x7FFFFFFF, 3, false}};
  const std::string path = SchemeKeyPath("Staff") + "\\FolderDisplay";
  RegistryKey key(true, path.c_str(), HKEY_LOCAL_MACHINE);
  for (const auto& [count, records, loads] : cases) {
    SCOPED_TRACE(count);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    key.Close();
    EXPECT_TRUE(key.SetDword("RootFolderCount", static_cast<DWORD>(count)));
    Store(R"([FolderDisplay\Root 3] "RootPath"="3")");
    SchemeProperties scheme;
    EXPECT_EQ(loads, LoadFolderDisplay("Staff", scheme));
    EXPECT_EQ(count, scheme.FolderDisplay.Count);
    EXPECT_EQ(records, scheme.FolderDisplay.Records.size());

    scheme.FolderDisplay.Records.resize(2);
    DWORD stored = 99;
    EXPECT_TRUE(key.SetDword("RootFolderCount", stored));
    EXPECT_EQ(count <= 2, SaveFolderDisplay("Staff", scheme));
    EXPECT_TRUE(key.GetDword("RootFolderCount", &stored) && static_cast<std::int32_t>(stored) == count);
    for (int n = 1; n <= 3; ++n)
      EXPECT_EQ(n <= count || n == 3,
                RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, (path + "\\Root " + std::to_string(n)).c_str()));
  }
}

TEST_F(SchemeStorageTest, NothingIsTouchedWithoutAKeysNameOrTheShell) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, DistinctTree(""));
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  const auto named = [](const std::string& name) { return SchemeProperties{name, {}, {}, {}, {}, {}, {}}; };
  for (const std::string& name :
       {std::string(), std::string("Staff\\x"), std::string("a\0b", 3), std::string(256, 'x')}) {
    SchemeProperties scheme;
    EXPECT_FALSE(LoadSchemeProperties(name, scheme) || SaveSchemeProperties(name, named("Staff")) ||
                 SaveSchemeProperties("Staff", named(name)));
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
