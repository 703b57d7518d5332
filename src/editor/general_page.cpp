#include "editor/general_page.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "controls/program_pictures.h"
#include "controls/window_text.h"
#include "editor/general_page_ids.h"
#include "editor/text_entry.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"

namespace {

// The shell's tabs, in its order. DefaultFirstTab counts them from 1.
struct Tab {
  int CheckBox;
  int Picture;
  UINT Bitmap;
  const char* Name;
  std::uint32_t TabSelection::*Flag;
};
constexpr Tab kTabs[] = {
    {IDC_GENERAL_PROGRAMS, IDC_GENERAL_PROGRAMS_PICTURE, IDB_TAB_PROGRAMS, "Programs", &TabSelection::Page1},
    {IDC_GENERAL_FILES, IDC_GENERAL_FILES_PICTURE, IDB_TAB_FILES, "My Files", &TabSelection::Page2},
    {IDC_GENERAL_LINKS, IDC_GENERAL_LINKS_PICTURE, IDB_TAB_LINKS, "Links", &TabSelection::Page3},
};
constexpr std::size_t kFilesTab = 1;

// The check boxes for toolbar buttons. A box shows the first of its buttons on toolbar page 1 and sets all of
// them; two of the boxes govern a button of toolbar page 2 as well.
using ToolBarFlag = std::uint32_t ToolBarPage::*;
struct ToolButton {
  int CheckBox;
  std::array<ToolBarFlag, 3> Buttons;
  ToolBarFlag SecondPageButton = nullptr;
};
constexpr ToolButton kToolButtons[] = {
    {IDC_GENERAL_CUT_COPY_PASTE,
     {&ToolBarPage::Copy, &ToolBarPage::Cut, &ToolBarPage::Paste},
     &ToolBarPage::Copy},
    {IDC_GENERAL_DELETE, {&ToolBarPage::Delete}},
    {IDC_GENERAL_NEW_RENAME, {&ToolBarPage::New, &ToolBarPage::Rename}},
    {IDC_GENERAL_UNDO, {&ToolBarPage::Undo}},
    {IDC_GENERAL_PRINT, {&ToolBarPage::Print}, &ToolBarPage::Print},
    {IDC_GENERAL_ICON_SIZE, {&ToolBarPage::Icon}},
};
constexpr ToolBarFlag kAlwaysShown[] = {&ToolBarPage::Back, &ToolBarPage::Forward, &ToolBarPage::Refresh,
                                        &ToolBarPage::Help, &ToolBarPage::Up};

// The pairs of radio buttons: 1 in the scheme is the first button, anything else the second.
struct Switch {
  int First;
  int Second;
  std::uint32_t SchemeDefaults::*Value;
};
constexpr Switch kSwitches[] = {
    {IDC_GENERAL_SILENT, IDC_GENERAL_TALKING, &SchemeDefaults::Silent},
    {IDC_GENERAL_CONTEXT_MENU_ON, IDC_GENERAL_CONTEXT_MENU_OFF, &SchemeDefaults::ContextMenu},
    {IDC_GENERAL_OPTIONS_MENU_ON, IDC_GENERAL_OPTIONS_MENU_OFF, &SchemeDefaults::OptionsMenu},
};

struct View {
  const char* Text;
  const char* Value;
};
constexpr View kViews[] = {
    {"One Pane Tree", "tree1"},
    {"Two Pane Tree", "tree2"},
    {"Icon View", "icons"},
    {"Details View", "details"},
};

int FindView(const std::string& value) {
  const auto* view = std::ranges::find(kViews, value, &View::Value);
  return view == std::end(kViews) ? -1 : static_cast<int>(view - kViews);
}

}  // namespace

