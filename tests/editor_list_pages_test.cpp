#include <windows.h>

#include <dlgs.h>

#include "editor/files_page.h"
#include "editor/icon_picker_ids.h"
#include "editor/links_page.h"
#include "editor/root_properties_dialog.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/text_entry.h"
#include "editor/web_link_dialog.h"
#include "editor/web_link_dialog_ids.h"
#include "editor_driver.h"
#include "support/list_driver.h"
#include "support/looks.h"
#include "support/picture_machine.h"

namespace {

constexpr char kLinkTitle[] = "Web Links", kRootTitle[] = "Root Properties",
               kPickerTitle[] = "Choose a Picture";

using ListPages = PictureMachineTest;

HWND List(HWND sheet) { return GetDlgItem(PropSheet_GetCurrentPageHwnd(sheet), IDC_ITEM_LIST); }

// Presses a key on a control. Returns the names in the list, a bar, and the first letters of those of the
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

TEST_F(ListPages, AddEditMoveAndRemove) {
  const PictureFolders folders = Folders();
  CPage2 page(folders);
  page.Links = {{"a", "", "", "", "", "a.wav"}, {"b", "", "", "", "", ""}};
  DialogScript script;
  script.Expect(kSheetTitle, [&](HWND sheet) {
    EXPECT_EQ(ControlText(GetParent(List(sheet)), IDC_ITEM_LIST_LABEL), "&Links:");
    EXPECT_EQ(GetWindowLongA(List(sheet), GWL_STYLE) & 0xFFFF,
              LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER);
    EXPECT_TRUE(ListView_GetExtendedListViewStyle(List(sheet)) & LVS_EX_FULLROWSELECT);
    EXPECT_EQ(ColumnsOf(List(sheet)), "Name 96, Address 172, ");
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_INSERT), "a b [x] | [L]AERU");
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_DELETE), "a [b] | [L]AERU") << "the last one";
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
    UpdateWindow(List(sheet));
    Click(GetParent(List(sheet)), IDC_REMOVE_ITEM);
    RECT row{}, stale{}, missing{};
    ListView_GetItemRect(List(sheet), 0, &row, LVIR_BOUNDS);
    GetUpdateRect(List(sheet), &stale, FALSE);
    EXPECT_FALSE(SubtractRect(&missing, &row, &stale)) << "the row of the removed link still shows it";
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_DELETE), "[b] | [L]AER");
    EXPECT_EQ(After(sheet, IDC_REMOVE_ITEM, VK_SPACE), "| L[A]");
    EXPECT_EQ(After(sheet, IDC_ITEM_LIST, VK_DELETE), "| [L]A");
    Click(sheet, IDOK);
  });
  script.Expect(kLinkTitle, EnterLink("x", "x"));
  script.Expect(kLinkTitle, EnterLink("c", "c.example/100%25?x"));
  script.Expect(kLinkTitle, EnterLink("not taken", "x", IDCANCEL));
  script.Expect(kLinkTitle, EnterLink("new", "https://new"));
  script.Expect(kLinkTitle, EnterLink("not taken", "x", IDCANCEL));
  EXPECT_EQ(ShowInSheet(page), IDOK);
  EXPECT_TRUE(page.Links.empty());
}

TEST_F(ListPages, LinksNeedANameAndAUrl) {
  constexpr char kInvalid[] =
      "Invalid characters have been found in the URL\n\r\n\rPlease do not use the characters:\n\r"
      "{}|\\^~[]'<>\"#%@!";
  WebLink link{"", "", "", "", "", "a.wav"};
  DialogScript script;
  script.Expect(kLinkTitle, [](HWND dialog) {
    const auto confirm = [dialog](const char* name, const char* url) {
      EnterLink(name, url)(dialog);
      return GetDlgCtrlID(GetFocus());
    };
    EXPECT_EQ(confirm("", ""), IDC_LINK_NAME);
    EXPECT_EQ(confirm("Name", ""), IDC_LINK_URL);
    EXPECT_EQ(confirm("Name", "http://a#b"), IDC_LINK_URL);
    EXPECT_EQ(ControlText(dialog, IDC_LINK_URL), "");
    confirm("Name", "a%20b.example/?c=d:e");
  });
  script.ExpectMessage(kPlain, "Missing Name",
                       "The Name is missing.\n\rPlease enter the Name and try again.");
  script.ExpectMessage(kPlain, "Missing URL", "The URL is missing.\n\rPlease enter the URL and try again.");
  script.ExpectMessage(kPlain, "Invalid characters in URL", kInvalid);
  EXPECT_EQ(CWebLinkDialog(link, Folders()).DoModal(nullptr), IDOK);
  EXPECT_EQ(link, (WebLink{"Name", "a%20b.example/?c=d:e", "", "", "", "a.wav"}));
  // A blank cannot be typed.
  script.ExpectMessage(kPlain, "Invalid characters in URL",
                       "A space has been found in the URL\n\rPlease re-enter URL and try again.");
  EXPECT_FALSE(CheckUrl("a b"));
}

