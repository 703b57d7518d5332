// The test program for Windows.

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include "support/watchdog.h"

namespace {

class FeedWatchdog : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { Watchdog::Feed(); }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new FeedWatchdog);
  Watchdog::Start();
  // A crash shows as a failed run, not as a dialog that waits for somebody.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  return RUN_ALL_TESTS();
}
