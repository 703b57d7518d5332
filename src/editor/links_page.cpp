#include "editor/links_page.h"

#include "editor/web_link_dialog.h"

namespace {

constexpr ListColumn kColumns[] = {{"Name", 36}, {"Address", 0}};
constexpr ItemListTexts kTexts{"Links", "&Links:", kColumns};

}  // namespace

CPage2::CPage2(const PictureFolders& folders) : CItemListPage(kTexts, Links), folders_(folders) {}

std::string CPage2::CellText(const WebLink& link, int column) const {
  return column == 0 ? link.DisplayName : link.URL;
}

bool CPage2::RunDialog(WebLink& link) { return CWebLinkDialog(link, folders_).DoModal(Window()) == IDOK; }