TEST_F(ListPages, LinksKeepTheirPicture) {
  AddPicture("Default\\A.bmp");
  const std::string b = AddPicture("User\\B.bmp"), elsewhere = AddPicture("Elsewhere\\D.bmp");
  constexpr COLORREF kFrame = 0, kCross = RGB(0xC0, 0, 0), kPicture = RGB(0xFF, 0, 0);
  const struct {
    std::string stored, shown, file;
    COLORREF middle;  // of the picture shown
    std::string chosen, expected;
  } cases[] = {{"", "(no picture)", "(no picture)", kFrame, "B.bmp", "B.bmp"},
               {"a.BMP", "A.bmp", PicturePath("Default\\A.bmp"), kPicture, "A.bmp", "a.BMP"},
               {"A.bmp", "A.bmp", PicturePath("Default\\A.bmp"), kPicture, "(no picture)", ""},
               {"Gone.bmp", "Gone.bmp (missing)", "Gone.bmp (not on this machine)", kCross,
                "Gone.bmp (missing)", "Gone.bmp"},
               {elsewhere, "D.bmp", elsewhere, kPicture, "D.bmp", elsewhere},
               {b, "B.bmp", b, kPicture, "B.bmp", b}};
  DialogScript script;
  for (const auto& each : cases) {
    WebLink link{"Name", "www.example.com", each.stored, "", "", ""};
    script.Expect(kLinkTitle, [&each](HWND dialog) {
      const HWND list = GetDlgItem(dialog, IDC_LINK_PICTURES);
      EXPECT_EQ(ListCellText(list, SelectedRow(list), 0), each.shown);
      EXPECT_EQ(ControlText(dialog, IDC_LINK_PICTURE_FILE), each.file);
      const Canvas canvas(48, 48);
      DrawRowPicture(canvas, list, SelectedRow(list), LVSIL_NORMAL);
      EXPECT_EQ(GetPixel(canvas.Dc.Get(), 24, 24), each.middle);
      SelectRow(list, FindRow(list, each.chosen));
      Click(dialog, IDOK);
    });
    EXPECT_EQ(CWebLinkDialog(link, Folders()).DoModal(nullptr), IDOK);
    EXPECT_EQ(link.IconFile, each.expected);
  }
}

