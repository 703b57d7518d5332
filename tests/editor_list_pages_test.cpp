#include <windows.h>

#include <dlgs.h>

#include "editor/files_page.h"
#include "editor/icon_picker_ids.h"
#include "editor/links_page.h"
#include "editor/root_properties_dialog.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/web_link_dialog.h"
#include "editor/web_link_dialog_ids.h"
#include "support/list_driver.h"
#include "support/picture_machine.h"

namespace {

constexpr char kLinkTitle[] = "Web Links", kRootTitle[] = "Root Properties",
               kPickerTitle[] = "Choose a Picture";

using ListPages = PictureMachineTest;

HWND List(HWND sheet) { return GetDlgItem(PropSheet_GetCurrentPageHwnd(sheet), IDC_ITEM_LIST); }

// Presses a key on a control. Answers the names in the list, a bar, and the first letters of those of the
// controls List, Add, Edit, Remove, Up and Down that are enabled; the selected row and the focus in brackets.
std::string After(HWND sheet, int focused, WPARAM key) {
  const HWND page = PropSheet_GetCurrentPageHwnd(sheet);
  SetFocus(GetDlgItem(page, focused));
  PressKey(key);
  Pump();
  const auto mark = [](const std::string& text, bool marked) { return marked ? "[" + text + "]" : text; };
  std::string look;
  for (int row = 0; row < ListView_GetItemCount(List(sheet)); ++row)
    look += mark(ListCellText(List(sheet), row, 0), SelectedRow(List(sheet)) == row) + " ";
  look += "| ";
  for (const auto& [id, letter] : {std::pair{IDC_ITEM_LIST, "L"},
                                   {IDC_ADD_ITEM, "A"},
                                   {IDC_EDIT_ITEM, "E"},
                                   {IDC_REMOVE_ITEM, "R"},
                                   {IDC_MOVE_UP, "U"},
                                   {IDC_MOVE_DOWN, "D"}})
    if (IsWindowEnabled(GetDlgItem(page, id))) look += mark(letter, GetFocus() == GetDlgItem(page, id));
  return look;
}

DialogScript::Action EnterLink(const std::string& name, const std::string& url, int button = IDOK) {
  return [=](HWND dialog) {
    Type(dialog, IDC_LINK_NAME, name);
    Type(dialog, IDC_LINK_URL, url);
    Click(dialog, button);
  };
}

void PressOK(HWND dialog) { Click(dialog, IDOK); }

TEST_F(ListPages, AddEditMoveAndRemove) {
  const PictureFolders folders = Folders();
  CPage2 page(folders);
  page.Links = {{"a", "", "", "", "", "a.wav"}, {"b", "", "", "", "", ""}};
  DialogScript script;
  script.Expect(kSheetTitle, [&](HWND sheet) {
    EXPECT_EQ(After(sheet, IDC_ADD_ITEM, VK_SPACE), "a b [c] | L[A]ERU");
    EXPECT_EQ(After(sheet, IDC_MOVE_UP, VK_SPACE), "a [c] b | LAER[U]D");
    EXPECT_EQ(After(sheet, IDC_MOVE_UP, VK_SPACE), "[c] a b | [L]AERD");
    EXPECT_EQ(After(sheet, IDC_MOVE_DOWN, VK_SPACE), "a [c] b | LAERU[D]");
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_INSERT), "a [c] b | [L]AERUD");
    SelectRow(List(sheet), 0);
    SendMessageA(List(sheet), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 30));
    EXPECT_EQ(ListCellText(List(sheet), 0, 1), "https://new");
    EXPECT_EQ(After(sheet, IDC_EDIT_ITEM, VK_SPACE), "[new] c b | LA[E]RD");
    EXPECT_EQ(page.Links, (std::vector<WebLink>{{"new", "https://new", "", "", "", "a.wav"},
                                                {"c", "c.example/100%25?x", "", "", "", ""},
                                                {"b", "", "", "", "", ""}}));
    EXPECT_EQ(After(sheet, IDC_REMOVE_ITEM, VK_SPACE), "[c] b | LAE[R]D");
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_DELETE), "[b] | [L]AER");
    EXPECT_EQ(After(sheet, IDC_REMOVE_ITEM, VK_SPACE), "| L[A]");
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_DELETE), "| [L]A");
    Click(sheet, IDOK);
  });
  script.Expect(kLinkTitle, EnterLink("c", "c.example/100%25?x"));
  script.Expect(kLinkTitle, EnterLink("not taken", "x", IDCANCEL));
  script.Expect(kLinkTitle, EnterLink("new", "https://new"));
  script.Expect(kLinkTitle, EnterLink("not taken", "x", IDCANCEL));
  EXPECT_EQ(ShowInSheet(page), IDOK);
  EXPECT_TRUE(page.Links.empty());
}

