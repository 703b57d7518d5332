#pragma once

#include <windows.h>

// The cursor is an hour-glass while this stands (SetCursor). For work on the program's one thread, during
// which no message sets another cursor.
class WaitCursor {
 public:
  WaitCursor() : previous_(SetCursor(LoadCursorA(nullptr, IDC_WAIT))) {}
  ~WaitCursor() { SetCursor(previous_); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  const HCURSOR previous_;
};
