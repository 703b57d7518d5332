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

constexpr char kRefused[] = "Error: Illegal Character", kTooLong[] = "Error: Text too long";

// The editor's windows, each with a text in one of its fields. They return what is kept in the end.
template <auto Member>
std::string EditScheme(const std::string& text) {
  SchemeProperties scheme;
  scheme.*Member = text;
  CPage1 page(scheme);
  if (ShowInSheet(page) == IDOK) page.CopyTo(scheme);
  return scheme.*Member;
}

template <auto Member>
std::string EditRoot(const std::string& text) {
  FolderRoot root;
  root.RootDisplayName = "Name";
  root.RootPath = "C:\\";
  root.*Member = text;
  CRootPropertiesDialog(root, kNoPictures).DoModal(nullptr);
  return root.*Member;
}

template <auto Member>
std::string EditLink(const std::string& text) {
  WebLink link;
  link.DisplayName = "Name";
  link.URL = "www.example.com";
  link.*Member = text;
  CWebLinkDialog(link, kNoPictures).DoModal(nullptr);
  return link.*Member;
}

std::string EditName(const std::string& text) {
  CSchemeNameDialog dialog(text);
  dialog.DoModal(nullptr);
  return dialog.Name();
}

enum Order { kTellsLengthFirst, kTellsCharacterFirst };
struct Field {
  const char* window;
  int id;
  std::string (*edit)(const std::string& text);
  std::size_t limit;
  const char* limitMessage;
  const char* refused = nullptr;
  Order order = kTellsLengthFirst;
};

constexpr char k50[] = "There is a limit of 50 characters", k100[] = "There is a limit of 100 characters",
               k255[] = "There is a limit of 255 characters";
constexpr char kSheetNames[] = "The following characters are not allowed:\n\n< > ? / \\ : * \" |",
               kDialogNames[] = "The following characters are not allowed:\n\n< > ? \\ / * \" | :",
               kPaths[] = "The following characters are not allowed:\n\n< > ? / * \" |",
               kUrls[] = "The following characters are not allowed:\n\n< > \\   * \" |";
constexpr char kSheet[] = "Scheme", kRoot[] = "Root Properties", kLink[] = "Web Links",
               kName[] = "Scheme Name Problem";
constexpr Field kFields[] = {
    {kSheet, 1036, &EditScheme<&SchemeProperties::Name>, 50, k50, kSheetNames},
    {kSheet, 1028, &EditScheme<&SchemeProperties::Description>, 50, k50, kSheetNames},
    {kRoot, 1036, &EditRoot<&FolderRoot::RootDisplayName>, 50, k50, kDialogNames},
    {kRoot, 1037, &EditRoot<&FolderRoot::RootPath>, 255, k255, kPaths},
    {kRoot, 1025, &EditRoot<&FolderRoot::LongToolTip>, 100, k100},
    {kRoot, 1026, &EditRoot<&FolderRoot::ShortToolTip>, 50, k50},
    {kName, 1101, &EditName, 50, k50, kDialogNames},
    {kLink, 1036, &EditLink<&WebLink::DisplayName>, 50, k50, kSheetNames, kTellsCharacterFirst},
    {kLink, 1088, &EditLink<&WebLink::URL>, 255, k255, kUrls, kTellsCharacterFirst},
    {kLink, 1025, &EditLink<&WebLink::LongToolTip>, 100, k100},
    {kLink, 1026, &EditLink<&WebLink::ShortToolTip>, 50, k50},
};

// Of a dialog, or of the page that a sheet shows.
HWND FieldOf(HWND window, int id) {
  const HWND page = PropSheet_GetCurrentPageHwnd(window);
  return GetDlgItem(page ? page : window, id);
}

// What a text that is too long and, where the field refuses characters, holds one of them is told of.
void ExpectBothMessages(DialogScript& script, const Field& field) {
  const MessageStyle style = kExclamation.OwnedBy(field.window);
  if (field.refused && field.order == kTellsCharacterFirst)
    script.ExpectMessage(style, kRefused, field.refused);
  script.ExpectMessage(style, kTooLong, field.limitMessage);
  if (field.refused && field.order == kTellsLengthFirst) script.ExpectMessage(style, kRefused, field.refused);
}

TEST(TextEntry, EachFieldIsCorrectedWhoeverSetsItsText) {
  for (const Field& field : kFields) {
    SCOPED_TRACE(std::string(field.window) + " " + std::to_string(field.id));
    const std::string full(field.limit, 'x');
    const std::string text = full + (field.refused ? "yz|" : "yz");
    DialogScript script;
    // Typed or pasted.
    script.Expect(field.window, [&](HWND window) {
      const HWND edit = FieldOf(window, field.id);
      Type(GetParent(edit), field.id, text);
      PressOK(window);
    });
    ExpectBothMessages(script, field);
    EXPECT_EQ(field.edit("short"), full);
    // Stored, so that the window fills itself with it: told over the window, and kept until OK.
    script.Expect(field.window, AfterItsMessages([&](HWND window) {
                    EXPECT_EQ(WindowText(FieldOf(window, field.id)), full);
                    PressOK(window);
                  }));
    ExpectBothMessages(script, field);
    EXPECT_EQ(field.edit(text), full);
    if (field.window == kName) continue;  // has no way out but OK
    script.Expect(field.window, AfterItsMessages(&PressCancel));
    ExpectBothMessages(script, field);
    EXPECT_EQ(field.edit(text), text);
  }
}

TEST(TextEntry, TellsAndCorrectsInTheOrderOfTheField) {
  const std::string fifty(50, 'x');
  const struct {
    const Field& field;
    std::string pasted;
    std::vector<std::pair<const char*, std::string>> told;  // with what stands in the field meanwhile
    std::string left;
  } rows[] = {
      {kFields[0], "a*b?c", {{kRefused, "abc"}, {kRefused, "abc"}}, "abc"},
      {kFields[7], "a*b?c", {{kRefused, "a*b?c"}, {kRefused, "a*bc"}}, "abc"},
      // One excess, one message, told while the text is still too long.
      {kFields[0], fifty + "yz*", {{kTooLong, fifty + "yz"}, {kRefused, fifty}}, fifty},
      {kFields[7], fifty + "yz*", {{kRefused, fifty + "yz*"}, {kTooLong, fifty + "yz"}}, fifty},
  };
  for (const auto& [field, pasted, told, left] : rows) {
    HWND edit = nullptr;
    DialogScript script;
    script.Expect(field.window, [&, &field = field, &pasted = pasted, &left = left](HWND window) {
      edit = FieldOf(window, field.id);
      Type(GetParent(edit), field.id, pasted);
      EXPECT_EQ(WindowText(edit), left);
      EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), MAKELONG(left.size(), left.size())) << "the caret";
      PressOK(window);
    });
    for (const auto& [caption, text] : told) {
      script.Expect(caption, [&edit, &text = text](HWND box) {
        EXPECT_EQ(WindowText(edit), text);
        PressOK(box);
      });
    }
    field.edit("");
  }
}

}  // namespace