TEST_F(ListPages, LinksNeedANameAndAUrlAndKeepTheirPicture) {
  AddPicture("Default\\A.bmp");
  const std::string b = AddPicture("User\\B.bmp"), elsewhere = AddPicture("Elsewhere\\D.bmp");
  const struct {
    std::string stored, shown, chosen, expected;
  } cases[] = {{"", "(no picture)", "B.bmp", "B.bmp"},
               {"a.BMP", "A.bmp", "A.bmp", "a.BMP"},
               {"A.bmp", "A.bmp", "(no picture)", ""},
               {"Gone.bmp", "Gone.bmp (missing)", "Gone.bmp (missing)", "Gone.bmp"},
               {elsewhere, "D.bmp", "D.bmp", elsewhere},
               {b, "B.bmp", "B.bmp", b}};
  DialogScript script;
  for (const auto& each : cases) {
    WebLink link{"a", "", each.stored, "", "", "a.wav"};
    script.Expect(kLinkTitle, [&each](HWND dialog) {
      const HWND list = GetDlgItem(dialog, IDC_LINK_PICTURES);
      EXPECT_EQ(ListCellText(list, SelectedRow(list), 0), each.shown);
      SelectRow(list, FindRow(list, each.chosen));
      for (const auto& [name, url, focused] : {std::tuple{"", "", IDC_LINK_NAME},
                                               {"Name", " ", IDC_LINK_URL},
                                               {"Name", "http://a#b", IDC_LINK_URL}}) {
        EnterLink(name, url)(dialog);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), focused) << name << " at " << url;
      }
      EXPECT_EQ(ControlText(dialog, IDC_LINK_URL), "");
      Type(dialog, IDC_LINK_LONG_TOOLTIP, std::string(101, 'l'));
      EnterLink("Name", "www.example.com")(dialog);
    });
    script.ExpectMessage("Missing Name", "The Name is missing.\n\rPlease enter the Name and try again.");
    script.Expect("Error: Illegal Character", &PressOK);
    script.ExpectMessage("Missing URL", "The URL is missing.\n\rPlease enter the URL and try again.");
    script.Expect("Invalid characters in URL", &PressOK);
    script.ExpectMessage("Error: Text too long", "There is a limit of 100 characters");
    EXPECT_EQ(CWebLinkDialog(link, Folders()).DoModal(nullptr), IDOK);
    EXPECT_EQ(link, (WebLink{"Name", "www.example.com", each.expected, std::string(100, 'l'), "", "a.wav"}));
  }
}

