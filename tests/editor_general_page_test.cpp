#include "editor/general_page.h"

#include <tuple>
#include <vector>

#include "controls/window_text.h"
#include "editor/general_page_ids.h"
#include "support/list_driver.h"

namespace {

// Shows the page for a scheme, lets `act` work on it, confirms, and answers the scheme that comes out.
SchemeProperties Confirm(SchemeProperties scheme, const DialogScript::Action& act = {}) {
  CPage1 page(scheme);
  DialogScript script;
  script.Expect(kSheetTitle, [&act](HWND sheet) {
    if (act) act(PropSheet_GetCurrentPageHwnd(sheet));
    Click(sheet, IDOK);
  });
  EXPECT_EQ(ShowInSheet(page), IDOK);
  page.CopyTo(scheme);
  return scheme;
}

// The "Tab:" list from the top, with the selected item in brackets, and whether a view can be chosen.
std::string Lists(HWND page) {
  const HWND tabs = GetDlgItem(page, IDC_GENERAL_TAB);
  std::string text;
  for (int i = 0; i < SendMessageA(tabs, CB_GETCOUNT, 0, 0); ++i) {
    const bool selected = i == SendMessageA(tabs, CB_GETCURSEL, 0, 0);
    text.append(selected ? "[" : "").append(ComboItemText(tabs, i)).append(selected ? "] " : " ");
  }
  return text + (IsWindowEnabled(GetDlgItem(page, IDC_GENERAL_VIEW)) ? "+ view" : "");
}

TEST(GeneralPage, FirstTabIsAPositionUntilItIsChosen) {
  const std::tuple<TabSelection, std::uint32_t, std::vector<int>, std::string, std::uint32_t> rows[] = {
      {{1, 7, 1}, 2, {}, "Programs [My Files] Links + view", 2},
      {{1, 0, 1}, 2, {}, "[Programs] Links ", 1},
      {{0, 0, 1}, 3, {}, "Links ", 3},
      {{0, 0, 1}, 0x80000000, {}, "[Links] ", 1},
      {{1, 1, 1}, 2, {IDC_GENERAL_FILES}, "[Programs] Links ", 2},
      {{1, 1, 1}, 2, {IDC_GENERAL_FILES, IDC_GENERAL_FILES}, "Programs Links [My Files] + view", 2},
      {{1, 1, 1}, 1, {IDC_GENERAL_PROGRAMS}, "[My Files] Links + view", 1},
  };
  for (const auto& [tabs, firstTab, clicks, lists, confirmed] : rows) {
    SchemeProperties scheme;
    scheme.Tabs = tabs;
    scheme.Defaults.DefaultFirstTab = firstTab;
    scheme = Confirm(scheme, [&clicks = clicks, &lists = lists](HWND page) {
      for (const int box : clicks)
        Click(page, box);
      EXPECT_EQ(Lists(page), lists);
    });
    EXPECT_EQ(scheme.Defaults.DefaultFirstTab, confirmed) << lists;
  }
}

TEST(GeneralPage, BoxesSwitchToolbarButtonsOnAndOff) {
  const ToolBarPage forced{.Back = 1, .Forward = 1, .Refresh = 1, .Help = 1, .Up = 1};
  const ToolBarPage all{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1, 0};
  const ToolBarPage second{.Copy = 1, .Print = 1};
  const auto clickAll = [](HWND page) {
    for (const int box : {IDC_GENERAL_CUT_COPY_PASTE, IDC_GENERAL_DELETE, IDC_GENERAL_NEW_RENAME,
                          IDC_GENERAL_UNDO, IDC_GENERAL_PRINT, IDC_GENERAL_ICON_SIZE})
      Click(page, box);
  };
  const SchemeProperties on = Confirm({}, clickAll);
  EXPECT_EQ(on.ToolBars, (std::array{all, second, ToolBarPage{}}));
  EXPECT_EQ(Confirm(on, clickAll).ToolBars, (std::array{forced, ToolBarPage{}, ToolBarPage{}}));
}

TEST(GeneralPage, LeavesAloneWhatIsNotChanged) {
  SchemeProperties scheme;
  scheme.Tabs = {1, 0, 1};
  scheme.ToolBars.fill({1, 1, 0, 0, 0, 0, 0, 1, 0, 1, 1, 0, 5, 1, 1, 5});
  for (const char* view : {"spiral", "tree1", "tree2", "icons", "details"}) {
    scheme.Defaults = {view, 48, 1, 9, 1, 0, 1};
    EXPECT_EQ(Confirm(scheme), scheme) << view;
  }
  scheme = Confirm(scheme, [](HWND page) {
    Choose(page, IDC_GENERAL_TAB, "Links");
    Choose(page, IDC_GENERAL_VIEW, "Icon View");
    for (const int id : {IDC_GENERAL_TALKING, IDC_GENERAL_CONTEXT_MENU_ON, IDC_GENERAL_OPTIONS_MENU_OFF})
      Click(page, id);
  });
  EXPECT_EQ(scheme.Defaults, (SchemeDefaults{"icons", 48, 3, 9, 0, 1, 0}));
  // The first name comes from elsewhere and breaks the rules.
  for (const auto& [name, description, shown] :
       {std::tuple("Year 1: Maths?", "  ", "Year 1: Maths?  "), std::tuple("Staff", " ", "Staff"),
        std::tuple("Default User", "For everybody", "")}) {
    scheme.Name = name;
    scheme.Description = description;
    const SchemeProperties confirmed = Confirm(scheme);
    EXPECT_EQ(confirmed.Name + confirmed.Description, shown);
  }
}

}  // namespace
