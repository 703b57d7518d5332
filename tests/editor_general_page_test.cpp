#include "editor/general_page.h"

#include <tuple>
#include <vector>

#include "controls/window_text.h"
#include "editor/general_page_ids.h"
#include "support/list_driver.h"
#include "support/looks.h"

namespace {

// Shows the page for a scheme, lets `act` work on it, confirms, and returns the scheme that comes out.
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

TEST(GeneralPage, EachTabHasItsPicture) {
  Confirm({}, [](HWND page) {
    for (const auto& [control, bitmap] : {std::pair{IDC_GENERAL_PROGRAMS_PICTURE, 221U},
                                          {IDC_GENERAL_FILES_PICTURE, 224U},
                                          {IDC_GENERAL_LINKS_PICTURE, 220U}}) {
      const auto icon = reinterpret_cast<HICON>(SendDlgItemMessageA(page, control, STM_GETICON, 0, 0));
      const Canvas canvas(32, 32);
      DrawIconEx(canvas.Dc.Get(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL);
      EXPECT_TRUE(ShowsBitmap(canvas, 0, 0, bitmap)) << bitmap;
    }
  });
}

TEST(GeneralPage, EachBoxSwitchesItsToolbarButtonsOnAndOff) {
  const struct {
    int box;
    const char* text;
    ToolBarPage first, second;
  } rows[] = {
      {1112, "Cut, Copy && Paste", {.Cut = 1, .Copy = 1, .Paste = 1}, {.Copy = 1}},
      {1113, "Delete", {.Delete = 1}, {}},
      {1114, "New && Rename", {.New = 1, .Rename = 1}, {}},
      {1062, "Undo", {.Undo = 1}, {}},
      {1069, "Print", {.Print = 1}, {.Print = 1}},
      {1071, "Icon Size", {.Icon = 1}, {}},
  };
  const ToolBarPage always{.Back = 1, .Forward = 1, .Refresh = 1, .Help = 1, .Up = 1};
  for (const auto& [box, text, first, second] : rows) {
    ToolBarPage shown = first;
    shown.Back = shown.Forward = shown.Refresh = shown.Help = shown.Up = 1;
    const auto click = [box = box, text = text](HWND page) {
      EXPECT_EQ(ControlText(page, box), text);
      Click(page, box);
    };
    const SchemeProperties on = Confirm({}, click);
    EXPECT_EQ(on.ToolBars, (std::array{shown, second, ToolBarPage{}})) << text;
    EXPECT_EQ(Confirm(on, click).ToolBars, (std::array{always, ToolBarPage{}, ToolBarPage{}})) << text;
  }
}

TEST(GeneralPage, RadioButtonsAndListsSetTheDefaults) {
  const struct {
    const char* view;
    std::vector<int> clicks;
    SchemeDefaults expected;
  } rows[] = {{"One Pane Tree", {1136, 1140, 1146}, {"tree1", 48, 3, 9, 1, 0, 0}},
              {"Two Pane Tree", {1137, 1139, 1146}, {"tree2", 48, 3, 9, 0, 1, 0}},
              {"Icon View", {1137, 1140, 1145}, {"icons", 48, 3, 9, 0, 0, 1}},
              {"Details View", {1136, 1139, 1145}, {"details", 48, 3, 9, 1, 1, 1}}};
  SchemeProperties scheme;
  scheme.Tabs = {1, 1, 1};
  scheme.Defaults = {"spiral", 48, 1, 9, 2, 2, 2};
  for (const auto& [view, clicks, expected] : rows) {
    scheme = Confirm(scheme, [&view = view, &clicks = clicks](HWND page) {
      for (const int id : clicks)
        Click(page, id);
      Choose(page, IDC_GENERAL_TAB, "Links");
      Choose(page, IDC_GENERAL_VIEW, view);
    });
    EXPECT_EQ(scheme.Defaults, expected) << view;
    Confirm(scheme, [&view = view, &clicks = clicks](HWND page) {
      EXPECT_EQ(ControlText(page, IDC_GENERAL_VIEW), view);
      for (const int id : clicks)
        EXPECT_EQ(IsDlgButtonChecked(page, id), BST_CHECKED) << id;
    });
  }
}

TEST(GeneralPage, LeavesAloneWhatIsNotChanged) {
  SchemeProperties scheme;
  scheme.Tabs = {1, 0, 1};
  scheme.ToolBars.fill({1, 1, 0, 0, 0, 0, 0, 1, 0, 1, 1, 0, 5, 1, 1, 5});
  for (const char* view : {"spiral", "tree1", "tree2", "icons", "details"}) {
    scheme.Defaults = {view, 48, 1, 9, 1, 0, 1};
    EXPECT_EQ(Confirm(scheme), scheme) << view;
  }
  scheme.Defaults = {"tree1", 48, 1, 9, 2, 2, 2};
  EXPECT_EQ(Confirm(scheme).Defaults, (SchemeDefaults{"tree1", 48, 1, 9, 0, 0, 0})) << "only 1 is on";
}

TEST(GeneralPage, ShowsNeitherDefaultUsersNameNorABlankDescription) {
  const std::array<std::string, 4> rows[] = {
      {"Default User", "For everybody", "", ""},
      {"default user", "For everybody", "default user", "For everybody"},
      {"Staff", " ", "Staff", ""},
      {"Staff", "  ", "Staff", "  "}};
  for (const auto& [name, description, shownName, shownDescription] : rows) {
    SchemeProperties scheme;
    scheme.Name = name;
    scheme.Description = description;
    scheme = Confirm(scheme);
    EXPECT_EQ(scheme.Name, shownName);
    EXPECT_EQ(scheme.Description, shownDescription);
  }
}

}  // namespace
