#include "editor/record_list_page.h"

#include <windows.h>

#include <commctrl.h>

#include "controls/list_view.h"
#include "editor/record_list_page_ids.h"
#include "model/scheme_properties.h"

HWND CListPage::List() const { return Item(IDC_RECORD_LIST); }

bool CListPage::OnInitDialog() {
  SetUpColumns();
  Refresh(0);
  return CPropertyPage::OnInitDialog();
}

void CListPage::SetUpColumns() {
  ListView_SetExtendedListViewStyle(List(), LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
  RECT client;
  GetClientRect(List(), &client);
  // The vertical scroll bar must not bring out a horizontal one.
  const int width = client.right - GetSystemMetrics(SM_CXVSCROLL);
  int index = 0;
  for (const ListColumn& column : columns_) {
    InsertListColumn(List(), index++, column.Title, width * column.Percent / 100);
  }
}

void CListPage::OnCommand(int id, int /*code*/) {
  switch (id) {
    case IDC_ADD_RECORD:
      return OnAdd();
    case IDC_EDIT_RECORD:
      return OnEdit();
    case IDC_REMOVE_RECORD:
      return OnRemove();
    case IDC_MOVE_UP:
      return OnMove(-1);
    case IDC_MOVE_DOWN:
      return OnMove(1);
    case IDHELP:
      return OnHelp();
  }
}

LRESULT CListPage::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_RECORD_LIST) return CPropertyPage::OnNotify(header);
  switch (header.code) {
    case LVN_GETDISPINFOA: {
      const LVITEMA& item = reinterpret_cast<const NMLVDISPINFOA&>(header).item;
      if ((item.mask & LVIF_TEXT) && item.iItem < RecordCount())
        lstrcpynA(item.pszText, CellText(item.iItem, item.iSubItem).c_str(), item.cchTextMax);
      return 0;
    }
    case LVN_ITEMCHANGED:
      if (!refreshing_) UpdateButtons();
      return 0;
    case LVN_KEYDOWN:
      OnListKey(reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey);
      return 0;
    case NM_DBLCLK:
      OnEdit();
      return 0;
    default:
      return 0;
  }
}

void CListPage::OnListKey(WORD key) {
  if (key == VK_INSERT) OnAdd();
  if (key == VK_DELETE) OnRemove();
}

void CListPage::OnAdd() {
  if (RecordCount() < kMaxRecords && AddRecord()) Refresh(RecordCount() - 1);
}

void CListPage::OnEdit() {
  const int row = SelectedRow(List());
  if (row >= 0 && EditRecord(row)) Refresh(row);
}

void CListPage::OnRemove() {
  const int row = SelectedRow(List());
  if (row < 0) return;
  RemoveRecord(row);
  Refresh(row);
}

void CListPage::OnMove(int distance) {
  const int row = SelectedRow(List());
  SwapRecords(row, row + distance);
  Refresh(row + distance);
}

void CListPage::Refresh(int row) {
  refreshing_ = true;
  // The list asks for its texts when it paints them: only the number of rows has to follow.
  int shown = ListView_GetItemCount(List());
  for (; shown > RecordCount(); --shown)
    ListView_DeleteItem(List(), shown - 1);
  for (; shown < RecordCount(); ++shown) {
    InsertListRow(List(), shown, LPSTR_TEXTCALLBACKA, I_IMAGENONE);
    for (int column = 1; column < static_cast<int>(columns_.size()); ++column)
      SetListCell(List(), shown, column, LPSTR_TEXTCALLBACKA);
  }
  if (row >= shown) row = shown - 1;
  SelectRow(List(), row);
  InvalidateRect(List(), nullptr, TRUE);
  refreshing_ = false;
  UpdateButtons();
}

void CListPage::UpdateButtons() {
  const int row = SelectedRow(List());
  const struct {
    int id;
    bool enable;
  } buttons[] = {{IDC_ADD_RECORD, RecordCount() < kMaxRecords},
                 {IDC_EDIT_RECORD, row >= 0},
                 {IDC_REMOVE_RECORD, row >= 0},
                 {IDC_MOVE_UP, row > 0},
                 {IDC_MOVE_DOWN, row >= 0 && row + 1 < RecordCount()}};
  for (const auto& button : buttons) {
    // The user goes on where the change is seen, or can be followed by another.
    if (!button.enable && GetFocus() == Item(button.id))
      FocusItem(row >= 0 ? IDC_RECORD_LIST : IDC_ADD_RECORD);
    EnableItem(button.id, button.enable);
  }
}
