// The Files and Folders page of the scheme property sheet: the folder roots that the shell offers, in their
// order.
#pragma once

#include "editor/item_list_page.h"
#include "editor/pictures.h"
#include "model/scheme_properties.h"

class CPage3 : public CItemListPage<FolderRoot> {
 public:
  // `folders` must outlive the page.
  explicit CPage3(const PictureFolders& folders);

  std::vector<FolderRoot> Roots;  // edited in place, whatever becomes of the sheet

 private:
  const char* HelpPage() const override { return "scheme-editor-files.htm"; }
  std::string CellText(const FolderRoot& root, int column) const override;
  bool RunDialog(FolderRoot& root) override;

  const PictureFolders& folders_;
};
