// The progress window: shown while a long operation runs to its end on the program's one thread.
//
// From construction to destruction the main window is disabled (CommandGuard). The operation calls Step as it
// goes, which lets the program's windows repaint and nothing else: no command, key or click gets through, and
// what was typed meanwhile is dropped at the end. One command may show several such windows in turn, with a
// guard of its own around them all.
#pragma once

#include <windows.h>

#include <optional>

#include "controls/command_guard.h"

class CProgressBar {
 public:
  // Shows the window. `parent` is the window to disable; null means the active one of this thread. `range`
  // is the position at which the bar is full, at least 1, and `step` is what each Step adds. `text` stands
  // above the bar, `caption` is the window's title. The second and the last number mean nothing. When the
  // window cannot be made (CreateDialogParamA), nothing is disabled and the operations do nothing.
  CProgressBar(HWND parent, int, int range, int step, const char* text, const char* caption,
               const char* buttonLabel, int);
  // Enables the parent again, unless it was disabled before, and makes it active in place of the window.
  ~CProgressBar();
  CProgressBar(const CProgressBar&) = delete;
  CProgressBar& operator=(const CProgressBar&) = delete;

  // Enables or disables the button; it is disabled at first. Nothing asks whether it was clicked: every
  // operation of this program runs to its end.
  void SetAllowCancel(int allow);
  // Advances the bar, at most to its end. Costs a repaint four times a second at most, and one at the end:
  // painting after every step would take longer than the work.
  void Step();

 private:
  void ShowPosition();

  const int range_;
  const int step_;
  int position_ = 0;
  DWORD shown_ = 0;  // when the position was last shown, by GetTickCount
  HWND window_ = nullptr;
  HWND bar_ = nullptr;
  std::optional<CommandGuard> guard_;
};
