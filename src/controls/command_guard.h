// Holds a window back while a command works on the program's one thread.
#pragma once

#include <windows.h>

class CommandGuard {
 public:
  // Disables `window` (EnableWindow); null means the active window of this thread. A window that is disabled
  // already is left as it is: guards may stand inside each other, and the outermost one counts.
  //
  // To be made after a dialog that the window owns was closed: Windows activates another program's window
  // when a dialog closes over a disabled owner.
  explicit CommandGuard(HWND window);
  // Drops the input; the outermost guard enables the window again. It is active again, and has its keyboard
  // focus back, unless the user has gone to another window meanwhile.
  ~CommandGuard();
  CommandGuard(const CommandGuard&) = delete;
  CommandGuard& operator=(const CommandGuard&) = delete;

 private:
  HWND window_;  // null where there is nothing to enable
  HWND focus_;
};

// Drops the keys and clicks that wait for this thread: made while a command ran, they were not meant for the
// window that comes next. A message that is shown inside a guard has them dropped first, or they answer it.
void DropInput();