CPage1::CPage1(const SchemeProperties& scheme)
    : CPropertyPage(IDD_GENERAL_PAGE), view_(FindView(scheme.Defaults.DefaultView)) {
  static_assert(std::size(kTabs) == kTabCount && std::size(kToolButtons) == kToolButtonCount &&
                std::size(kSwitches) == kSwitchCount);
  if (scheme.Name != kDefaultUserScheme) {
    name_ = scheme.Name;
    if (scheme.Description != " ") description_ = scheme.Description;
  }
  for (std::size_t i = 0; i < kTabCount; ++i)
    tabs_[i] = scheme.Tabs.*kTabs[i].Flag != 0;
  for (std::size_t i = 0; i < kToolButtonCount; ++i)
    toolButtons_[i] = scheme.ToolBars[0].*kToolButtons[i].Buttons[0] != 0;
  for (std::size_t i = 0; i < kSwitchCount; ++i)
    switches_[i] = scheme.Defaults.*kSwitches[i].Value == 1;
  const std::size_t firstTab = std::size_t{scheme.Defaults.DefaultFirstTab} - 1;
  if (firstTab < kTabCount && tabs_[firstTab]) firstTab_ = firstTab;
}

bool CPage1::AnyTabChosen() const { return std::ranges::count(tabs_, true) > 0; }

void CPage1::CopyTo(SchemeProperties& scheme) const {
  scheme.Name = name_;
  scheme.Description = description_;
  for (std::size_t i = 0; i < kTabCount; ++i)
    scheme.Tabs.*kTabs[i].Flag = tabs_[i];
  for (std::size_t i = 0; i < kToolButtonCount; ++i) {
    for (const ToolBarFlag button : kToolButtons[i].Buttons) {
      if (button) scheme.ToolBars[0].*button = toolButtons_[i];
    }
    if (const ToolBarFlag button = kToolButtons[i].SecondPageButton) {
      scheme.ToolBars[1].*button = toolButtons_[i];
    }
  }
  for (const ToolBarFlag button : kAlwaysShown)
    scheme.ToolBars[0].*button = 1;
  for (std::size_t i = 0; i < kSwitchCount; ++i)
    scheme.Defaults.*kSwitches[i].Value = switches_[i];
  scheme.Defaults.DefaultFirstTab = static_cast<std::uint32_t>(firstTab_ + 1);
  if (view_ >= 0) scheme.Defaults.DefaultView = kViews[view_].Value;
}

bool CPage1::OnInitDialog() {
  ShowPictures();
  FillTabList();
  FillViewList();
  EnableItem(IDC_GENERAL_VIEW, tabs_[kFilesTab]);
  return CPropertyPage::OnInitDialog();
}

void CPage1::ExchangeData(bool toControls) {
  ExchangeText(toControls, IDC_GENERAL_NAME, name_);
  ExchangeText(toControls, IDC_GENERAL_DESCRIPTION, description_);
  for (std::size_t i = 0; i < kTabCount; ++i)
    ExchangeCheck(toControls, kTabs[i].CheckBox, tabs_[i]);
  for (std::size_t i = 0; i < kToolButtonCount; ++i)
    ExchangeCheck(toControls, kToolButtons[i].CheckBox, toolButtons_[i]);
  for (std::size_t i = 0; i < kSwitchCount; ++i) {
    ExchangeCheck(toControls, kSwitches[i].First, switches_[i]);
    if (toControls) CheckItem(kSwitches[i].Second, !switches_[i]);
  }
  if (toControls) {
    SendItem(IDC_GENERAL_VIEW, CB_SETCURSEL, static_cast<WPARAM>(view_));
  } else {
    view_ = static_cast<int>(SendItem(IDC_GENERAL_VIEW, CB_GETCURSEL));
  }
}

void CPage1::ExchangeText(bool toControls, int id, std::string& text) {
  if (toControls) {
    SetItemText(id, text);
  } else {
    text = ItemText(id);
  }
}

void CPage1::ExchangeCheck(bool toControls, int id, bool& checked) {
  if (toControls) {
    CheckItem(id, checked);
  } else {
    checked = IsItemChecked(id);
  }
}

