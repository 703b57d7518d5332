#include "controls/window_text.h"

#include <commctrl.h>

namespace {

constexpr std::size_t kFirstCellBuffer = 512;
constexpr std::size_t kLongestCell = 64 * 1024;

}  // namespace

std::string WindowText(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
  text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::string ComboItemText(HWND combo, int index) {
  const auto entry = static_cast<WPARAM>(index);
  const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, entry, 0);
  if (length == CB_ERR) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  const LRESULT copied = SendMessageA(combo, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied == CB_ERR ? 0 : static_cast<std::size_t>(copied));
  return text;
}

std::string ListCellText(HWND listView, int row, int column) {
  // A list view does not tell a cell's length; a text that fills the buffer may be cut.
  for (std::size_t size = kFirstCellBuffer;; size = kLongestCell) {
    std::string text(size, '\0');
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(size);
    const LRESULT length =
        SendMessageA(listView, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    text.resize(static_cast<std::size_t>(length));
    if (text.size() + 1 < size || size == kLongestCell) return text;
  }
}

int SelectedRow(HWND listView) { return ListView_GetNextItem(listView, -1, LVNI_SELECTED); }
