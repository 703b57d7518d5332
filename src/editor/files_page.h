// The Files and Folders page of the scheme property sheet: the folder roots that the shell offers, in their
// order.
#pragma once

#include "editor/record_list_page.h"
#include "model/scheme_properties.h"

class CPage3 : public CRecordListPage<FolderRoot> {
 public:
  CPage3();

  std::vector<FolderRoot> Roots;  // edited in place, whatever becomes of the sheet

 private:
  std::string CellText(const FolderRoot& root, int column) const override;
  bool RunDialog(FolderRoot& root) override;
};
