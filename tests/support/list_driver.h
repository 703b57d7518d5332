// What a user does with a list view, and with a page that is a list of records.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "controls/list_view.h"
#include "controls/property_sheet.h"
#include "editor/record_list_page_ids.h"
#include "support/dialog_script.h"

inline void SelectRow(HWND list, int row) {
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

// The row of a text in the first column, -1 when it is not there.
inline int FindRow(HWND list, const std::string& text) {
  int row = ListView_GetItemCount(list) - 1;
  while (row >= 0 && ListCellText(list, row, 0) != text)
    --row;
  return row;
}

class RecordPageDriver {
 public:
  explicit RecordPageDriver(HWND sheet)
      : Page(PropSheet_GetCurrentPageHwnd(sheet)), List(GetDlgItem(Page, IDC_RECORD_LIST)) {}

  const HWND Page;
  const HWND List;

  // The first column, with the selected row in brackets; a bar; and the first letters of those of the buttons
  // Add, Edit, Remove, Up and Down that are enabled.
  std::string Look() const {
    std::string look;
    for (int row = 0; row < ListView_GetItemCount(List); ++row) {
      const std::string name = ListCellText(List, row, 0);
      look += (SelectedRow(List) == row ? "[" + name + "]" : name) + " ";
    }
    look += "| ";
    for (const auto& [id, letter] :
         {std::pair{IDC_ADD_RECORD, 'A'}, std::pair{IDC_EDIT_RECORD, 'E'}, std::pair{IDC_REMOVE_RECORD, 'R'},
          std::pair{IDC_MOVE_UP, 'U'}, std::pair{IDC_MOVE_DOWN, 'D'}})
      if (IsWindowEnabled(GetDlgItem(Page, id))) look += letter;
    return look;
  }
  // Clicks as the keyboard does, and answers which control of the page has the focus then.
  int Press(int id) const {
    SetFocus(GetDlgItem(Page, id));
    Click(Page, id);
    return GetDlgCtrlID(GetFocus());
  }
  void Key(WPARAM key) const {
    SetFocus(List);
    PressKey(key);
    Pump();
  }
};

inline constexpr char kSheetTitle[] = "Scheme";

inline INT_PTR ShowInSheet(CPropertyPage& page) {
  CPropertySheet sheet(kSheetTitle);
  sheet.AddPage(page);
  return sheet.DoModal(nullptr);
}
