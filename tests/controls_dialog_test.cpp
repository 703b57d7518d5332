#include <gtest/gtest.h>

#include "base/message.h"
#include "support/dialog_script.h"

namespace {

TEST(DialogScript, NestsAndAnswers) {
  DialogScript script;
  int inner = 0;
  script
      .Expect("Outer",
              [&](HWND box) {
                inner = ShowMessage(box, "second", "Inner", MB_OKCANCEL);
                Click(box, IDOK);
              })
      .ExpectMessage("Inner", "second", IDCANCEL);
  EXPECT_EQ(ShowWarning(nullptr, "first", "Outer"), IDOK);
  EXPECT_EQ(inner, IDCANCEL);
}

}  // namespace
