#include "model/scheme_storage.h"

#include <gtest/gtest.h>

#include <sstream>

#include "registry/registry_paths.h"
#include "support/registry_test.h"

namespace {

class SchemeStorageTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "");
  }
  static void Store(const std::string& text) { WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"), text); }
};

// A scheme in which every value is another, and what it is in the registry.
SchemeProperties DistinctScheme() {
  SchemeProperties scheme;
  scheme.FolderDisplay.Assign(
      {{"root1", "C:\\1", 11, "closed1", "open1", "long1", "short1", "1.wav", 21, 0, 0},
       {"root2", "C:\\2", 12, "closed2", "open2", "long2", "short2", "2.wav", 22, 0, 0}});
  scheme.WebLinks.Assign({{"link1", "http://1", "icon1", "longlink1", "shortlink1", "link1.wav"}});
  scheme.Tabs = {31, 32, 0xFFFFFFFF};
  for (std::uint32_t n = 0x100; ToolBarPage & page : scheme.ToolBars) {
    page = {n,     n + 1, n + 2,  n + 3,  n + 4,  n + 5,  n + 6,  n + 7,
            n + 8, n + 9, n + 10, n + 11, n + 12, n + 13, n + 14, n + 15};
    n += 0x100;
  }
  scheme.Defaults = {"tree2", 41, 42, 43, 44, 45, 46};
  return scheme;
}

std::string DistinctTree(const std::string& schemeName) {
  std::ostringstream text;
  text << std::hex << "\"Scheme Name\"=\"" << schemeName << R"("
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
    "Silent"=dword:2c "Context Menu"=dword:2d "Options Menu"=dword:2e)";
  for (int page = 1; page <= 3; ++page) {
    text << "[ToolBars\\Page " << page << "]";
    // In the order of the members of ToolBarPage.
    for (int value = page * 0x100;
         const char* name : {"Back", "Forward", "New", "Rename", "Cut", "Copy", "Paste", "Delete", "Undo",
                             "Print", "Refresh", "Icon", "View", "Help", "Up", "Side"})
      text << '"' << name << "\"=dword:" << value++;
  }
  return text.str();
}

TEST_F(SchemeStorageTest, EveryValueHasItsPlace) {
  Store(DistinctTree("Staff"));
  SchemeProperties scheme, expected = DistinctScheme();
  scheme.Name = expected.Name = "untouched";
  scheme.Description = expected.Description = "untouched";
  EXPECT_TRUE(LoadSchemeProperties("Staff", scheme));
  EXPECT_EQ(expected, scheme);

  scheme.Name = "New";
  EXPECT_TRUE(SaveSchemeProperties("Old", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Old"), R"("Scheme Name"="New")");
  EXPECT_TRUE(SaveSchemeProperties("New", scheme));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("New"), DistinctTree("New"));
}

// What is missing fails the load, unless it is a record's or a count, and leaves its field empty; everything
// else loads.
TEST_F(SchemeStorageTest, MissingValuesCostThemselvesOnly) {
  const struct {
    const char* Key;
    const char* Value;  // null: the whole key
    bool Loads;
    void (*Forget)(SchemeProperties& scheme);
  } cases[] = {
      {"FolderDisplay", nullptr, false, [](auto& s) { s.FolderDisplay = {}; }},
      {"FolderDisplay", "RootFolderCount", true, [](auto& s) { s.FolderDisplay = {}; }},
      {"FolderDisplay\\Root 2", "RootPath", true, [](auto& s) { s.FolderDisplay.Records[1].RootPath = ""; }},
      {"TabSelection", "Page1", false, [](auto& s) { s.Tabs = {}; }},
      {"TabSelection", "Page2", false, [](auto& s) { s.Tabs.Page2 = s.Tabs.Page3 = 0; }},
      {"ToolBars", nullptr, false, [](auto& s) { s.ToolBars = {}; }},
      {"ToolBars\\Page 2", nullptr, false, [](auto& s) { s.ToolBars[1] = {}; }},
      {"Defaults", "DefaultView", false, [](auto& s) { s.Defaults.DefaultView = ""; }},
  };
  for (const auto& item : cases) {
    SCOPED_TRACE(testing::Message() << item.Key << " " << item.Value);
    Store(DistinctTree("Staff"));
    const std::string path = SchemeKeyPath("Staff") + "\\" + item.Key;
    ASSERT_EQ(0, item.Value ? RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, path.c_str(), item.Value)
                            : RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str()));
    SchemeProperties scheme = DistinctScheme();  // loading must not keep what was there before
    SchemeProperties expected = scheme;
    item.Forget(expected);
    EXPECT_EQ(item.Loads, LoadSchemeProperties("Staff", scheme));
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
    Store(R"([FolderDisplay\Root 1] "RootPath"="1" [FolderDisplay] "RootFolderCount"=)" +
          std::string(item.Stored));
    SchemeProperties scheme;
    EXPECT_EQ(item.Loads, LoadFolderDisplay("Staff", scheme));
    EXPECT_EQ(item.Count, scheme.FolderDisplay.Count);
    ASSERT_EQ(item.Records, scheme.FolderDisplay.Records.size());
    EXPECT_EQ("1", item.Records > 0 ? scheme.FolderDisplay.Records[0].RootPath : "1");
  }
}

// What was stored beyond the count stays, unread.
TEST_F(SchemeStorageTest, SavingFollowsTheCountButNeverLeavesTheList) {
  const std::string link =
      R"( "DisplayName"="" "URL"="" "IconFile"="" "LongToolTip"="" "ShortToolTip"="" "Wav File"="")";
  const std::string one = "[WebLink 1]" + link, two = one + "[WebLink 2]" + link;
  const struct {
    std::int32_t Count;
    const char* Stored;
    bool Saves;
    std::string Written;
  } cases[] = {{1, "1", true, one}, {2, "2", true, two}, {3, "3", false, two}, {-1, "ffffffff", true, ""}};
  for (const auto& item : cases) {
    SCOPED_TRACE(item.Count);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    const std::string old = R"([WebLink 3] "URL"="old")";
    WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff") + "\\WebLinks", old);
    SchemeProperties scheme;
    scheme.WebLinks = {item.Count, {WebLink(), WebLink()}};
    EXPECT_EQ(item.Saves, SaveWebLinks("Staff", scheme));
    ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff") + "\\WebLinks",
               "\"WebLinksCount\"=dword:" + (item.Stored + old) + item.Written);
  }
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

TEST_F(SchemeStorageTest, NothingIsWrittenWithoutTheShell) {
  ASSERT_EQ(0, RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software"));
  SchemeProperties s = DistinctScheme();
  s.Name = "S";
  EXPECT_FALSE(SaveSchemeProperties("S", s) || SaveFolderDisplay("S", s) || SaveWebLinks("S", s) ||
               SaveTabSelection("S", s) || SaveToolBars("S", s) || SaveDefaults("S", s) ||
               SaveFolderRoot("S", 1, {}) || SaveWebLink("S", 1, {}) || SaveToolBarPage("S", 1, {}));
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
}

}  // namespace
