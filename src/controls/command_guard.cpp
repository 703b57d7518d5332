#include "controls/command_guard.h"

CommandGuard::CommandGuard(HWND window) : window_(window ? window : GetActiveWindow()), focus_(GetFocus()) {
  // True where it was disabled before.
  if (window_ && EnableWindow(window_, FALSE)) window_ = nullptr;
}

CommandGuard::~CommandGuard() {
  DropInput();
  if (!window_) return;
  EnableWindow(window_, TRUE);
  if (!GetActiveWindow()) SetActiveWindow(window_);
  // A window that becomes active while it is disabled cannot give the focus to its control.
  if (!GetFocus() && GetActiveWindow() == window_) SetFocus(IsChild(window_, focus_) ? focus_ : window_);
}

void DropInput() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT)) {
  }
}
