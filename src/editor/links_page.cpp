#include "editor/links_page.h"

#include "editor/web_link_dialog.h"
#include "resources/resource_ids.h"

namespace {

constexpr ListColumn kColumns[] = {{"Name", 36}, {"Address", 64}};

}  // namespace

CPage2::CPage2() : CRecordListPage(IDD_LINKS_PAGE, kColumns, Links) {}

std::string CPage2::CellText(const WebLink& link, int column) const {
  return column == 0 ? link.DisplayName : link.URL;
}

bool CPage2::RunDialog(WebLink& link) { return CWebLinkDialog(link).DoModal(Window()) == IDOK; }
