#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <climits>

#include "controls/progress_bar.h"
#include "controls/progress_bar_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr char kCaption[] = "Progress under test";

// A main window that counts what reaches it.
struct MainWindow {
  static inline int paints, clicks;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) ++paints;
    if (message == WM_LBUTTONDOWN) ++clicks;
    return DefWindowProcA(window, message, wParam, lParam);
  }

  MainWindow() {
    WNDCLASSA description{};
    description.lpfnWndProc = &Procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "ProgressTestMain";
    RegisterClassA(&description);
    handle = CreateWindowA("ProgressTestMain", "Main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 400,
                           nullptr, nullptr, description.hInstance, nullptr);
    SetActiveWindow(handle);
    Pump();
    paints = clicks = 0;
  }
  ~MainWindow() { DestroyWindow(handle); }

  HWND handle;
};

HWND ProgressWindow() { return FindWindowA(nullptr, kCaption); }

LRESULT Position() { return SendDlgItemMessageA(ProgressWindow(), IDC_PROGRESS_BAR, PBM_GETPOS, 0, 0); }

void Step(CProgressBar& progress, int times) {
  for (int i = 0; i < times; ++i)
    progress.Step();
}

TEST(ProgressBar, IsModalToTheMainWindowAndLetsItPaintOnly) {
  MainWindow main;
  for (const HWND parent : {main.handle, HWND{}}) {
    MainWindow::paints = 0;
    {
      CProgressBar progress(parent, 0, 3, 1, "Saving", kCaption, "Cancel", 0);
      progress.SetAllowCancel(0);
      const HWND window = ProgressWindow();
      EXPECT_EQ(GetWindow(window, GW_OWNER), main.handle);
      EXPECT_FALSE(IsWindowEnabled(main.handle));
      EXPECT_EQ(ControlText(window, IDC_PROGRESS_TEXT), "Saving");
      EXPECT_EQ(ControlText(window, IDCANCEL), "Cancel");
      EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDCANCEL)));
      InvalidateRect(main.handle, nullptr, TRUE);
      SetCursorPos(20, 300);
      mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
      mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
      Step(progress, 3);
      EXPECT_EQ(Position(), 3);
      EXPECT_GT(MainWindow::paints, 0);
    }
    EXPECT_EQ(ProgressWindow(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(main.handle));
    EXPECT_EQ(GetActiveWindow(), main.handle);
    Pump();
    EXPECT_EQ(MainWindow::clicks, 0);
  }
}

TEST(ProgressBar, LeavesADisabledParentDisabled) {
  MainWindow main;
  EnableWindow(main.handle, FALSE);
  { CProgressBar progress(main.handle, 0, 3, 1, "", kCaption, "Cancel", 0); }
  EXPECT_FALSE(IsWindowEnabled(main.handle));
}

TEST(ProgressBar, StopsAtItsEndWhateverTheRange) {
  MainWindow main;
  const struct {
    int range, step, times;
    LRESULT position;
  } cases[] = {{0, 1, 3, 1}, {-5, 1, 3, 1}, {3, 2, 9, 3}, {INT_MAX, INT_MAX, 3, INT_MAX}, {5, -1, 2, 0}};
  for (const auto& [range, step, times, position] : cases) {
    SCOPED_TRACE(range);
    CProgressBar progress(main.handle, 0, range, step, "", kCaption, "Cancel", 0);
    Step(progress, times);
    EXPECT_EQ(Position(), position);
  }
}

}  // namespace
