#include "controls/message.h"

int ShowMessage(HWND owner, const std::string& text, const char* title, UINT style) {
  return MessageBoxA(owner, text.c_str(), title, owner ? style : style | MB_TASKMODAL);
}

int ShowWarning(HWND owner, const std::string& text, const char* title, UINT buttons) {
  MessageBeep(MB_ICONEXCLAMATION);
  return ShowMessage(owner, text, title, buttons | MB_ICONEXCLAMATION);
}
