// What a screen reader learns of a window (AccessibleObjectFromWindow).
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct AccessibleControl {
  HWND Window = nullptr;
  int Id = 0;
  std::string Name;      // "" when it has none
  std::string Role;      // the system's word for it: "push button"; Wine says "client" of most
  std::string State;     // the system's words, with commas between: "focused,focusable"
  std::string Shortcut;  // "Alt+N"
};

// Everything in the dialog, or on the pages of the sheet, that can take the focus, in the order of the Tab
// key. The controls inside a control do not count. Throws std::runtime_error where a control has no
// accessible object.
std::vector<AccessibleControl> FocusableControls(HWND dialog);
