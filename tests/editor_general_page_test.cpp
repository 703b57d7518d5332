#include "editor/general_page.h"

#include <tuple>
#include <vector>

#include "controls/window_handles.h"
#include "controls/window_text.h"
#include "editor/general_page_ids.h"
#include "support/list_driver.h"

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

// The picture of a static control is the program's bitmap of that number, whatever stands for its magenta.
void ExpectPicture(HWND picture, UINT bitmap) {
  ICONINFO icon{};
  ASSERT_TRUE(GetIconInfo(reinterpret_cast<HICON>(SendMessageA(picture, STM_GETICON, 0, 0)), &icon));
  const UniqueBitmap shown(icon.hbmColor), mask(icon.hbmMask);
  const UniqueBitmap expected(LoadBitmapA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(bitmap)));
  const UniqueMemoryDc left(CreateCompatibleDC(nullptr)), right(CreateCompatibleDC(nullptr));
  const SelectedObject selectedLeft(left.Get(), shown.Get()), selectedRight(right.Get(), expected.Get());
  int compared = 0;
  for (int i = 0; i < 32 * 32; ++i) {
    const COLORREF colour = GetPixel(right.Get(), i % 32, i / 32);
    if (colour == RGB(255, 0, 255)) continue;
    ++compared;
    ASSERT_EQ(GetPixel(left.Get(), i % 32, i / 32), colour) << bitmap << " at " << i;
  }
  EXPECT_GT(compared, 100);
}

TEST(GeneralPage, EachTabHasItsPicture) {
  Confirm({}, [](HWND page) {
    ExpectPicture(GetDlgItem(page, IDC_GENERAL_PROGRAMS_PICTURE), 221);
    ExpectPicture(GetDlgItem(page, IDC_GENERAL_FILES_PICTURE), 224);
    ExpectPicture(GetDlgItem(page, IDC_GENERAL_LINKS_PICTURE), 220);
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
  const auto click = [](int box, const char* text, bool ticked) {
    return [=](HWND page) {
      EXPECT_EQ(ControlText(page, box), text);
      EXPECT_EQ(IsDlgButtonChecked(page, box), ticked ? BST_CHECKED : BST_UNCHECKED);
      Click(page, box);
    };
  };
  for (const auto& [box, text, first, second] : rows) {
    ToolBarPage shown = first;
    shown.Back = shown.Forward = shown.Refresh = shown.Help = shown.Up = 1;  // always
    const SchemeProperties on = Confirm({}, click(box, text, false));
    EXPECT_EQ(on.ToolBars, (std::array{shown, second, ToolBarPage{}})) << text;
    const ToolBarPage forced{.Back = 1, .Forward = 1, .Refresh = 1, .Help = 1, .Up = 1};
    EXPECT_EQ(Confirm(on, click(box, text, true)).ToolBars,
              (std::array{forced, ToolBarPage{}, ToolBarPage{}}))
        << text;
  }
}

TEST(GeneralPage, EachRadioButtonSetsItsDefault) {
  const struct {
    int on, off;
    std::uint32_t SchemeDefaults::*value;
  } rows[] = {{1136, 1137, &SchemeDefaults::Silent},
              {1139, 1140, &SchemeDefaults::ContextMenu},
              {1145, 1146, &SchemeDefaults::OptionsMenu}};
  for (const auto& [on, off, value] : rows) {
    for (const auto& [stored, clicked, expected] :
         {std::tuple{0U, on, 1U}, {1U, off, 0U}, {2U, on, 1U}, {0U, off, 0U}}) {
      SchemeProperties scheme, changed;
      scheme.Defaults.*value = stored;
      scheme = Confirm(scheme, [&, stored = stored, clicked = clicked, on = on, off = off](HWND page) {
        EXPECT_EQ(IsDlgButtonChecked(page, stored == 1 ? on : off), BST_CHECKED);
        EXPECT_EQ(IsDlgButtonChecked(page, stored == 1 ? off : on), BST_UNCHECKED);
        Click(page, clicked);
      });
      changed.Defaults.DefaultFirstTab = 1;
      changed.Defaults.*value = expected;
      EXPECT_EQ(scheme.Defaults, changed.Defaults) << on;
    }
  }
}

TEST(GeneralPage, TheViewIsChosenByItsPlaceInTheList) {
  for (const auto& [text, value] : {std::pair{"One Pane Tree", "tree1"},
                                    {"Two Pane Tree", "tree2"},
                                    {"Icon View", "icons"},
                                    {"Details View", "details"}}) {
    const auto choose = [text = text](HWND page) { Choose(page, IDC_GENERAL_VIEW, text); };
    SchemeProperties scheme;
    scheme.Tabs.Page2 = 1;
    scheme = Confirm(scheme, choose);
    EXPECT_EQ(scheme.Defaults.DefaultView, value);
    Confirm(scheme, [text = text](HWND page) { EXPECT_EQ(ControlText(page, IDC_GENERAL_VIEW), text); });
  }
}

TEST(GeneralPage, LeavesAloneWhatIsNotChanged) {
  SchemeProperties scheme;
  scheme.Name = "Staff";
  scheme.Description = "  ";
  scheme.Tabs = {1, 0, 1};
  scheme.ToolBars.fill({1, 1, 0, 0, 0, 0, 0, 1, 0, 1, 1, 0, 5, 1, 1, 5});
  for (const char* view : {"spiral", "tree1", "tree2", "icons", "details"}) {
    scheme.Defaults = {view, 48, 1, 9, 1, 0, 1};
    EXPECT_EQ(Confirm(scheme), scheme) << view;
  }
}

TEST(GeneralPage, ShowsNeitherDefaultUsersNameNorABlankDescription) {
  const struct {
    const char *name, *description, *shownName, *shownDescription;
  } rows[] = {{"Default User", "For everybody", "", ""},
              {"default user", "For everybody", "default user", "For everybody"},
              {"Staff", " ", "Staff", ""}};
  for (const auto& row : rows) {
    SchemeProperties scheme;
    scheme.Name = row.name;
    scheme.Description = row.description;
    scheme = Confirm(scheme);
    EXPECT_EQ(scheme.Name, row.shownName);
    EXPECT_EQ(scheme.Description, row.shownDescription);
  }
}

}  // namespace
