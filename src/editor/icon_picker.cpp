#include "editor/icon_picker.h"

#include <windows.h>

#include <commctrl.h>
#include <optional>

#include "controls/file_dialog.h"
#include "controls/message.h"
#include "controls/wait_cursor.h"
#include "editor/icon_picker_ids.h"
#include "editor/thumbnail.h"
#include "resources/resource_ids.h"

CIconPicker::CIconPicker(const PictureFolders& folders, std::string stored)
    : CDialog(IDD_ICON_PICKER), folders_(folders), list_(folders), picture_(std::move(stored)) {}

bool CIconPicker::OnInitDialog() {
  const WaitCursor cursor;
  list_.Fill(Item(IDC_PICTURES), Item(IDC_PICTURE_FILE), folders_.IconsAndBitmaps(), picture_);
  return true;
}

void CIconPicker::OnCommand(int id, int /*code*/) {
  if (id == IDC_BROWSE_PICTURE) Browse();
}

LRESULT CIconPicker::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_PICTURES) return 0;
  const bool onPicture =
      header.code == NM_DBLCLK && reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0;
  if (onPicture) OnOK();
  return list_.OnNotify(header);
}

void CIconPicker::OnOK() {
  picture_ = list_.Chosen();
  EndDialog(IDOK);
}

void CIconPicker::Browse() {
  const std::optional<ChosenFile> file = AskForFileToOpen({.Owner = Window(),
                                                           .Title = "Browse for a Picture",
                                                           .Filter = "Pictures (*.bmp;*.ico)\0*.bmp;*.ico\0",
                                                           .Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST});
  if (!file) return;
  if (!LoadThumbnail(file->Path, kLargeThumbnailSize)) {
    ShowWarning(Window(), FileNameOf(file->Path) + "\n\nThis file cannot be used as a picture.",
                "Picture Problem");
    return;
  }
  list_.Select(file->Path);
  FocusItem(IDC_PICTURES);
}
