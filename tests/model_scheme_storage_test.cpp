#include "model/scheme_storage.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "support/registry_test.h"

namespace {

class SchemeStorageTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "");
  }
  void Store(const std::string& text) { WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"), text); }
  void ExpectStored(const std::string& name, const std::string& text) {
    ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath(name), text);
  }
};

// A scheme in which every value is another, and what it is in the registry. The buttons stand in the order of
// ToolBarPage.
SchemeProperties DistinctScheme() {
  SchemeProperties scheme;
  scheme.FolderDisplay.Assign(
      {{"root1", "C:\\1", 11, "closed1", "open1", "long1", "short1", "1.wav", 21, 0, 0},
       {"root2", "C:\\2", 12, "closed2", "open2", "long2", "short2", "2.wav", 22, 0, 0}});
  scheme.WebLinks.Assign({{"link1", "http://1", "icon1", "longlink1", "shortlink1", "link1.wav"}});
  scheme.Tabs = {31, 32, 0xFFFFFFFF};
  for (std::uint32_t i = 0; i < 3; ++i) {
    const std::uint32_t n = 0x100 * (i + 1);
    scheme.ToolBars[i] = {n,     n + 1, n + 2,  n + 3,  n + 4,  n + 5,  n + 6,  n + 7,
                          n + 8, n + 9, n + 10, n + 11, n + 12, n + 13, n + 14, n + 15};
  }
  scheme.Defaults = {"tree2", 41, 42, 43, 44, 45, 46};
  return scheme;
}

std::string DistinctTree(const std::string& schemeName) {
  std::string text = "\"Scheme Name\"=\"" + schemeName + "\"" + R"(
    [FolderDisplay] "RootFolderCount"=dword:2
    [FolderDisplay\Root 1]
    "RootDisplayName"="root1" "RootPath"="C:\\1" "FolderLevels"=dword:b "CollapsedIconFile"="closed1"
    "ExpandedIconFile"="open1" "LongToolTip"="long1" "ShortToolTip"="short1" "Wav File"="1.wav"
    "DenyModify"=dword:15
    [FolderDisplay\Root 2]
    "RootDisplayName"="root2" "RootPath"="C:\\2" "FolderLevels"=dword:c "CollapsedIconFile"="closed2"
    "ExpandedIconFile"="open2" "LongToolTip"="long2" "ShortToolTip"="short2" "Wav File"="2.wav"
    "DenyModify"=dword:16
    [WebLinks] "WebLinksCount"=dword:1
    [WebLinks\WebLink 1]
    "DisplayName"="link1" "URL"="http://1" "IconFile"="icon1" "LongToolTip"="longlink1"
    "ShortToolTip"="shortlink1" "Wav File"="link1.wav"
    [TabSelection] "Page1"=dword:1f "Page2"=dword:20 "Page3"=dword:ffffffff
    [Defaults]
    "DefaultView"="tree2" "DefaultIconSize"=dword:29 "DefaultFirstTab"=dword:2a "ShortToolTips"=dword:2b
    "Silent"=dword:2c "Context Menu"=dword:2d "Options Menu"=dword:2e
  )";
  for (const char page : {'1', '2', '3'}) {
    text += std::string("\n[ToolBars\\Page ") + page + "]\n";
    int button = 0;
    for (const char* name : {"Back", "Forward", "New", "Rename", "Cut", "Copy", "Paste", "Delete", "Undo",
                             "Print", "Refresh", "Icon", "View", "Help", "Up", "Side"}) {
      char line[64];
      std::snprintf(line, sizeof(line), "\"%s\"=dword:%c%02x\n", name, page, button++);
      text += line;
    }
  }
  return text;
}

TEST_F(SchemeStorageTest, EveryValueHasItsPlace) {
  Store(DistinctTree("Staff"));
  SchemeProperties scheme;
  scheme.Name = "untouched";
  scheme.Description = "untouched";
  EXPECT_TRUE(LoadSchemeProperties("Staff", scheme));
  SchemeProperties expected = DistinctScheme();
  expected.Name = expected.Description = "untouched";
  EXPECT_EQ(expected, scheme);

  scheme.Name = "Copy";
  EXPECT_TRUE(SaveSchemeProperties("Copy", scheme));
  ExpectStored("Copy", DistinctTree("Copy"));
}

TEST_F(SchemeStorageTest, TheNameGoesToTheOneKeyAndTheSectionsToTheOther) {
  SchemeProperties scheme;
  scheme.Name = "New";
  EXPECT_TRUE(SaveSchemeProperties("Old", scheme));
  ExpectStored("Old", "\"Scheme Name\"=\"New\"");
  EXPECT_TRUE(LoadSchemeProperties("New", scheme));
}

