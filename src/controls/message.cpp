#include "controls/message.h"

#include <string_view>

namespace {

std::wstring Widen(std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // a byte becomes one character at most
  wide.resize(
      static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length)));
  return wide;
}

}  // namespace

int ShowMessage(HWND owner, const std::string& text, const char* title, UINT style) {
  const std::string_view shown = std::string_view(text).substr(0, kMaxMessageLength);
  return MessageBoxW(owner, Widen(shown).c_str(), Widen(title).c_str(), owner ? style : style | MB_TASKMODAL);
}

int ShowWarning(HWND owner, const std::string& text, const char* title, UINT buttons) {
  MessageBeep(MB_ICONEXCLAMATION);
  return ShowMessage(owner, text, title, buttons | MB_ICONEXCLAMATION);
}