TEST_F(ListPages, RootsAreEditedWithTheirPictures) {
  AddPicture("Default\\A.bmp");
  const std::string globe = AddPicture("Icons\\Globe.ico");
  // Not the picture of the same name that a bare name would find.
  const std::string elsewhere = AddPicture("Elsewhere\\A.bmp");
  const PictureFolders folders = Folders();
  CPage3 page(folders);
  page.Roots = {{"My Work", "H:\\", 3, "A.bmp", "Gone.bmp", "long", "short", "open.wav", 0}};
  DialogScript script;
  script.Expect(kSheetTitle, [](HWND sheet) {
    EXPECT_EQ(ControlText(GetParent(List(sheet)), IDC_ITEM_LIST_LABEL), "&Folders:");
    EXPECT_EQ(ColumnsOf(List(sheet)), "Name 75, Path 90, Levels 45, Changes 58, ");
    EXPECT_EQ(After(sheet, IDC_EDIT_ITEM, VK_SPACE), "[Shared] | LA[E]R");
    const char* cells[] = {"Shared", "C:\\windows\\", "12", "Denied"};
    for (int column = 0; column < 4; ++column)
      EXPECT_EQ(ListCellText(List(sheet), 0, column), cells[column]);
    Click(sheet, IDOK);
  });
  script.Expect(kRootTitle, [](HWND dialog) {
    EXPECT_EQ(ControlText(dialog, IDC_OPEN_PICTURE), "Gone.bmp (not on this machine)");
    Type(dialog, IDC_ROOT_NAME, "Shared");
    Type(dialog, IDC_ROOT_PATH, "C:\\windows");
    Type(dialog, IDC_FOLDER_LEVELS, "12");
    for (const int button : {IDC_BROWSE_ROOT, IDC_DENY_MODIFY, IDC_CHOOSE_CLOSED, IDC_CHOOSE_OPEN})
      Click(dialog, button);
    EXPECT_EQ(ControlText(dialog, IDC_ROOT_PATH), "C:\\windows\\");
    EXPECT_EQ(ControlText(dialog, IDC_CLOSED_PICTURE), "Globe.ico");
    Click(dialog, IDOK);
  });
  script.Expect("Choose a Folder", [](HWND dialog) { Click(dialog, 5000); });
  script.Expect(kPickerTitle, [](HWND picker) {
    const HWND list = GetDlgItem(picker, IDC_PICTURES);
    EXPECT_EQ(ListCellText(list, SelectedRow(list), 0), "A.bmp");
    SelectRow(list, FindRow(list, "Globe.ico"));
    NMITEMACTIVATE beside{};
    beside.hdr = {list, IDC_PICTURES, static_cast<UINT>(NM_DBLCLK)};
    beside.iItem = -1;
    SendMessageA(picker, WM_NOTIFY, IDC_PICTURES, reinterpret_cast<LPARAM>(&beside));
    EXPECT_TRUE(IsWindowVisible(picker)) << "a double-click beside the pictures";
    RECT picture{};
    ListView_GetItemRect(list, SelectedRow(list), &picture, LVIR_ICON);
    PostMessageA(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(picture.left + 9, picture.top + 9));
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
    if (path == elsewhere) continue;
    script.ExpectMessage(kWarning.OwnedBy(kPickerTitle), "Picture Problem",
                         "Rubbish.bmp\n\nThis file cannot be used as a picture.");
  }
  EXPECT_EQ(ShowInSheet(page), IDOK);
  const FolderRoot edited{"Shared", "C:\\windows\\", 12, globe, elsewhere, "long", "short", "open.wav", 1};
  EXPECT_EQ(page.Roots, std::vector{edited});
}

TEST_F(ListPages, RootsNeedANameAPathAndANumberOfLevels) {
  FolderRoot root{"", "", 5, "", "", "", "", "", 7};
  const MessageStyle style = kPlain.OwnedBy(kRootTitle);
  DialogScript script;
  script.Expect(kRootTitle, [&](HWND dialog) {
    script.ExpectMessage(style, "Name Error", "You must enter a name for this root");
    script.ExpectMessage(style, "Path Error", "You must enter a path for this root");
    Click(dialog, IDOK);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_ROOT_NAME);
    Type(dialog, IDC_ROOT_NAME, "Name");
    script.ExpectMessage(style, "Path Error", "You must enter a path for this root");
    Click(dialog, IDOK);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_ROOT_PATH);
    Type(dialog, IDC_ROOT_PATH, "C:\\");
    for (const char* refused : {"4294967296", "12345678901234567890", "-1", "1.5", " "}) {
      script.ExpectMessage(style, "Folder Levels Error",
                           "The number of folder levels must be a whole number from 0 to 4294967295");
      Type(dialog, IDC_FOLDER_LEVELS, refused);
      Click(dialog, IDOK);
    }
    Type(dialog, IDC_FOLDER_LEVELS, "007");
    Click(dialog, IDOK);
  });
  EXPECT_EQ(CRootPropertiesDialog(root, kNoPictures).DoModal(nullptr), IDOK);
  EXPECT_EQ(root, (FolderRoot{"Name", "C:\\", 7, "", "", "", "", "", 7}));
}

TEST_F(ListPages, FolderLevelsAreAnyNumberThatTheSchemeCanHold) {
  const struct {
    std::uint32_t stored;
    std::string typed;
    WPARAM key;
    std::uint32_t expected;
  } cases[] = {{4000000000, "4000000000", VK_UP, 4000000001},
               {5, "", 0, 0},
               {5, "4294967295", VK_UP, 4294967295},
               {5, "0", VK_DOWN, 0}};
  for (const auto& each : cases) {
    FolderRoot root{"Name", "C:\\", each.stored, "", "", "", "", "", 0};
    DialogScript script;
    script.Expect(kRootTitle, [&each](HWND dialog) {
      EXPECT_EQ(ControlText(dialog, IDC_FOLDER_LEVELS), std::to_string(each.stored));
      Type(dialog, IDC_FOLDER_LEVELS, each.typed);
      SetFocus(GetDlgItem(dialog, IDC_FOLDER_LEVELS));
      if (each.key) PressKey(each.key);
      Pump();
      Click(dialog, IDOK);
    });
    EXPECT_EQ(CRootPropertiesDialog(root, kNoPictures).DoModal(nullptr), IDOK);
    EXPECT_EQ(root.FolderLevels, each.expected);
  }
}

}  // namespace
