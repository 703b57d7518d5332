#include "controls/progress_bar.h"

#include <commctrl.h>

#include <algorithm>

#include "controls/progress_bar_ids.h"
#include "resources/resource_ids.h"

namespace {

constexpr DWORD kShowInterval = 33;  // milliseconds

INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

// The window that a progress window without a named parent belongs to.
HWND ActiveMainWindow() {
  const HWND active = GetActiveWindow();
  return active ? GetAncestor(active, GA_ROOT) : nullptr;
}

// Lets windows repaint and no more. One round at most for each window: a window that keeps itself invalid
// must not hold the work up.
void PaintWindows() {
  constexpr int kMostPaints = 64;
  MSG message;
  for (int i = 0; i < kMostPaints && PeekMessageA(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i)
    DispatchMessageA(&message);
}

// Keys and clicks made while the work ran were not meant for the window that comes back.
void DropInput() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT)) {
  }
}

}  // namespace

CProgressBar::CProgressBar(HWND parent, int, int range, int step, const char* text, const char* caption,
                           const char* buttonLabel, int)
    : range_(std::max(range, 1)), step_(std::max(step, 0)) {
  if (!parent) parent = ActiveMainWindow();
  window_ =
      CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_PROGRESS), parent, &Procedure, 0);
  if (!window_) return;
  SetWindowTextA(window_, caption);
  SetDlgItemTextA(window_, IDC_PROGRESS_TEXT, text);
  SetDlgItemTextA(window_, IDCANCEL, buttonLabel);
  bar_ = GetDlgItem(window_, IDC_PROGRESS_BAR);
  SendMessageA(bar_, PBM_SETRANGE32, 0, range_);
  // A parent that is disabled already is somebody else's to enable.
  if (parent && !EnableWindow(parent, FALSE)) parent_ = parent;
  ShowWindow(window_, SW_SHOW);
  UpdateWindow(window_);
  PaintWindows();
  shown_ = GetTickCount();
}

CProgressBar::~CProgressBar() {
  if (!window_) return;
  DropInput();
  const bool active = GetActiveWindow() == window_;
  // Enabled first: Windows would otherwise activate another program's window.
  if (parent_) EnableWindow(parent_, TRUE);
  DestroyWindow(window_);
  if (parent_ && active) SetActiveWindow(parent_);
}

void CProgressBar::SetAllowCancel(int allow) { EnableWindow(GetDlgItem(window_, IDCANCEL), allow != 0); }

void CProgressBar::Step() {
  if (!window_ || position_ == range_) return;
  position_ = static_cast<int>(std::min<long long>(range_, static_cast<long long>(position_) + step_));
  if (position_ == range_ || GetTickCount() - shown_ >= kShowInterval) ShowPosition();
}

void CProgressBar::ShowPosition() {
  // A themed bar glides to a higher position on a timer, which does not run here; a lower one it shows at
  // once.
  SendMessageA(bar_, PBM_SETPOS, static_cast<WPARAM>(position_) + 1, 0);
  SendMessageA(bar_, PBM_SETPOS, static_cast<WPARAM>(position_), 0);
  PaintWindows();
  shown_ = GetTickCount();
}
