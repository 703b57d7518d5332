#include "editor/text_entry.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "controls/dialog.h"
#include "editor/scheme_name_dialog_ids.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr int kField = IDC_NEW_SCHEME_NAME;
constexpr std::string_view kTooLong = "There is a limit of 50 characters";
constexpr std::string_view kRefused = kSheetNameMessage;

// A dialog whose one field follows any rule.
struct CRuleDialog : CDialog {
  explicit CRuleDialog(const TextRule& rule) : CDialog(IDD_SCHEME_NAME_PROBLEM), Rule(rule) {}
  void OnCommand(int id, int code) override {
    if (code == EN_CHANGE) ApplyTextRule(Window(), id, Rule);
  }
  const TextRule& Rule;
};

using Told = std::vector<std::pair<std::string_view, std::string>>;

// Pastes a text into a field. `told` are the messages with what stands in the field meanwhile.
void Paste(const TextRule& rule, const std::string& pasted, const Told& told, const std::string& left) {
  DialogScript script;
  script.Expect("Scheme Name Problem", [&](HWND window) {
    Type(window, kField, pasted);
    EXPECT_EQ(ControlText(window, kField), left);
    EXPECT_EQ(SendDlgItemMessageA(window, kField, EM_GETSEL, 0, 0), MAKELONG(left.size(), left.size()));
    Click(window, IDOK);
  });
  for (const auto& [text, field] : told) {
    const char* caption = text == kTooLong ? "Error: Text too long" : "Error: Illegal Character";
    script.Expect(caption, [&text = text, &field = field](HWND box) {
      EXPECT_EQ(MessageText(box), text);
      EXPECT_EQ(ControlText(GetWindow(box, GW_OWNER), kField), field);
      Click(box, IDOK);
    });
  }
  CRuleDialog(rule).DoModal(nullptr);
}

TEST(TextEntry, TellsAndCorrectsInTheOrderOfTheField) {
  Paste(kSchemeNameRule, "a*b?c", {{kRefused, "abc"}, {kRefused, "abc"}}, "abc");
  Paste(kLinkNameRule, "a*b?c", {{kRefused, "a*b?c"}, {kRefused, "a*bc"}}, "abc");
  // One excess, one message, told while the text is still too long.
  const std::string fifty(50, 'x');
  Paste(kSchemeNameRule, fifty + "yz*", {{kTooLong, fifty + "yz"}, {kRefused, fifty}}, fifty);
  Paste(kLinkNameRule, fifty + "yz*", {{kRefused, fifty + "yz*"}, {kTooLong, fifty + "yz"}}, fifty);
}

}  // namespace
