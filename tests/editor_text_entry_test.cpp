#include "editor/text_entry.h"

#include <gtest/gtest.h>

#include <vector>

#include "controls/dialog.h"
#include "editor/scheme_name_dialog_ids.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr int kField = IDC_NEW_SCHEME_NAME;
constexpr char kTitle[] = "Scheme Name Problem";

// A dialog whose one field follows any rule.
class CRuleDialog : public CDialog {
 public:
  explicit CRuleDialog(const TextRule& rule) : CDialog(IDD_SCHEME_NAME_PROBLEM), rule_(rule) {}

 private:
  void OnCommand(int id, int code) override {
    if (id == kField && code == EN_CHANGE) ApplyTextRule(Window(), id, rule_);
  }

  const TextRule& rule_;
};

// A message, and what stood in the field while it was shown.
struct Told {
  std::string Caption;
  std::string Text;
  std::string Field;
};

void PasteAndExpect(const TextRule& rule, const std::string& pasted, const std::vector<Told>& messages,
                    const std::string& left) {
  SCOPED_TRACE(pasted);
  CRuleDialog dialog(rule);
  DialogScript script;
  HWND window = nullptr;
  script.Expect(kTitle, [&](HWND shown) {
    window = shown;
    Type(window, kField, pasted);
    EXPECT_EQ(ControlText(window, kField), left);
    DWORD caret = 0;
    SendDlgItemMessageA(window, kField, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    EXPECT_EQ(caret, left.size());
    Click(window, IDOK);
  });
  for (const Told& message : messages) {
    script.Expect(message.Caption, [&](HWND box) {
      EXPECT_EQ(MessageText(box), message.Text);
      EXPECT_EQ(GetWindow(box, GW_OWNER), window);
      EXPECT_EQ(ControlText(window, kField), message.Field);
      Click(box, IDOK);
    });
  }
  dialog.DoModal(nullptr);
}

constexpr char kIllegal[] = "Error: Illegal Character";
constexpr char kTooLong[] = "Error: Text too long";
constexpr char kNames[] = "The following characters are not allowed:\n\n< > ? / \\ : * \" |";
constexpr char kDialogNames[] = "The following characters are not allowed:\n\n< > ? \\ / * \" | :";
constexpr char kUrl[] = "The following characters are not allowed:\n\n< > \\   * \" |";
constexpr char kFifty[] = "There is a limit of 50 characters";

TEST(TextEntry, TellsAndCorrectsInTheOrderOfTheField) {
  const std::string sixty(60, 'x');
  const std::string fifty(50, 'x');
  PasteAndExpect(kSchemeNameRule, "a*b?c", {{kIllegal, kNames, "abc"}, {kIllegal, kNames, "abc"}}, "abc");
  PasteAndExpect(kLinkNameRule, "a*b?c", {{kIllegal, kNames, "a*b?c"}, {kIllegal, kNames, "a*bc"}}, "abc");
  PasteAndExpect(kLinkUrlRule, "a b", {{kIllegal, kUrl, "a b"}}, "ab");
  // One excess, one message, told while the text is still too long.
  PasteAndExpect(kSchemeNameRule, sixty + "*", {{kTooLong, kFifty, sixty}, {kIllegal, kNames, fifty}}, fifty);
  PasteAndExpect(kRootNameRule, sixty + "*", {{kTooLong, kFifty, sixty}, {kIllegal, kDialogNames, fifty}},
                 fifty);
  PasteAndExpect(kLinkNameRule, sixty + "*", {{kIllegal, kNames, sixty + "*"}, {kTooLong, kFifty, sixty}},
                 fifty);
  PasteAndExpect(kLongToolTipRule, std::string(101, '*'),
                 {{kTooLong, "There is a limit of 100 characters", std::string(101, '*')}},
                 std::string(100, '*'));
}

TEST(TextEntry, PutsTheCaretBackWhereTheUserWasTyping) {
  CRuleDialog dialog(kSchemeNameRule);
  DialogScript script;
  script.Expect(kTitle, [](HWND window) {
    Type(window, kField, "Staff");
    SendDlgItemMessageA(window, kField, EM_SETSEL, 2, 2);
    SendDlgItemMessageA(window, kField, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>("o:"));
    EXPECT_EQ(ControlText(window, kField), "Stoaff");
    EXPECT_EQ(SendDlgItemMessageA(window, kField, EM_GETSEL, 0, 0), MAKELRESULT(3, 3));
    Click(window, IDOK);
  });
  script.ExpectMessage(kIllegal, kNames);
  dialog.DoModal(nullptr);
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
