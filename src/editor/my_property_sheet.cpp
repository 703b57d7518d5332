#include "editor/my_property_sheet.h"

#include <utility>

#include "controls/message.h"

CMyPropertySheet::CMyPropertySheet(std::string title, const SchemeProperties& scheme,
                                   const PictureFolders& folders)
    : CPropertySheet(std::move(title)), general_(scheme), links_(folders), files_(folders) {
  links_.Links = scheme.WebLinks;
  files_.Roots = scheme.FolderRoots;
  AddPage(general_);
  AddPage(links_);
  AddPage(files_);
}

bool CMyPropertySheet::Run(HWND owner) {
  while (DoModal(owner) == IDOK) {
    if (general_.AnyTabChosen()) return true;
    ShowMessage(nullptr,
                "You need to select at least one\n\rof the tabs for Programs, Files, or\n\rWeb Links.",
                "Tab Selection Error");
  }
  return false;
}

void CMyPropertySheet::CopyTo(SchemeProperties& scheme) const {
  general_.CopyTo(scheme);
  scheme.WebLinks = links_.Links;
  scheme.FolderRoots = files_.Roots;
}
