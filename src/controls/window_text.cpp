#include "controls/window_text.h"

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