// A static control shows an icon with the page's background around it, a bitmap with its own.
void CPage1::ShowPictures() {
  std::array<UINT, kTabCount> bitmaps{};
  std::ranges::transform(kTabs, bitmaps.begin(), &Tab::Bitmap);
  const UniqueImageList images = LoadBitmapImages(bitmaps);
  for (std::size_t i = 0; i < kTabCount; ++i) {
    pictures_[i].Reset(ImageList_GetIcon(images.Get(), static_cast<int>(i), ILD_TRANSPARENT));
    SendItem(kTabs[i].Picture, STM_SETICON, reinterpret_cast<WPARAM>(pictures_[i].Get()));
  }
}

void CPage1::FillTabList() {
  for (std::size_t i = 0; i < kTabCount; ++i) {
    if (tabs_[i]) AppendToTabList(i);
  }
  // The number of the tab is taken for a position even where the list is shorter: then nothing is selected,
  // and the scheme keeps its first tab until another is chosen.
  SendItem(IDC_GENERAL_TAB, CB_SETCURSEL, firstTab_);
}

void CPage1::FillViewList() {
  for (const View& view : kViews)
    SendItem(IDC_GENERAL_VIEW, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(view.Text));
}

void CPage1::OnCommand(int id, int code) {
  switch (id) {
    case IDC_GENERAL_NAME:
      if (code == EN_CHANGE) ApplyTextRule(Window(), id, kSchemeNameRule);
      break;
    case IDC_GENERAL_DESCRIPTION:
      if (code == EN_CHANGE) ApplyTextRule(Window(), id, kSchemeDescriptionRule);
      break;
    case IDC_GENERAL_PROGRAMS:
    case IDC_GENERAL_FILES:
    case IDC_GENERAL_LINKS:
      if (code == BN_CLICKED) ToggleTab(static_cast<std::size_t>(id - IDC_GENERAL_PROGRAMS));
      break;
    case IDC_GENERAL_TAB:
      if (code == CBN_SELCHANGE) ChooseFirstTab();
      break;
  }
}

// Which tab the shell shows first is the user's choice in the list, not what ticking leaves selected there.
void CPage1::ToggleTab(std::size_t tab) {
  tabs_[tab] = IsItemChecked(kTabs[tab].CheckBox);
  if (tabs_[tab]) {
    SendItem(IDC_GENERAL_TAB, CB_SETCURSEL, static_cast<WPARAM>(AppendToTabList(tab)));
  } else {
    RemoveFromTabList(tab);
  }
  if (tab == kFilesTab) EnableItem(IDC_GENERAL_VIEW, tabs_[tab]);
  InvalidateRect(Item(IDC_GENERAL_TAB), nullptr, TRUE);
}

LRESULT CPage1::AppendToTabList(std::size_t tab) {
  return SendItem(IDC_GENERAL_TAB, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(kTabs[tab].Name));
}

void CPage1::RemoveFromTabList(std::size_t tab) {
  const LRESULT position = SendItem(IDC_GENERAL_TAB, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(kTabs[tab].Name));
  if (position == CB_ERR) return;
  SendItem(IDC_GENERAL_TAB, CB_DELETESTRING, static_cast<WPARAM>(position));
  SendItem(IDC_GENERAL_TAB, CB_SETCURSEL, static_cast<WPARAM>(std::max<LRESULT>(position - 1, 0)));
}

void CPage1::ChooseFirstTab() {
  const int position = static_cast<int>(SendItem(IDC_GENERAL_TAB, CB_GETCURSEL));
  const std::string text = ComboItemText(Item(IDC_GENERAL_TAB), position);
  const auto* tab = std::ranges::find(kTabs, text, &Tab::Name);
  if (tab != std::end(kTabs)) firstTab_ = static_cast<std::size_t>(tab - kTabs);
}
