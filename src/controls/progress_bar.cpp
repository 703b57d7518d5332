#include "controls/progress_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <climits>

#include "controls/progress_bar_ids.h"
#include "resources/resource_ids.h"

namespace {

constexpr DWORD kShowInterval = 250;  // milliseconds

INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

// The window that a progress window without a named parent belongs to.
HWND ActiveMainWindow() {
  const HWND active = GetActiveWindow();
  return active ? GetAncestor(active, GA_ROOT) : nullptr;
}

// Lets windows repaint and no more. One round at most for each window: a window that keeps itself invalid
// must not hold the work up.
void PaintWindows() {
  constexpr int kMaxPaints = 64;
  MSG message;
  for (int i = 0; i < kMaxPaints && PeekMessageA(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i)
    DispatchMessageA(&message);
}

}  // namespace

CProgressBar::CProgressBar(HWND parent, int, int range, int step, const char* text, const char* caption,
                           const char* buttonLabel, int)
    // One short of the largest number: see ShowPosition.
    : range_(std::clamp(range, 1, INT_MAX - 1)), step_(std::max(step, 0)) {
  if (!parent) parent = ActiveMainWindow();
  window_ =
      CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_PROGRESS), parent, &Procedure, 0);
  if (!window_) return;
  SetWindowTextA(window_, caption);
  SetDlgItemTextA(window_, IDC_PROGRESS_TEXT, text);
  SetDlgItemTextA(window_, IDCANCEL, buttonLabel);
  bar_ = GetDlgItem(window_, IDC_PROGRESS_BAR);
  SendMessageA(bar_, PBM_SETRANGE32, 0, range_);
  guard_.emplace(parent);
  ShowWindow(window_, SW_SHOW);
  UpdateWindow(window_);
  PaintWindows();
  shown_ = GetTickCount();
}

CProgressBar::~CProgressBar() {
  if (!window_) return;
  const HWND parent = GetWindow(window_, GW_OWNER);
  // Enabled and active first: Windows would otherwise activate another program's window.
  guard_.reset();
  if (parent && GetActiveWindow() == window_) SetActiveWindow(parent);
  DestroyWindow(window_);
}

void CProgressBar::SetAllowCancel(int allow) { EnableWindow(GetDlgItem(window_, IDCANCEL), allow != 0); }

void CProgressBar::Step() {
  if (!window_ || position_ == range_) return;
  position_ = static_cast<int>(std::min<long long>(range_, static_cast<long long>(position_) + step_));
  if (position_ == range_ || GetTickCount() - shown_ >= kShowInterval) ShowPosition();
}

// A themed bar glides to a higher position on a timer, which does not run here; a lower one it shows at once.
// So it goes one further and back, with room for that beyond its end.
void CProgressBar::ShowPosition() {
  SendMessageA(bar_, PBM_SETRANGE32, 0, range_ + LPARAM{1});
  SendMessageA(bar_, PBM_SETPOS, static_cast<WPARAM>(position_) + 1, 0);
  SendMessageA(bar_, PBM_SETPOS, static_cast<WPARAM>(position_), 0);
  SendMessageA(bar_, PBM_SETRANGE32, 0, range_);
  PaintWindows();
  shown_ = GetTickCount();
}
