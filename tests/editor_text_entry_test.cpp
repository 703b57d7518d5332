#include "editor/text_entry.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "controls/dialog.h"
#include "editor/scheme_name_dialog_ids.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr char kIllegal[] = "Error: Illegal Character";
constexpr char kTooLong[] = "Error: Text too long";

// A dialog whose one field follows any rule.
class CRuleDialog : public CDialog {
 public:
  explicit CRuleDialog(const TextRule& rule) : CDialog(IDD_SCHEME_NAME_PROBLEM), rule_(rule) {}

 private:
  void OnCommand(int id, int code) override {
    if (code == EN_CHANGE) ApplyTextRule(Window(), id, rule_);
  }
  const TextRule& rule_;
};

TEST(TextEntry, TellsAndCorrectsInTheOrderOfTheField) {
  const std::string fifty(50, 'x');
  const std::string excess = fifty + "yz";
  struct {
    const TextRule& rule;
    std::string pasted;
    std::vector<std::pair<const char*, std::string>> told;  // with what stood in the field meanwhile
    std::string left;
  } const rows[] = {
      {kSchemeNameRule, "a*b?c", {{kIllegal, "abc"}, {kIllegal, "abc"}}, "abc"},
      {kLinkNameRule, "a*b?c", {{kIllegal, "a*b?c"}, {kIllegal, "a*bc"}}, "abc"},
      // One excess, one message, told while the text is still too long.
      {kSchemeNameRule, excess + "*", {{kTooLong, excess}, {kIllegal, fifty}}, fifty},
      {kLinkNameRule, excess + "*", {{kIllegal, excess + "*"}, {kTooLong, excess}}, fifty},
      {kShortToolTipRule, excess, {{kTooLong, excess}}, fifty},
  };
  for (const auto& row : rows) {
    CRuleDialog dialog(row.rule);
    DialogScript script;
    script.Expect("Scheme Name Problem", [&](HWND window) {
      Type(window, IDC_NEW_SCHEME_NAME, row.pasted);
      EXPECT_EQ(ControlText(window, IDC_NEW_SCHEME_NAME), row.left);
      const auto caret = static_cast<int>(row.left.size());
      EXPECT_EQ(SendDlgItemMessageA(window, IDC_NEW_SCHEME_NAME, EM_GETSEL, 0, 0), MAKELRESULT(caret, caret));
      Click(window, IDOK);
    });
    for (const auto& [caption, field] : row.told) {
      script.Expect(caption, [&, tooLong = caption == kTooLong, field = &field](HWND box) {
        EXPECT_EQ(MessageText(box), tooLong ? "There is a limit of 50 characters" : row.rule.RefusedMessage);
        EXPECT_EQ(ControlText(GetWindow(box, GW_OWNER), IDC_NEW_SCHEME_NAME), *field);
        Click(box, IDOK);
      });
    }
    dialog.DoModal(nullptr);
  }
}

TEST(TextEntry, SaysWhyAUrlIsRefused) {
  constexpr char kCaption[] = "Invalid characters in URL";
  DialogScript script;
  script.ExpectMessage(kCaption,
                       "Invalid characters have been found in the URL\n\r\n\rPlease do not use the "
                       "characters:\n\r{}|\\^~[]'<>\"#%@!");
  script.ExpectMessage(kCaption, "A space has been found in the URL\n\rPlease re-enter URL and try again.");
  EXPECT_FALSE(CheckUrl("school.example/#top"));
  EXPECT_FALSE(CheckUrl("school .example"));
  EXPECT_TRUE(CheckUrl("school.example/a%20b"));
}

}  // namespace
