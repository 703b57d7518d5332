#include "editor/files_page.h"

#include "editor/root_properties_dialog.h"

namespace {

enum Column { kName, kPath, kLevels, kMayChange };
constexpr ListColumn kColumns[] = {{"Name", 28}, {"Path", 0}, {"Levels", 17}, {"Changes", 22}};
constexpr ItemListTexts kTexts{"Files and Folders", "&Folders:", kColumns};

}  // namespace

CPage3::CPage3(const PictureFolders& folders) : CItemListPage(kTexts, Roots), folders_(folders) {}

std::string CPage3::CellText(const FolderRoot& root, int column) const {
  switch (column) {
    case kName:
      return root.RootDisplayName;
    case kPath:
      return root.RootPath;
    case kLevels:
      return std::to_string(root.FolderLevels);
    case kMayChange:
      return root.DenyModify ? "Denied" : "Allowed";
    default:
      return {};
  }
}

bool CPage3::RunDialog(FolderRoot& root) {
  return CRootPropertiesDialog(root, folders_).DoModal(Window()) == IDOK;
}
