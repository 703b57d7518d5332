#include "helper/dialog/helper_chooser.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "helper/dialog/helper_chooser_ids.h"
#include "helper/windows_folder.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"

namespace {

constexpr char kAgentPath[] = "msAgent Path";
constexpr std::size_t kExtensionLength = 4;  // ".acs"
constexpr COLORREF kMagenta = RGB(255, 0, 255);

struct Helper {
  int ButtonId;
  const char* Name;
  UINT Picture;
  UINT SelectedPicture;
  const char* Tooltip;
};
constexpr Helper kHelperTable[] = {
    {IDC_HELPER_PEEDY, "Peedy", IDB_PEEDY, IDB_PEEDY_SELECTED, "Selects Peedy as agent to use"},
    {IDC_HELPER_MERLIN, "Merlin", IDB_MERLIN, IDB_MERLIN_SELECTED, "Selects Merlin as agent to use"},
    {IDC_HELPER_ROBBY, "Robby", IDB_ROBBY, IDB_ROBBY_SELECTED, "Selects Robby as agent to use"},
    {IDC_HELPER_GENIE, "Genie", IDB_GENIE, IDB_GENIE_SELECTED, "Selects Genie as agent to use"},
};

// The character that a path of a character file names. A path without any folder loses its first letter; the
// shell's settings always have one.
std::string HelperName(const std::string& path) {
  if (path.size() <= kExtensionLength) return "";
  const std::string stem = path.substr(0, path.size() - kExtensionLength);
  const std::size_t separator = stem.rfind('\\');
  return stem.substr(separator == std::string::npos ? 1 : separator + 1);
}

// The helper that the shell's setting names, if it is one of ours.
std::optional<std::size_t> ReadSetting() {
  const std::string name = HelperName(ReadText(HKEY_LOCAL_MACHINE, kSettingsKey, kAgentPath));
  const auto found = std::find_if(std::begin(kHelperTable), std::end(kHelperTable),
                                  [&](const Helper& helper) { return helper.Name == name; });
  if (found == std::end(kHelperTable)) return std::nullopt;
  return static_cast<std::size_t>(found - std::begin(kHelperTable));
}

}  // namespace

COLORREF PictureGround(COLORREF buttonFace) { return buttonFace + 0x0A0A0A; }

CHelperDialog::CHelperDialog() : CDialog(IDD_HELPER_CHOOSER) {}

bool CHelperDialog::OnInitDialog() {
  SetUpButtons();
  windowsFolder_ = WindowsFolder();
  const std::optional<std::size_t> setting = ReadSetting();
  Select(setting.value_or(0));
  if (!setting) WriteSetting();
  FocusItem(kHelperTable[selected_].ButtonId);
  return false;
}

void CHelperDialog::SetUpButtons() {
  for (std::size_t i = 0; i < kHelpers; ++i) {
    const Helper& helper = kHelperTable[i];
    buttons_[i].Attach(Item(helper.ButtonId));
    buttons_[i].SetColour(CImageButton::kBackgroundColour, PictureGround(GetSysColor(COLOR_BTNFACE)));
    buttons_[i].SetTooltip(helper.Tooltip);
    buttons_[i].SetBitmaps(helper.Picture, helper.SelectedPicture, kMagenta);
  }
}

// The buttons act as a group of radio buttons does: the arrow keys choose, since a button that gets the focus
// is chosen, and Tab comes back to the chosen one.
void CHelperDialog::OnCommand(int id, int code) {
  if (code != BN_CLICKED && code != BN_SETFOCUS) return;
  for (std::size_t i = 0; i < kHelpers; ++i) {
    if (kHelperTable[i].ButtonId == id) Select(i);
  }
}

void CHelperDialog::OnOK() {
  WriteSetting();
  EndDialog(IDOK);
}

void CHelperDialog::Select(std::size_t helper) {
  selected_ = helper;
  for (std::size_t i = 0; i < kHelpers; ++i) {
    const HWND button = buttons_[i].Window();
    const LONG style = GetWindowLongA(button, GWL_STYLE);
    SetWindowLongA(button, GWL_STYLE, i == helper ? style | WS_TABSTOP : style & ~WS_TABSTOP);
    buttons_[i].SetSelected(i == helper);
  }
  SetItemText(IDC_HELPER_SELECTED, kHelperTable[helper].Name);
}

void CHelperDialog::WriteSetting() const {
  const std::string path = windowsFolder_ + "\\msagent\\chars\\" + kHelperTable[selected_].Name + ".acs";
  // The size leaves the terminating NUL out, as it always has; the system adds it where the text has one.
  if (const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSettingsKey, KEY_WRITE)) {
    RegSetValueExA(key.Get(), kAgentPath, 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                   static_cast<DWORD>(path.size()));
  }
}
