// The Links page of the scheme property sheet: the web links that the shell offers, in their order.
#pragma once

#include "editor/record_list_page.h"
#include "model/scheme_properties.h"

class CPage2 : public CRecordListPage<WebLink> {
 public:
  CPage2();

  std::vector<WebLink> Links;  // edited in place, whatever becomes of the sheet

 private:
  std::string CellText(const WebLink& link, int column) const override;
  bool RunDialog(WebLink& link) override;
};
