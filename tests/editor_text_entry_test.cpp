#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "controls/window_text.h"
#include "editor/general_page.h"
#include "editor/root_properties_dialog.h"
#include "editor/scheme_name_dialog.h"
#include "editor/web_link_dialog.h"
#include "editor_driver.h"
#include "support/list_driver.h"

namespace {

// Has no way out but OK.
constexpr char kNameTitle[] = "Scheme Name Problem";
constexpr char kRefused[] = "Error: Illegal Character", kTooLong[] = "Error: Text too long";

// The editor's windows, empty.
void ShowScheme() {
  CPage1 page{SchemeProperties()};
  ShowInSheet(page);
}
void ShowRoot() {
  FolderRoot root;
  CRootPropertiesDialog(root, kNoPictures).DoModal(nullptr);
}
void ShowLink() {
  WebLink link;
  CWebLinkDialog(link, kNoPictures).DoModal(nullptr);
}
void ShowName() { CSchemeNameDialog("").DoModal(nullptr); }

struct Field {
  int Id;
  std::size_t Limit;
  const char* Left;     // of what is typed, <>?/\:*"|#% and a blank
  const char* Message;  // for each character that is not left
};
struct Window {
  const char* Title;
  void (*Show)();
  std::vector<Field> Fields;
};

constexpr char kSheetNames[] = "The following characters are not allowed:\n\n< > ? / \\ : * \" |",
               kDialogNames[] = "The following characters are not allowed:\n\n< > ? \\ / * \" | :",
               kPaths[] = "The following characters are not allowed:\n\n< > ? / * \" |",
               kUrls[] = "The following characters are not allowed:\n\n< > \\   * \" |";
const Window kWindows[] = {
    {"Scheme", &ShowScheme, {{1036, 50, "#% ", kSheetNames}, {1028, 50, "#% ", kSheetNames}}},
    {"Root Properties",
     &ShowRoot,
     {{1036, 50, "#% ", kDialogNames},
      {1037, 255, "\\:#% ", kPaths},
      {1025, 100, "<>?/\\:*\"|#% ", ""},
      {1026, 50, "<>?/\\:*\"|#% ", ""}}},
    {"Web Links",
     &ShowLink,
     {{1036, 50, "#% ", kSheetNames},
      {1088, 255, "?/:#%", kUrls},
      {1025, 100, "<>?/\\:*\"|#% ", ""},
      {1026, 50, "<>?/\\:*\"|#% ", ""}}},
    {kNameTitle, &ShowName, {{1101, 50, "#% ", kDialogNames}}},
};

// Of a dialog, or of the page that a sheet shows.
HWND FieldOf(HWND window, int id) {
  const HWND page = PropSheet_GetCurrentPageHwnd(window);
  return GetDlgItem(page ? page : window, id);
}

TEST(TextEntry, EachFieldIsCorrectedAsItIsTyped) {
  const std::string typed = "<>?/\\:*\"|#% ";
  for (const auto& [title, show, fields] : kWindows) {
    const MessageStyle style = kExclamation.OwnedBy(title);
    DialogScript script;
    script.Expect(title, [&, title = title, &fields = fields](HWND window) {
      for (const auto& [id, limit, left, message] : fields) {
        SCOPED_TRACE(id);
        const HWND edit = FieldOf(window, id);
        for (std::size_t i = std::string(left).size(); i < typed.size(); ++i)
          script.ExpectMessage(style, kRefused, message);
        Type(GetParent(edit), id, typed);
        EXPECT_EQ(WindowText(edit), left);

        script.ExpectMessage(style, kTooLong, "There is a limit of " + std::to_string(limit) + " characters");
        Type(GetParent(edit), id, std::string(limit + 2, 'x'));
        EXPECT_EQ(WindowText(edit), std::string(limit, 'x'));
      }
      Click(window, title == kNameTitle ? IDOK : IDCANCEL);
    });
    show();
  }
}

// Told over the window that fills itself with it, and kept unless that is confirmed.
TEST(TextEntry, AStoredTextIsCorrectedToo) {
  const std::string full(50, 'x');
  for (const int button : {IDOK, IDCANCEL}) {
    WebLink link{full + "yz|", "www.example.com", "", "", "", ""};
    SchemeProperties scheme;
    scheme.Name = full + "yz|";
    DialogScript script;
    const auto leave = AfterItsMessages([button](HWND window) { Click(window, button); });
    script.Expect("Web Links", leave)
        .ExpectMessage(kExclamation.OwnedBy("Web Links"), kRefused, kSheetNames)
        .ExpectMessage(kExclamation.OwnedBy("Web Links"), kTooLong, "There is a limit of 50 characters");
    CWebLinkDialog(link, kNoPictures).DoModal(nullptr);
    EXPECT_EQ(link.DisplayName, button == IDOK ? full : full + "yz|");

    CPage1 page(scheme);
    script.Expect("Scheme", leave)
        .ExpectMessage(kExclamation.OwnedBy("Scheme"), kTooLong, "There is a limit of 50 characters")
        .ExpectMessage(kExclamation.OwnedBy("Scheme"), kRefused, kSheetNames);
    EXPECT_EQ(ShowInSheet(page), button);
    page.CopyTo(scheme);
    EXPECT_EQ(scheme.Name, button == IDOK ? full : full + "yz|");
  }
}

TEST(TextEntry, TellsAndCorrectsInTheOrderOfTheField) {
  const std::string fifty(50, 'x');
  const struct {
    const Window& Shown;  // of which the first field is filled
    std::string Pasted;
    std::vector<std::pair<const char*, std::string>> Told;  // with what stands in the field meanwhile
    std::string Left;
  } rows[] = {
      {kWindows[0], "a*b?c", {{kRefused, "abc"}, {kRefused, "abc"}}, "abc"},
      {kWindows[2], "a*b?c", {{kRefused, "a*b?c"}, {kRefused, "a*bc"}}, "abc"},
      // One excess, one message, told while the text is still too long.
      {kWindows[0], fifty + "yz*", {{kTooLong, fifty + "yz"}, {kRefused, fifty}}, fifty},
      {kWindows[2], fifty + "yz*", {{kRefused, fifty + "yz*"}, {kTooLong, fifty + "yz"}}, fifty},
  };
  for (const auto& [window, pasted, told, left] : rows) {
    HWND edit = nullptr;
    DialogScript script;
    script.Expect(window.Title, [&, &pasted = pasted, &left = left](HWND shown) {
      edit = FieldOf(shown, 1036);
      Type(GetParent(edit), 1036, pasted);
      EXPECT_EQ(WindowText(edit), left);
      EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), MAKELONG(left.size(), left.size())) << "the caret";
      PressCancel(shown);
    });
    for (const auto& [caption, text] : told) {
      script.Expect(caption, [&edit, &text = text](HWND box) {
        EXPECT_EQ(WindowText(edit), text);
        PressOK(box);
      });
    }
    window.Show();
  }
}

}  // namespace
