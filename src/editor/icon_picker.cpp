#include "editor/icon_picker.h"

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>

#include "app/settings.h"
#include "controls/message.h"
#include "controls/working_folder.h"
#include "editor/icon_picker_ids.h"
#include "editor/thumbnail.h"
#include "resources/resource_ids.h"

CIconPicker::CIconPicker(const PictureFolders& folders, std::string stored)
    : CDialog(IDD_ICON_PICKER), folders_(folders), list_(folders), picture_(std::move(stored)) {}

bool CIconPicker::OnInitDialog() {
  list_.Fill(Item(IDC_PICTURES), Item(IDC_PICTURE_FILE), folders_.IconsAndBitmaps(), picture_);
  return true;
}

void CIconPicker::OnCommand(int id, int /*code*/) {
  switch (id) {
    case IDC_BROWSE_PICTURE:
      return Browse();
    case IDHELP:
      return OnHelp();
  }
}

LRESULT CIconPicker::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_PICTURES) return 0;
  if (header.code == NM_DBLCLK) OnOK();
  return list_.OnNotify(header);
}

void CIconPicker::OnHelp() { ShowHelp(); }

void CIconPicker::OnOK() {
  picture_ = list_.Chosen();
  EndDialog(IDOK);
}

void CIconPicker::Browse() {
  const WorkingFolderKeeper keeper;
  char path[MAX_PATH] = "";
  OPENFILENAMEA request{};
  request.lStructSize = sizeof(request);
  request.hwndOwner = Window();
  request.lpstrFilter = "Pictures (*.bmp;*.ico)\0*.bmp;*.ico\0";
  request.lpstrFile = path;
  request.nMaxFile = sizeof(path);
  request.lpstrTitle = "Browse for a Picture";
  request.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
  if (!GetOpenFileNameA(&request)) return;
  if (!LoadThumbnail(path, kLargeThumbnailSize)) {
    ShowWarning(Window(), FileNameOf(path) + "\n\nThis file cannot be used as a picture.", "Picture Problem");
    return;
  }
  list_.Select(path);
  FocusItem(IDC_PICTURES);
}
