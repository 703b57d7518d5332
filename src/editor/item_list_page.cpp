#include "editor/item_list_page.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "controls/list_view.h"
#include "editor/item_list_page_ids.h"
#include "model/item_list.h"
#include "resources/resource_ids.h"

CListPage::CListPage(const ItemListTexts& texts)
    : CPropertyPage(IDD_ITEM_LIST_PAGE, texts.Caption), texts_(texts) {}

HWND CListPage::List() const { return Item(IDC_ITEM_LIST); }

bool CListPage::OnInitDialog() {
  SetItemText(IDC_ITEM_LIST_LABEL, texts_.Label);
  SetUpColumns();
  Refresh(0);
  return CPropertyPage::OnInitDialog();
}

void CListPage::SetUpColumns() {
  ListView_SetExtendedListViewStyle(List(), LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
  RECT client;
  GetClientRect(List(), &client);
  int index = 0;
  for (const ListColumn& column : texts_.Columns)
    InsertListColumn(List(), index++, column.Title, client.right * column.Percent / 100);
}

// A scroll bar that has come or gone changes the width.
void CListPage::FitColumns() {
  const auto stretched = std::ranges::find(texts_.Columns, 0, &ListColumn::Percent);
  StretchListColumn(List(), static_cast<int>(stretched - texts_.Columns.begin()));
}

void CListPage::OnCommand(int id, int /*code*/) {
  switch (id) {
    case IDC_ADD_ITEM:
      return OnAdd();
    case IDC_EDIT_ITEM:
      return OnEdit();
    case IDC_REMOVE_ITEM:
      return OnRemove();
    case IDC_MOVE_UP:
      return OnMove(-1);
    case IDC_MOVE_DOWN:
      return OnMove(1);
  }
}

LRESULT CListPage::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_ITEM_LIST) return CPropertyPage::OnNotify(header);
  switch (header.code) {
    case LVN_GETDISPINFOA: {
      const LVITEMA& item = reinterpret_cast<const NMLVDISPINFOA&>(header).item;
      if ((item.mask & LVIF_TEXT) && item.iItem < ItemCount())
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
  if (ItemCount() < kMaxItems && AddItem()) Refresh(ItemCount() - 1);
}

void CListPage::OnEdit() {
  const int row = SelectedRow(List());
  if (row >= 0 && EditItem(row)) Refresh(row);
}

void CListPage::OnRemove() {
  const int row = SelectedRow(List());
  if (row < 0) return;
  RemoveItem(row);
  Refresh(row);
}

void CListPage::OnMove(int distance) {
  const int row = SelectedRow(List());
  SwapItems(row, row + distance);
  Refresh(row + distance);
}

void CListPage::Refresh(int row) {
  refreshing_ = true;
  // The list asks for its texts when it paints them: only the number of rows has to follow.
  int shown = ListView_GetItemCount(List());
  for (; shown > ItemCount(); --shown)
    ListView_DeleteItem(List(), shown - 1);
  for (; shown < ItemCount(); ++shown) {
    InsertListRow(List(), shown, LPSTR_TEXTCALLBACKA, I_IMAGENONE);
    for (int column = 1; column < static_cast<int>(texts_.Columns.size()); ++column)
      SetListCell(List(), shown, column, LPSTR_TEXTCALLBACKA);
  }
  FitColumns();
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
  } buttons[] = {{IDC_ADD_ITEM, ItemCount() < kMaxItems},
                 {IDC_EDIT_ITEM, row >= 0},
                 {IDC_REMOVE_ITEM, row >= 0},
                 {IDC_MOVE_UP, row > 0},
                 {IDC_MOVE_DOWN, row >= 0 && row + 1 < ItemCount()}};
  for (const auto& button : buttons) {
    // The user goes on where the change is seen, or can be followed by another.
    if (!button.enable && GetFocus() == Item(button.id)) FocusItem(row >= 0 ? IDC_ITEM_LIST : IDC_ADD_ITEM);
    EnableItem(button.id, button.enable);
  }
}
