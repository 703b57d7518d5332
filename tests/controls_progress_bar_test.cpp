#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <climits>

#include "controls/progress_bar.h"
#include "controls/progress_bar_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr char kCaption[] = "Progress under test";

// A main window that tells whether it was painted and clicked.
class ProgressBar : public testing::Test {
 protected:
  ProgressBar()
      : main_(CreateWindowA("BUTTON", "Main", WS_OVERLAPPEDWINDOW | WS_VISIBLE | BS_AUTOCHECKBOX, 0, 0, 600,
                            400, nullptr, nullptr, nullptr, nullptr)) {
    SetActiveWindow(main_);
    SetFocus(main_);
    Pump();
  }
  ~ProgressBar() override { DestroyWindow(main_); }

  static HWND Window() { return FindWindowA(nullptr, kCaption); }
  const HWND main_;
};

TEST_F(ProgressBar, IsModalToTheMainWindowAndLetsItPaintOnly) {
  for (const HWND parent : {main_, HWND{}}) {
    {
      CProgressBar progress(parent, 0, 1, 1, "Saving", kCaption, "Cancel", 0);
      EXPECT_EQ(GetWindow(Window(), GW_OWNER), main_);
      EXPECT_FALSE(IsWindowEnabled(main_));
      EXPECT_FALSE(IsWindowEnabled(GetDlgItem(Window(), IDCANCEL)));
      InvalidateRect(main_, nullptr, TRUE);
      SetCursorPos(20, 300);
      mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
      mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
      progress.Step();
      EXPECT_FALSE(GetUpdateRect(main_, nullptr, FALSE)) << "not painted";
    }
    EXPECT_TRUE(IsWindowEnabled(main_));
    EXPECT_EQ(GetActiveWindow(), main_);
    Pump();
    EXPECT_EQ(SendMessageA(main_, BM_GETCHECK, 0, 0), BST_UNCHECKED) << "clicked";
  }
}

// A command shows several such windows in turn, and its guard holds the window back between them, too.
TEST_F(ProgressBar, StandsMoreThanOnceInsideAGuardOfTheWholeCommand) {
  {
    const CommandGuard guard(main_);
    for (int i = 0; i < 2; ++i) {
      { CProgressBar progress(main_, 0, 1, 1, "Saving", kCaption, "Cancel", 0); }
      EXPECT_FALSE(IsWindowEnabled(main_));
    }
    keybd_event(VK_SPACE, 0, 0, 0);
    keybd_event(VK_SPACE, 0, KEYEVENTF_KEYUP, 0);
  }
  EXPECT_TRUE(IsWindowEnabled(main_));
  EXPECT_EQ(GetFocus(), main_);
  Pump();
  EXPECT_EQ(SendMessageA(main_, BM_GETCHECK, 0, 0), BST_UNCHECKED) << "a key of the time before got through";
}

// A themed bar as the user sees it while no timer runs: a fall shows at once, a rise later.
LONG_PTR g_shown;
LRESULT CALLBACK ThemedBar(HWND bar, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  const LRESULT before = DefSubclassProc(bar, PBM_GETPOS, 0, 0);
  const LRESULT result = DefSubclassProc(bar, message, wParam, lParam);
  const LRESULT after = DefSubclassProc(bar, PBM_GETPOS, 0, 0);
  if (after < before) g_shown = after;
  return result;
}

TEST_F(ProgressBar, ShowsItsEndWholeAndStopsThere) {
  const struct {
    int range, step, fullAt;
    LRESULT end;
  } cases[] = {{3, 1, 3, 3}, {0, 1, 1, 1}, {INT_MAX, INT_MAX, INT_MAX - 1, INT_MAX - 1}, {5, -1, 5, 0}};
  for (const auto& [range, step, fullAt, end] : cases) {
    CProgressBar progress(main_, 0, range, step, "", kCaption, "Cancel", 0);
    const HWND bar = GetDlgItem(Window(), IDC_PROGRESS_BAR);
    g_shown = 0;
    SetWindowSubclass(bar, &ThemedBar, 1, 0);
    for (int i = 0; i < 4; ++i)
      progress.Step();
    EXPECT_EQ(g_shown, end) << range;
    EXPECT_EQ(SendMessageA(bar, PBM_GETPOS, 0, 0), end) << range;
    EXPECT_EQ(SendMessageA(bar, PBM_GETRANGE, FALSE, 0), fullAt);
  }
}

TEST_F(ProgressBar, ShowsHowFarItIsFourTimesASecond) {
  CProgressBar progress(main_, 0, 9, 1, "", kCaption, "Cancel", 0);
  const HWND bar = GetDlgItem(Window(), IDC_PROGRESS_BAR);
  progress.Step();
  EXPECT_EQ(SendMessageA(bar, PBM_GETPOS, 0, 0), 0) << "too soon";
  Sleep(300);
  progress.Step();
  EXPECT_EQ(SendMessageA(bar, PBM_GETPOS, 0, 0), 2);
}

}  // namespace
