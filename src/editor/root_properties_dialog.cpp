#include "editor/root_properties_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <charconv>
#include <limits>

#include "controls/dir_dlg.h"
#include "controls/message.h"
#include "editor/icon_picker.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/text_entry.h"
#include "editor/thumbnail.h"
#include "resources/resource_ids.h"

namespace {

constexpr std::uint32_t kMostFolderLevels = 99;

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
  SendItem(IDC_FOLDER_LEVELS_SPIN, UDM_SETRANGE32, 0, kMostFolderLevels);
  // Not by the up-down control, which would force a stored number into its range.
  SetItemText(IDC_FOLDER_LEVELS, std::to_string(root_.FolderLevels));
  SendItem(IDC_FOLDER_LEVELS, EM_LIMITTEXT, std::numeric_limits<std::uint32_t>::digits10);
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

std::uint32_t CRootPropertiesDialog::FolderLevels() const {
  const std::string text = ItemText(IDC_FOLDER_LEVELS);
  if (text == std::to_string(root_.FolderLevels)) return root_.FolderLevels;
  // The field takes digits only, but may be empty.
  std::uint32_t levels = 0;
  std::from_chars(text.data(), text.data() + text.size(), levels);
  return std::min(levels, kMostFolderLevels);
}

void CRootPropertiesDialog::OnOK() {
  const bool nameMissing = ItemText(IDC_ROOT_NAME).empty();
  const bool pathMissing = ItemText(IDC_ROOT_PATH).empty();
  if (nameMissing) ShowMessage(Window(), "You must enter a name for this root", "Name Error");
  if (pathMissing) ShowMessage(Window(), "You must enter a path for this root", "Path Error");
  if (nameMissing || pathMissing) return FocusItem(nameMissing ? IDC_ROOT_NAME : IDC_ROOT_PATH);

  ReadTextFields(Window(), kTextFields, root_);
  root_.FolderLevels = FolderLevels();
  // Whatever stands for yes is kept.
  const bool deny = IsItemChecked(IDC_DENY_MODIFY);
  if (deny != (root_.DenyModify != 0)) root_.DenyModify = deny;
  for (const Picture* picture : {&closed_, &open_})
    root_.*picture->Member = picture->Stored;
  EndDialog(IDOK);
}
