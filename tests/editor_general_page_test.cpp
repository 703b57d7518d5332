#include "editor/general_page.h"

#include <gtest/gtest.h>
#include <windows.h>
// prsht.h needs windows.h
#include <prsht.h>

#include <functional>
#include <vector>

#include "controls/window_text.h"
#include "editor/general_page_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr char kTitle[] = "A scheme";

// Shows the page for a scheme, lets `act` work on it, confirms, and answers the scheme that comes out.
SchemeProperties Confirm(const SchemeProperties& scheme, const std::function<void(HWND page)>& act,
                         DialogScript& script) {
  CPage1 page(scheme);
  CPropertySheet sheet(kTitle);
  sheet.AddPage(page);
  script.Expect(kTitle, [&act](HWND window) {
    act(PropSheet_GetCurrentPageHwnd(window));
    Click(window, IDOK);
  });
  EXPECT_EQ(sheet.DoModal(nullptr), IDOK);
  SchemeProperties result = scheme;
  page.CopyTo(result);
  return result;
}

SchemeProperties Confirm(const SchemeProperties& scheme, const std::function<void(HWND page)>& act) {
  DialogScript script;
  return Confirm(scheme, act, script);
}

// The "Tab:" list from the top, with the selected item in brackets.
std::string TabList(HWND page) {
  const HWND list = GetDlgItem(page, IDC_GENERAL_TAB);
  const auto count = static_cast<int>(SendMessageA(list, CB_GETCOUNT, 0, 0));
  const auto selected = static_cast<int>(SendMessageA(list, CB_GETCURSEL, 0, 0));
  std::string text;
  for (int i = 0; i < count; ++i) {
    const std::string item = ComboItemText(list, i);
    text += (text.empty() ? "" : ", ") + (i == selected ? "[" + item + "]" : item);
  }
  return text;
}

SchemeProperties SchemeWithTabs(const TabSelection& tabs, std::uint32_t firstTab) {
  SchemeProperties scheme;
  scheme.Tabs = tabs;
  scheme.Defaults.DefaultFirstTab = firstTab;
  return scheme;
}

TEST(GeneralPage, OpensOnTheFirstTabByNumberAndKeepsIt) {
  struct {
    TabSelection tabs;
    std::uint32_t firstTab;
    const char* list;
    std::uint32_t confirmed;
  } const rows[] = {
      {{1, 1, 1}, 1, "[Programs], My Files, Links", 1},
      {{1, 7, 1}, 2, "Programs, [My Files], Links", 2},
      {{1, 1, 1}, 3, "Programs, My Files, [Links]", 3},
      {{1, 1, 1}, 0, "[Programs], My Files, Links", 1},
      {{1, 0, 1}, 2, "[Programs], Links", 1},
      {{1, 0, 1}, 4000000000, "[Programs], Links", 1},
      {{0, 1, 1}, 2, "My Files, [Links]", 2},
      {{0, 1, 1}, 3, "My Files, Links", 3},
      {{0, 0, 1}, 3, "Links", 3},
      {{0, 0, 0}, 1, "", 1},
  };
  for (const auto& row : rows) {
    const SchemeProperties scheme = SchemeWithTabs(row.tabs, row.firstTab);
    std::string list;
    const SchemeProperties confirmed = Confirm(scheme, [&](HWND page) { list = TabList(page); });
    EXPECT_EQ(list, row.list);
    EXPECT_EQ(confirmed.Defaults.DefaultFirstTab, row.confirmed) << row.list;
  }
}

TEST(GeneralPage, TickingTabsChangesTheListButNotTheFirstTab) {
  const auto viewEnabled = [](HWND page) { return IsWindowEnabled(GetDlgItem(page, IDC_GENERAL_VIEW)); };
  const SchemeProperties scheme = SchemeWithTabs({1, 1, 1}, 2);
  SchemeProperties confirmed = Confirm(scheme, [&](HWND page) {
    EXPECT_TRUE(viewEnabled(page));
    Click(page, IDC_GENERAL_FILES);
    EXPECT_EQ(TabList(page), "[Programs], Links");
    EXPECT_FALSE(viewEnabled(page));
    Click(page, IDC_GENERAL_PROGRAMS);
    EXPECT_EQ(TabList(page), "[Links]");
    Click(page, IDC_GENERAL_LINKS);
    EXPECT_EQ(TabList(page), "");
    Click(page, IDC_GENERAL_FILES);
    EXPECT_TRUE(viewEnabled(page));
    Click(page, IDC_GENERAL_PROGRAMS);
    EXPECT_EQ(TabList(page), "My Files, [Programs]");
  });
  EXPECT_EQ(confirmed.Tabs, (TabSelection{1, 1, 0}));
  EXPECT_EQ(confirmed.Defaults.DefaultFirstTab, 2U);

  confirmed = Confirm(scheme, [&](HWND page) {
    Click(page, IDC_GENERAL_PROGRAMS);
    Choose(page, IDC_GENERAL_TAB, "Links");
  });
  EXPECT_EQ(confirmed.Defaults.DefaultFirstTab, 3U) << "chosen by its text, not its position";
}

TEST(GeneralPage, ShowsNameAndDescription) {
  struct {
    const char* name;
    const char* description;
    const char* shownName;
    const char* shownDescription;
  } const rows[] = {
      {"Staff", "For teachers", "Staff", "For teachers"},
      {"Staff", " ", "Staff", ""},
      {"Staff", "  ", "Staff", "  "},
      {"Default User", "For everybody", "", ""},
      // Texts that break the rules came from elsewhere; they are left alone until they are edited.
      {"Year 1: Maths?", "An over-long description, one that goes beyond the fifty", "Year 1: Maths?",
       "An over-long description, one that goes beyond the fifty"},
  };
  for (const auto& row : rows) {
    SchemeProperties scheme;
    scheme.Name = row.name;
    scheme.Description = row.description;
    const SchemeProperties confirmed = Confirm(scheme, [&](HWND page) {
      EXPECT_EQ(ControlText(page, IDC_GENERAL_NAME), row.shownName);
      EXPECT_EQ(ControlText(page, IDC_GENERAL_DESCRIPTION), row.shownDescription);
    });
    EXPECT_EQ(confirmed.Name, row.shownName);
    EXPECT_EQ(confirmed.Description, row.shownDescription);
  }
}

