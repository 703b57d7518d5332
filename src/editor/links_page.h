// The Links page of the scheme property sheet: the web links that the shell offers, in their order.
#pragma once

#include "editor/item_list_page.h"
#include "editor/pictures.h"
#include "model/scheme_properties.h"

class CPage2 : public CItemListPage<WebLink> {
 public:
  // `folders` must outlive the page.
  explicit CPage2(const PictureFolders& folders);

  std::vector<WebLink> Links;  // edited in place, whatever becomes of the sheet

 private:
  const char* HelpPage() const override { return "scheme-editor-links.htm"; }
  std::string CellText(const WebLink& link, int column) const override;
  bool RunDialog(WebLink& link) override;

  const PictureFolders& folders_;
};
