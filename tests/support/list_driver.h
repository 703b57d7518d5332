// Looking into list views, and showing a page in a sheet of its own.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "controls/list_view.h"
#include "controls/property_sheet.h"
#include "editor/item_list_page_ids.h"
#include "support/dialog_script.h"

// The row of a text in the first column, -1 when it is not there.
inline int FindRow(HWND list, const std::string& text) {
  int row = ListView_GetItemCount(list) - 1;
  while (row >= 0 && ListCellText(list, row, 0) != text)
    --row;
  return row;
}

inline constexpr char kSheetTitle[] = "Scheme";

inline INT_PTR ShowInSheet(CPropertyPage& page) {
  CPropertySheet sheet(kSheetTitle);
  sheet.AddPage(page);
  return sheet.DoModal(nullptr);
}
