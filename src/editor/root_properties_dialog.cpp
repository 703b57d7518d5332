#include "editor/root_properties_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <limits>

#include "controls/dir_dlg.h"
#include "controls/message.h"
#include "editor/icon_picker.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/text_entry.h"
#include "editor/thumbnail.h"
#include "resources/resource_ids.h"

namespace {

constexpr TextField<FolderRoot> kTextFields[] = {
    {IDC_ROOT_NAME, &FolderRoot::RootDisplayName, kRootNameRule},
    {IDC_ROOT_PATH, &FolderRoot::RootPath, kRootPathRule},
    {IDC_ROOT_LONG_TOOLTIP, &FolderRoot::LongToolTip, kLongToolTipRule},
    {IDC_ROOT_SHORT_TOOLTIP, &FolderRoot::ShortToolTip, kShortToolTipRule},
};

}  // namespace

CRootPropertiesDialog::CRootPropertiesDialog(FolderRoot& root, const PictureFolders& folders)
    : CDialog(IDD_ROOT_PROPERTIES),
      root_(root),
      folders_(folders),
      closed_{&FolderRoot::CollapsedIconFile,
              IDC_CLOSED_THUMBNAIL,
              IDC_CLOSED_PICTURE,
              root.CollapsedIconFile,
              {}},
      open_{&FolderRoot::ExpandedIconFile, IDC_OPEN_THUMBNAIL, IDC_OPEN_PICTURE, root.ExpandedIconFile, {}} {}

bool CRootPropertiesDialog::OnInitDialog() {
  // So that up means more; the numbers themselves go beyond the range of an up-down control.
  SendItem(IDC_FOLDER_LEVELS_SPIN, UDM_SETRANGE32, 0, INT_MAX);
  SetItemText(IDC_FOLDER_LEVELS, std::to_string(root_.FolderLevels));
  CheckItem(IDC_DENY_MODIFY, root_.DenyModify != 0);
  ShowTextFields(Window(), kTextFields, root_);
  Show(closed_);
  Show(open_);
  return true;
}

void CRootPropertiesDialog::OnCommand(int id, int code) {
  switch (id) {
    case IDC_BROWSE_ROOT:
      return BrowseForPath();
    case IDC_CHOOSE_CLOSED:
      return Choose(closed_);
    case IDC_CHOOSE_OPEN:
      return Choose(open_);
    default:
      if (code == EN_CHANGE) ApplyTextRules(Window(), kTextFields, id);
  }
}

void CRootPropertiesDialog::BrowseForPath() {
  CDirDlg chooser(ItemText(IDC_ROOT_PATH), Window());
  if (chooser.DoModal() == IDOK) SetItemText(IDC_ROOT_PATH, chooser.FolderPath());
}

void CRootPropertiesDialog::Choose(Picture& picture) {
  CIconPicker picker(folders_, picture.Stored);
  if (picker.DoModal(Window()) != IDOK) return;
  picture.Stored = picker.Picture();
  Show(picture);
}

void CRootPropertiesDialog::Show(Picture& picture) {
  UniqueIcon thumbnail = picture.Stored.empty()
                             ? EmptyThumbnail(kThumbnailSize)
                             : LoadThumbnail(folders_.FullPath(picture.Stored), kThumbnailSize);
  if (!thumbnail) thumbnail = MissingThumbnail(kThumbnailSize);
  SendItem(picture.ThumbnailId, STM_SETICON, reinterpret_cast<WPARAM>(thumbnail.Get()));
  picture.Thumbnail = std::move(thumbnail);
  SetItemText(picture.NameId, PictureLabel(folders_, picture.Stored));
}

std::optional<std::uint32_t> CRootPropertiesDialog::FolderLevels() const {
  const std::string text = ItemText(IDC_FOLDER_LEVELS);
  if (text.empty()) return 0;
  // Digits are all that can be typed, but not all that can be pasted.
  std::uint32_t levels = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, levels);
  return error == std::errc() && stop == end ? std::optional(levels) : std::nullopt;
}

LRESULT CRootPropertiesDialog::OnNotify(const NMHDR& header) {
  if (header.code != UDN_DELTAPOS) return 0;
  constexpr std::int64_t kMax = std::numeric_limits<std::uint32_t>::max();
  const std::int64_t levels = FolderLevels().value_or(root_.FolderLevels);
  const int step = reinterpret_cast<const NMUPDOWN&>(header).iDelta;
  SetItemText(IDC_FOLDER_LEVELS, std::to_string(std::clamp<std::int64_t>(levels + step, 0, kMax)));
  return TRUE;  // the control need not count along
}

void CRootPropertiesDialog::OnOK() {
  const bool nameMissing = ItemText(IDC_ROOT_NAME).empty();
  const bool pathMissing = ItemText(IDC_ROOT_PATH).empty();
  if (nameMissing) ShowMessage(Window(), "You must enter a name for this root", "Name Error");
  if (pathMissing) ShowMessage(Window(), "You must enter a path for this root", "Path Error");
  if (nameMissing || pathMissing) return FocusItem(nameMissing ? IDC_ROOT_NAME : IDC_ROOT_PATH);

  const std::optional<std::uint32_t> levels = FolderLevels();
  if (!levels) {
    ShowMessage(Window(), "The number of folder levels must be a whole number from 0 to 4294967295",
                "Folder Levels Error");
    return FocusItem(IDC_FOLDER_LEVELS);
  }
  ReadTextFields(Window(), kTextFields, root_);
  root_.FolderLevels = *levels;
  // Whatever stands for yes is kept.
  const bool deny = IsItemChecked(IDC_DENY_MODIFY);
  if (deny != (root_.DenyModify != 0)) root_.DenyModify = deny;
  for (const Picture* picture : {&closed_, &open_})
    root_.*picture->Member = picture->Stored;
  EndDialog(IDOK);
}