// What is missing fails the load and leaves its field empty; everything else loads.
TEST_F(SchemeStorageTest, MissingValuesCostThemselvesOnly) {
  const struct {
    const char* Key;
    const char* Value;  // null: the whole key
    void (*Forget)(SchemeProperties& scheme);
    bool Loads;
  } cases[] = {
      {"FolderDisplay", nullptr, [](SchemeProperties& s) { s.FolderDisplay = {}; }, false},
      {"FolderDisplay", "RootFolderCount", [](SchemeProperties& s) { s.FolderDisplay = {}; }, true},
      {"FolderDisplay\\Root 2", "RootPath",
       [](SchemeProperties& s) { s.FolderDisplay.Records[1].RootPath.clear(); }, true},
      {"TabSelection", "Page1", [](SchemeProperties& s) { s.Tabs = {}; }, false},
      {"TabSelection", "Page2", [](SchemeProperties& s) { s.Tabs.Page2 = s.Tabs.Page3 = 0; }, false},
      {"ToolBars", nullptr, [](SchemeProperties& s) { s.ToolBars = {}; }, false},
      {"ToolBars\\Page 2", nullptr, [](SchemeProperties& s) { s.ToolBars[1] = {}; }, false},
      {"Defaults", "DefaultView", [](SchemeProperties& s) { s.Defaults.DefaultView.clear(); }, false},
  };
  for (const auto& item : cases) {
    SCOPED_TRACE(std::string(item.Key) + " " + (item.Value ? item.Value : ""));
    Store(DistinctTree("Staff"));
    const std::string path = SchemeKeyPath("Staff") + "\\" + item.Key;
    if (item.Value) {
      ASSERT_EQ(0, RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, path.c_str(), item.Value));
    } else {
      ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str()));
    }
    SchemeProperties scheme = DistinctScheme();  // loading must not keep what was there before
    EXPECT_EQ(item.Loads, LoadSchemeProperties("Staff", scheme));
    SchemeProperties expected = DistinctScheme();
    item.Forget(expected);
    EXPECT_EQ(expected, scheme);
  }
}

TEST_F(SchemeStorageTest, StatedCountsAreBounded) {
  const struct {
    const char* Stored;
    std::int32_t Count;
    std::size_t Records;
    bool Loads;
  } cases[] = {
      {"dword:0", 0, 0, true},
      {"dword:3", 3, 3, true},  // more than there are keys
      {"dword:ffffffff", -1, 0, false},
      {"dword:3e8", 1000, 1000, true},
      {"dword:3e9", 1001, 1, false},
      {"dword:7fffffff", 0x7FFFFFFF, 1, false},
      {"\"2\"", 0, 0, true},         // not a number
      {"hex(4):02 00", 2, 2, true},  // bytes that are missing are 0
  };
  for (const auto& item : cases) {
    SCOPED_TRACE(item.Stored);
    Store(std::string("[FolderDisplay]\n\"RootFolderCount\"=") + item.Stored +
          "\n[FolderDisplay\\Root 1]\n\"RootPath\"=\"C:\\\\1\"");
    SchemeProperties scheme;
    EXPECT_EQ(item.Loads, LoadFolderDisplay("Staff", scheme));
    EXPECT_EQ(item.Count, scheme.FolderDisplay.Count);
    ASSERT_EQ(item.Records, scheme.FolderDisplay.Records.size());
    if (item.Records > 0) {
      EXPECT_EQ("C:\\1", scheme.FolderDisplay.Records[0].RootPath);
    }
  }
}

// What was stored beyond the count stays, unread.
TEST_F(SchemeStorageTest, SavingFollowsTheCountButNeverLeavesTheList) {
  const struct {
    std::int32_t Count;
    bool Saves;
    int Written;
  } cases[] = {{1, true, 1}, {2, true, 2}, {3, false, 2}, {-1, true, 0}};
  for (const auto& item : cases) {
    SCOPED_TRACE(item.Count);
    const std::string name = "Scheme " + std::to_string(item.Count);
    WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath(name), R"([WebLinks\WebLink 3] "URL"="old")");
    SchemeProperties scheme;
    scheme.WebLinks = {item.Count, {WebLink(), WebLink()}};
    EXPECT_EQ(item.Saves, SaveWebLinks(name, scheme));
    const std::string stored = DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath(name));
    for (const int n : {1, 2, 3}) {
      const bool written = stored.find("WebLink " + std::to_string(n)) != std::string::npos;
      EXPECT_EQ(n <= item.Written || n == 3, written) << n;
    }
    EXPECT_NE(std::string::npos, stored.find("\"URL\"=\"old\""));
    LoadWebLinks(name, scheme);
    EXPECT_EQ(item.Count, scheme.WebLinks.Count);
  }
}

TEST_F(SchemeStorageTest, NothingIsWrittenWithoutTheShell) {
  ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software"));
  SchemeProperties scheme = DistinctScheme();
  scheme.Name = "Staff";
  EXPECT_FALSE(SaveSchemeProperties("Staff", scheme));
  EXPECT_FALSE(SaveFolderDisplay("Staff", scheme) || SaveWebLinks("Staff", scheme) ||
               SaveTabSelection("Staff", scheme) || SaveToolBars("Staff", scheme) ||
               SaveDefaults("Staff", scheme));
  EXPECT_FALSE(SaveFolderRoot("Staff", 1, {}) || SaveWebLink("Staff", 1, {}) ||
               SaveToolBarPage("Staff", 1, {}));
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
}

TEST_F(SchemeStorageTest, NamesThatNameNoKeyTouchNothing) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, DistinctTree(""));
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, "");
  for (const std::string& name :
       {std::string(), std::string("Staff\\x"), std::string("a\0b", 3), std::string(256, 'x')}) {
    SCOPED_TRACE(name);
    SchemeProperties scheme;
    EXPECT_FALSE(LoadSchemeProperties(name, scheme));
    EXPECT_EQ(SchemeProperties(), scheme);
    EXPECT_FALSE(SaveSchemeProperties(name, DistinctScheme()));
    scheme.Name = name;
    EXPECT_FALSE(SaveSchemeProperties("Staff", scheme));
  }
  EXPECT_EQ(before, DumpTree(HKEY_LOCAL_MACHINE, ""));
}

}  // namespace