TEST_F(ListPages, RootsAreEditedWithTheirPictures) {
  AddPicture("Default\\A.bmp");
  const std::string globe = AddPicture("Icons\\Globe.ico"), elsewhere = AddPicture("Elsewhere\\D.bmp");
  const PictureFolders folders = Folders();
  CPage3 page(folders);
  page.Roots = {{"My Work", "H:\\", 3, "A.bmp", "Gone.bmp", "long", "short", "open.wav", 0}};
  DialogScript script;
  script.Expect(kSheetTitle, [](HWND sheet) {
    EXPECT_EQ(After(sheet, IDC_EDIT_ITEM, VK_SPACE), "[Shared] | LA[E]R");
    const char* cells[] = {"Shared", "S:\\Shared", "12", "Denied"};
    for (int column = 0; column < 4; ++column)
      EXPECT_EQ(ListCellText(List(sheet), 0, column), cells[column]);
    Click(sheet, IDOK);
  });
  script.Expect(kRootTitle, [](HWND dialog) {
    EXPECT_EQ(ControlText(dialog, IDC_OPEN_PICTURE), "Gone.bmp (not on this machine)");
    Type(dialog, IDC_ROOT_NAME, "Shared");
    Type(dialog, IDC_ROOT_PATH, "S:\\Shared");
    Type(dialog, IDC_FOLDER_LEVELS, "12");
    for (const int button : {IDC_DENY_MODIFY, IDC_CHOOSE_CLOSED, IDC_CHOOSE_OPEN})
      Click(dialog, button);
    EXPECT_EQ(ControlText(dialog, IDC_CLOSED_PICTURE), "Globe.ico");
    Click(dialog, IDOK);
  });
  script.Expect(kPickerTitle, [](HWND picker) {
    const HWND list = GetDlgItem(picker, IDC_PICTURES);
    EXPECT_EQ(ListCellText(list, SelectedRow(list), 0), "A.bmp");
    SelectRow(list, FindRow(list, "Globe.ico"));
    Click(picker, IDOK);
  });
  script.Expect(kPickerTitle, [](HWND picker) {
    for (const int button : {IDC_BROWSE_PICTURE, IDC_BROWSE_PICTURE, IDOK})
      Click(picker, button);
  });
  for (const std::string& path : {AddPicture("Elsewhere\\Rubbish.bmp", "no bitmap"), elsewhere}) {
    script.Expect("Browse for a Picture", [path](HWND dialog) {
      SetDlgItemTextA(dialog, cmb13, path.c_str());
      Click(dialog, IDOK);
    });
    if (path != elsewhere) script.Expect("Picture Problem", &PressOK);
  }
  EXPECT_EQ(ShowInSheet(page), IDOK);
  const FolderRoot edited{"Shared", "S:\\Shared", 12, globe, elsewhere, "long", "short", "open.wav", 1};
  EXPECT_EQ(page.Roots, std::vector{edited});
}

TEST_F(ListPages, RootsNeedANameAndAPathAndKeepNumbersThatCannotBeShown) {
  const struct {
    std::uint32_t levels, deny;
    const char* typed;  // into the levels, and the box ticked or cleared; null leaves both
    std::uint32_t expectedLevels, expectedDeny;
  } cases[] = {{4000000000U, 7, nullptr, 4000000000U, 7}, {4000000000U, 7, "100", 99, 0}, {5, 0, "", 0, 1}};
  DialogScript script;
  for (const auto& each : cases) {
    FolderRoot root{"", "", each.levels, "", "", "", "", "", each.deny};
    script.Expect(kRootTitle, [&each](HWND dialog) {
      EXPECT_EQ(ControlText(dialog, IDC_FOLDER_LEVELS), std::to_string(each.levels));
      if (each.typed) Type(dialog, IDC_FOLDER_LEVELS, each.typed), Click(dialog, IDC_DENY_MODIFY);
      for (const auto& [missing, typed] : {std::pair{IDC_ROOT_NAME, "Name"}, {IDC_ROOT_PATH, "C:\\*"}}) {
        Click(dialog, IDOK);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), missing);
        Type(dialog, missing, typed);
      }
      Type(dialog, IDC_ROOT_SHORT_TOOLTIP, std::string(51, 's'));
      Click(dialog, IDOK);
    });
    script.ExpectMessage("Name Error", "You must enter a name for this root");
    for (int i = 0; i < 2; ++i)
      script.ExpectMessage("Path Error", "You must enter a path for this root");
    script.Expect("Error: Illegal Character", &PressOK);
    script.ExpectMessage("Error: Text too long", "There is a limit of 50 characters");
    EXPECT_EQ(CRootPropertiesDialog(root, Folders()).DoModal(nullptr), IDOK);
    EXPECT_EQ(root.RootDisplayName + root.RootPath + root.ShortToolTip, "NameC:\\" + std::string(50, 's'));
    EXPECT_EQ(root.FolderLevels, each.expectedLevels);
    EXPECT_EQ(root.DenyModify, each.expectedDeny);
  }
}

}  // namespace
