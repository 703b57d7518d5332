#include "editor/links_page.h"

#include "editor/web_link_dialog.h"
#include "editor/web_link_dialog_ids.h"
#include "support/list_driver.h"
#include "support/picture_machine.h"

namespace {

constexpr char kDialogTitle[] = "Web Links";

using LinksPage = PictureMachineTest;

WebLink Link(const std::string& name) { return {name, "http://x", "", "", "", "a.wav"}; }

DialogScript::Action EnterLink(const std::string& name, const std::string& url, int button = IDOK) {
  return [=](HWND dialog) {
    Type(dialog, IDC_LINK_NAME, name);
    Type(dialog, IDC_LINK_URL, url);
    Click(dialog, button);
  };
}

TEST_F(LinksPage, MovesAndRemovesTheSelectedLink) {
  CPage2 page;
  page.Links = {Link("a"), Link("b"), Link("c")};
  DialogScript script;
  script.Expect(kSheetTitle, [](HWND sheet) {
    const RecordPageDriver driver(sheet);
    EXPECT_EQ(driver.Look(), "[a] b c | AERD");
    EXPECT_EQ(driver.Press(IDC_MOVE_DOWN), IDC_MOVE_DOWN);
    EXPECT_EQ(driver.Look(), "b [a] c | AERUD");
    EXPECT_EQ(driver.Press(IDC_MOVE_DOWN), IDC_RECORD_LIST);
    EXPECT_EQ(driver.Look(), "b c [a] | AERU");
    EXPECT_EQ(driver.Press(IDC_MOVE_UP), IDC_MOVE_UP);
    EXPECT_EQ(driver.Press(IDC_REMOVE_RECORD), IDC_REMOVE_RECORD);
    EXPECT_EQ(driver.Look(), "b [c] | AERU");
    driver.Key(VK_DELETE);
    EXPECT_EQ(driver.Look(), "[b] | AER");
    EXPECT_EQ(driver.Press(IDC_REMOVE_RECORD), IDC_ADD_RECORD);
    driver.Key(VK_DELETE);
    EXPECT_EQ(driver.Look(), "| A");
    Click(sheet, IDOK);
  });
  EXPECT_EQ(ShowInSheet(page), IDOK);
  EXPECT_TRUE(page.Links.empty());
}

TEST_F(LinksPage, AddsAndEditsThroughTheDialog) {
  CPage2 page;
  page.Links = {Link("a")};
  DialogScript script;
  script
      .Expect(kSheetTitle,
              [](HWND sheet) {
                const RecordPageDriver driver(sheet);
                EXPECT_EQ(driver.Press(IDC_ADD_RECORD), IDC_ADD_RECORD);
                EXPECT_EQ(driver.Look(), "a [b] | AERU");
                driver.Key(VK_INSERT);
                EXPECT_EQ(driver.Look(), "a [b] | AERU");
                SelectRow(driver.List, 0);
                SendMessageA(driver.List, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 30));
                EXPECT_EQ(driver.Look(), "[new] b | AERD");
                EXPECT_EQ(ListCellText(driver.List, 0, 1), "https://new");
                driver.Press(IDC_EDIT_RECORD);
                Click(sheet, IDOK);
              })
      .Expect(kDialogTitle, EnterLink("b", "b.example/100%25?x"))
      .Expect(kDialogTitle, EnterLink("not taken", "x", IDCANCEL))
      .Expect(kDialogTitle, EnterLink("new", "https://new"))
      .Expect(kDialogTitle, EnterLink("not taken", "x", IDCANCEL));
  EXPECT_EQ(ShowInSheet(page), IDOK);
  EXPECT_EQ(page.Links, (std::vector<WebLink>{{"new", "https://new", "", "", "", "a.wav"},
                                              {"b", "b.example/100%25?x", "", "", "", ""}}));
}

TEST_F(LinksPage, DialogChecksNameThenUrl) {
  WebLink link;
  DialogScript script;
  script
      .Expect(kDialogTitle,
              [](HWND dialog) {
                const auto fails = [dialog](const char* name, const char* url, int focused) {
                  EnterLink(name, url)(dialog);
                  EXPECT_EQ(GetDlgCtrlID(GetFocus()), focused) << name << " at " << url;
                };
                fails("", "", IDC_LINK_NAME);
                fails("Name", " ", IDC_LINK_URL);
                fails("Name", "http://a#b", IDC_LINK_URL);
                EXPECT_EQ(ControlText(dialog, IDC_LINK_URL), "");
                Type(dialog, IDC_LINK_LONG_TOOLTIP, std::string(101, 'l'));
                Type(dialog, IDC_LINK_SHORT_TOOLTIP, std::string(50, 's'));
                EnterLink("Name", "www.example.com")(dialog);
              })
      .ExpectMessage("Missing Name", "The Name is missing.\n\rPlease enter the Name and try again.")
      .ExpectMessage("Error: Illegal Character",
                     "The following characters are not allowed:\n\n< > \\   * \" |")
      .ExpectMessage("Missing URL", "The URL is missing.\n\rPlease enter the URL and try again.")
      .ExpectMessage("Invalid characters in URL",
                     "Invalid characters have been found in the URL\n\r\n\rPlease do not use the "
                     "characters:\n\r{}|\\^~[]'<>\"#%@!")
      .ExpectMessage("Error: Text too long", "There is a limit of 100 characters");
  EXPECT_EQ(CWebLinkDialog(link).DoModal(nullptr), IDOK);
  EXPECT_EQ(link, (WebLink{"Name", "www.example.com", "", std::string(100, 'l'), std::string(50, 's'), ""}));
}

TEST_F(LinksPage, DialogKeepsOrChangesThePicture) {
  AddPicture("Default\\A.bmp");
  AddPicture("User\\B.bmp");
  AddPicture("User\\C.ico");
  const std::string elsewhere = AddPicture("Elsewhere\\D.bmp");
  const struct {
    std::string stored, shown;
    const char* choose;  // null leaves the selection
    std::string expected;
  } cases[] = {
      {"", "(no picture)", nullptr, ""},
      {"a.BMP", "A.bmp", nullptr, "a.BMP"},
      {"A.bmp", "A.bmp", "B.bmp", "B.bmp"},
      {"A.bmp", "A.bmp", "(no picture)", ""},
      {"Gone.bmp", "Gone.bmp (missing)", nullptr, "Gone.bmp"},
      {"Q:\\Gone.bmp", "Gone.bmp (missing)", "A.bmp", "A.bmp"},
      {elsewhere, "D.bmp", nullptr, elsewhere},
      {PicturePath("User\\B.bmp"), "B.bmp", nullptr, PicturePath("User\\B.bmp")},
  };
  for (const auto& each : cases) {
    WebLink link = Link("a");
    link.IconFile = each.stored;
    DialogScript script;
    script.Expect(kDialogTitle, [&](HWND dialog) {
      const HWND list = GetDlgItem(dialog, IDC_LINK_PICTURES);
      EXPECT_EQ(ListCellText(list, SelectedRow(list), 0), each.shown);
      EXPECT_LT(FindRow(list, "C.ico"), 0);
      if (each.choose) SelectRow(list, FindRow(list, each.choose));
      Click(dialog, IDOK);
    });
    EXPECT_EQ(CWebLinkDialog(link).DoModal(nullptr), IDOK);
    EXPECT_EQ(link.IconFile, each.expected);
  }
}

}  // namespace