TEST(GeneralPage, CorrectsWhatIsTyped) {
  DialogScript script;
  const auto type = [](HWND page) {
    Type(page, IDC_GENERAL_NAME, "Staff*");
    Type(page, IDC_GENERAL_DESCRIPTION, std::string(51, 'd'));
  };
  CPage1 page(SchemeProperties{});
  CPropertySheet sheet(kTitle);
  sheet.AddPage(page);
  script
      .Expect(kTitle,
              [&](HWND window) {
                type(PropSheet_GetCurrentPageHwnd(window));
                Click(window, IDOK);
              })
      .ExpectMessage("Error: Illegal Character",
                     "The following characters are not allowed:\n\n< > ? / \\ : * \" |")
      .ExpectMessage("Error: Text too long", "There is a limit of 50 characters");
  sheet.DoModal(nullptr);
  SchemeProperties scheme;
  page.CopyTo(scheme);
  EXPECT_EQ(scheme.Name, "Staff");
  EXPECT_EQ(scheme.Description, std::string(50, 'd'));
}

TEST(GeneralPage, SwitchesToolbarButtonsOnAndOff) {
  ToolBarPage none;
  ToolBarPage forced;
  forced.Back = forced.Forward = forced.Refresh = forced.Help = forced.Up = 1;
  struct {
    int box;
    std::vector<std::uint32_t ToolBarPage::*> first;
    std::vector<std::uint32_t ToolBarPage::*> second;
  } const rows[] = {
      {IDC_GENERAL_CUT_COPY_PASTE,
       {&ToolBarPage::Cut, &ToolBarPage::Copy, &ToolBarPage::Paste},
       {&ToolBarPage::Copy}},
      {IDC_GENERAL_DELETE, {&ToolBarPage::Delete}, {}},
      {IDC_GENERAL_NEW_RENAME, {&ToolBarPage::New, &ToolBarPage::Rename}, {}},
      {IDC_GENERAL_UNDO, {&ToolBarPage::Undo}, {}},
      {IDC_GENERAL_PRINT, {&ToolBarPage::Print}, {&ToolBarPage::Print}},
      {IDC_GENERAL_ICON_SIZE, {&ToolBarPage::Icon}, {}},
  };
  for (const auto& row : rows) {
    SchemeProperties expected;
    expected.ToolBars[0] = forced;
    for (const auto flag : row.first)
      expected.ToolBars[0].*flag = 1;
    for (const auto flag : row.second)
      expected.ToolBars[1].*flag = 1;
    const SchemeProperties on = Confirm({}, [&](HWND page) { Click(page, row.box); });
    EXPECT_EQ(on.ToolBars, expected.ToolBars) << row.box;
    const SchemeProperties off = Confirm(on, [&](HWND page) {
      EXPECT_EQ(IsDlgButtonChecked(page, row.box), BST_CHECKED);
      Click(page, row.box);
    });
    EXPECT_EQ(off.ToolBars, (std::array{forced, none, none})) << row.box;
  }
}

TEST(GeneralPage, LeavesAloneWhatItDoesNotShow) {
  SchemeProperties scheme = SchemeWithTabs({1, 0, 0}, 1);
  for (ToolBarPage& page : scheme.ToolBars)
    page = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 5, 1, 1, 5};  // View and Side are 5
  scheme.Name = "Staff";
  scheme.WebLinks.Assign({WebLink{}});
  scheme.FolderDisplay.Count = 3;
  scheme.Defaults = {"spiral", 48, 1, 9, 1, 0, 1};
  EXPECT_EQ(Confirm(scheme,
                    [](HWND page) {
                      EXPECT_EQ(SendDlgItemMessageA(page, IDC_GENERAL_VIEW, CB_GETCURSEL, 0, 0), CB_ERR);
                    }),
            scheme);
}

TEST(GeneralPage, ChoosesViewAndSwitches) {
  for (const char* const value : {"tree1", "tree2", "icons", "details"}) {
    SchemeProperties scheme = SchemeWithTabs({1, 1, 1}, 1);
    scheme.Defaults.DefaultView = value;
    EXPECT_EQ(Confirm(scheme, [](HWND) {}).Defaults.DefaultView, value);
  }
  SchemeProperties scheme = SchemeWithTabs({1, 1, 1}, 1);
  scheme.Defaults.Silent = 2;  // not 1: talking
  scheme.Defaults.OptionsMenu = 1;
  const SchemeProperties confirmed = Confirm(scheme, [](HWND page) {
    EXPECT_EQ(IsDlgButtonChecked(page, IDC_GENERAL_TALKING), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(page, IDC_GENERAL_CONTEXT_MENU_OFF), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(page, IDC_GENERAL_OPTIONS_MENU_ON), BST_CHECKED);
    Choose(page, IDC_GENERAL_VIEW, "Details View");
    Click(page, IDC_GENERAL_CONTEXT_MENU_ON);
    Click(page, IDC_GENERAL_OPTIONS_MENU_OFF);
  });
  EXPECT_EQ(confirmed.Defaults, (SchemeDefaults{"details", 0, 1, 0, 0, 1, 0}));
}

}  // namespace
