#include "helper/dialog/helper_chooser.h"

#include <optional>

#include "helper/dialog/helper_chooser_ids.h"
#include "helper/windows_folder.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"

namespace {

struct Picture {
  int ButtonId;
  UINT First;
  UINT Selected;
  const char* Tooltip;
};
// In the order of kHelperNames.
constexpr Picture kPictures[] = {
    {IDC_HELPER_PEEDY, IDB_PEEDY, IDB_PEEDY_SELECTED, "Selects Peedy as agent to use"},
    {IDC_HELPER_MERLIN, IDB_MERLIN, IDB_MERLIN_SELECTED, "Selects Merlin as agent to use"},
    {IDC_HELPER_ROBBY, IDB_ROBBY, IDB_ROBBY_SELECTED, "Selects Robby as agent to use"},
    {IDC_HELPER_GENIE, IDB_GENIE, IDB_GENIE_SELECTED, "Selects Genie as agent to use"},
};

}  // namespace

COLORREF PictureGround(COLORREF buttonFace) { return buttonFace + 0x0A0A0A; }

CHelperDialog::CHelperDialog() : CDialog(IDD_HELPER_CHOOSER) {}

bool CHelperDialog::OnInitDialog() {
  SetUpButtons();
  windowsFolder_ = WindowsFolder();
  const std::optional<std::size_t> setting = HelperOfPath(ReadHelperPath());
  Select(setting.value_or(0));
  if (!setting) WriteSetting();
  FocusItem(kPictures[selected_].ButtonId);
  return false;
}

void CHelperDialog::SetUpButtons() {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const auto& [buttonId, first, selected, tooltip] = kPictures[i];
    buttons_[i].Attach(Item(buttonId));
    buttons_[i].SetColour(CImageButton::kBackgroundColour,
                          [] { return PictureGround(GetSysColor(COLOR_BTNFACE)); });
    buttons_[i].SetTooltip(tooltip);
    buttons_[i].SetBitmaps(first, selected);
  }
}

// The buttons act as a group of radio buttons does: the arrow keys choose, since a button that gets the focus
// is chosen, and Tab comes back to the chosen one.
void CHelperDialog::OnCommand(int id, int code) {
  if (code != BN_CLICKED && code != BN_SETFOCUS) return;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (kPictures[i].ButtonId == id) Select(i);
  }
}

void CHelperDialog::OnOK() {
  WriteSetting();
  EndDialog(IDOK);
}

void CHelperDialog::Select(std::size_t helper) {
  selected_ = helper;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const HWND button = buttons_[i].Window();
    const LONG style = GetWindowLongA(button, GWL_STYLE);
    SetWindowLongA(button, GWL_STYLE, i == helper ? style | WS_TABSTOP : style & ~WS_TABSTOP);
    buttons_[i].SetSelected(i == helper);
  }
  SetItemText(IDC_HELPER_SELECTED, kHelperNames.at(helper));
}

// A setting that cannot be written stays as it was, without a word.
void CHelperDialog::WriteSetting() const { (void)WriteHelper(windowsFolder_, selected_); }
