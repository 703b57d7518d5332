#include "controls/message.h"

#include <gtest/gtest.h>

#include "support/dialog_script.h"

namespace {

TEST(Message, ShowsAnyTextInTheCodePageUpToItsLimit) {
  const struct {
    std::string text, shown;
  } cases[] = {
      {"Caf\xE9 \x80\n\rline", "Caf\xE9 \x80\n\rline"},
      {"", ""},
      {std::string(40'000, 'x'), std::string(32'000, 'x')},
  };
  DialogScript script;
  for (const auto& each : cases) {
    script.Expect("Caf\xE9", [&each](HWND box) {
      EXPECT_EQ(MessageText(box), each.shown);
      Click(box, IDCANCEL);
    });
    EXPECT_EQ(ShowMessage(nullptr, each.text, "Caf\xE9", MB_OKCANCEL), IDCANCEL);
  }
}

}  // namespace
