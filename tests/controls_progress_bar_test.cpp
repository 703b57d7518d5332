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
      EXPECT_EQ(ControlText(Window(), IDC_PROGRESS_TEXT), "Saving");
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
  EnableWindow(main_, FALSE);
  { CProgressBar progress(main_, 0, 3, 1, "", kCaption, "Cancel", 0); }
  EXPECT_FALSE(IsWindowEnabled(main_)) << "what was disabled before is somebody else's to enable";
}

TEST_F(ProgressBar, StopsAtItsEndWhateverTheRange) {
  const struct {
    int range, step;
    LRESULT position;
  } cases[] = {{3, 1, 3}, {0, 1, 1}, {-5, 1, 1}, {3, 2, 3}, {INT_MAX, INT_MAX, INT_MAX}, {5, -1, 0}};
  for (const auto& [range, step, position] : cases) {
    CProgressBar progress(main_, 0, range, step, "", kCaption, "Cancel", 0);
    for (int i = 0; i < 3; ++i)
      progress.Step();
    EXPECT_EQ(SendDlgItemMessageA(Window(), IDC_PROGRESS_BAR, PBM_GETPOS, 0, 0), position) << range;
  }
}

}  // namespace
