#include "controls/list_view.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr int kMinColumnWidth = 40;
constexpr std::size_t kFirstCellBuffer = 512;
constexpr std::size_t kMaxCellText = 64 * 1024;

}  // namespace

void InsertListColumn(HWND list, int index, const char* title, int width) {
  LVCOLUMNA column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  column.cx = width;
  column.pszText = const_cast<char*>(title);
  column.iSubItem = index;
  SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void InsertListRow(HWND list, int row, const char* text, int image, LPARAM data) {
  LVITEMA item{};
  item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
  item.iItem = row;
  item.pszText = const_cast<char*>(text);
  item.iImage = image;
  item.lParam = data;
  SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

void SetListCell(HWND list, int row, int column, const char* text) {
  LVITEMA item{};
  item.iSubItem = column;
  item.pszText = const_cast<char*>(text);
  SendMessageA(list, LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void StretchListColumn(HWND list, int column) {
  RECT client{};
  GetClientRect(list, &client);
  const int columns = Header_GetItemCount(ListView_GetHeader(list));
  int width = client.right;
  for (int i = 0; i < columns; ++i) {
    if (i != column) width -= ListView_GetColumnWidth(list, i);
  }
  ListView_SetColumnWidth(list, column, std::max(width, kMinColumnWidth));
}

std::string ListCellText(HWND list, int row, int column) {
  // A list view does not tell a cell's length; a text that fills the buffer may be cut.
  for (std::size_t size = kFirstCellBuffer;; size = kMaxCellText) {
    std::string text(size, '\0');
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(size);
    const LRESULT length =
        SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    text.resize(static_cast<std::size_t>(length));
    if (text.size() + 1 < size || size == kMaxCellText) return text;
  }
}

int SelectedRow(HWND list) { return ListView_GetNextItem(list, -1, LVNI_SELECTED); }

void SelectRow(HWND list, int row) {
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list, row, FALSE);
}

void FocusFirstRow(HWND list) { ListView_SetItemState(list, 0, LVIS_FOCUSED, LVIS_FOCUSED); }
