#include "editor/files_page.h"

#include "editor/root_properties_dialog.h"
#include "resources/resource_ids.h"

namespace {

enum Column { kName, kPath, kLevels, kMayChange };
constexpr ListColumn kColumns[] = {{"Name", 30}, {"Path", 29}, {"Levels", 19}, {"Changes", 22}};

}  // namespace

CPage3::CPage3() : CRecordListPage(IDD_FILES_PAGE, kColumns, Roots) {}

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

bool CPage3::RunDialog(FolderRoot& root) { return CRootPropertiesDialog(root).DoModal(Window()) == IDOK; }
