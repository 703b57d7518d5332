#include "controls/message.h"

#include "base/names.h"

int ShowMessage(HWND owner, const std::string& text, const char* title, UINT style) {
  return MessageBoxW(owner, Widen(text.substr(0, kMaxMessageLength)).c_str(), Widen(title).c_str(),
                     owner ? style : style | MB_TASKMODAL);
}

int ShowWarning(HWND owner, const std::string& text, const char* title, UINT buttons) {
  MessageBeep(MB_ICONEXCLAMATION);
  return ShowMessage(owner, text, title, buttons | MB_ICONEXCLAMATION);
}
