#include "editor/files_page.h"

#include <windows.h>

#include <dlgs.h>

#include "editor/icon_picker.h"
#include "editor/icon_picker_ids.h"
#include "editor/root_properties_dialog.h"
#include "editor/root_properties_dialog_ids.h"
#include "support/list_driver.h"
#include "support/picture_machine.h"

namespace {

constexpr char kDialogTitle[] = "Root Properties";
constexpr char kPickerTitle[] = "Choose a Picture";

const FolderRoot kRoot{"My Work", "H:\\", 3, "A.bmp", "Gone.bmp", "long", "short", "open.wav", 0};

using FilesPage = PictureMachineTest;

TEST_F(FilesPage, EditsRootsThroughTheDialog) {
  AddPicture("Default\\A.bmp");
  AddPicture("Icons\\Globe.ico");
  CPage3 page;
  page.Roots = {kRoot, kRoot};
  DialogScript script;
  script
      .Expect(kSheetTitle,
              [](HWND sheet) {
                const RecordPageDriver driver(sheet);
                EXPECT_EQ(ListCellText(driver.List, 0, 1), "H:\\");
                EXPECT_EQ(ListCellText(driver.List, 0, 2), "3");
                EXPECT_EQ(ListCellText(driver.List, 0, 3), "Allowed");
                driver.Press(IDC_EDIT_RECORD);
                EXPECT_EQ(driver.Look(), "[Shared] My Work | AERD");
                EXPECT_EQ(ListCellText(driver.List, 0, 3), "Denied");
                driver.Press(IDC_MOVE_DOWN);
                Click(sheet, IDOK);
              })
      .Expect(kDialogTitle,
              [](HWND dialog) {
                EXPECT_EQ(ControlText(dialog, IDC_CLOSED_PICTURE), "A.bmp");
                EXPECT_EQ(ControlText(dialog, IDC_OPEN_PICTURE), "Gone.bmp (not on this machine)");
                Type(dialog, IDC_ROOT_NAME, "Shared");
                Type(dialog, IDC_ROOT_PATH, "S:\\Shared");
                Type(dialog, IDC_FOLDER_LEVELS, "12");
                Click(dialog, IDC_DENY_MODIFY);
                Click(dialog, IDC_CHOOSE_CLOSED);
                EXPECT_EQ(ControlText(dialog, IDC_CLOSED_PICTURE), "Globe.ico");
                Click(dialog, IDOK);
              })
      .Expect(kPickerTitle, [](HWND picker) {
        const HWND list = GetDlgItem(picker, IDC_PICTURES);
        SelectRow(list, FindRow(list, "Globe.ico"));
        Click(picker, IDOK);
      });
  EXPECT_EQ(ShowInSheet(page), IDOK);
  const FolderRoot edited{"Shared", "S:\\Shared", 12, PicturePath("Icons\\Globe.ico"), "Gone.bmp", "long",
                          "short",  "open.wav",   1};
  EXPECT_EQ(page.Roots, (std::vector{kRoot, edited}));
}

TEST_F(FilesPage, DialogAsksForNameAndPath) {
  FolderRoot root;
  DialogScript script;
  script
      .Expect(kDialogTitle,
              [](HWND dialog) {
                const auto fails = [dialog](const char* name, const char* path, int focused) {
                  Type(dialog, IDC_ROOT_NAME, name);
                  Type(dialog, IDC_ROOT_PATH, path);
                  Click(dialog, IDOK);
                  EXPECT_EQ(GetDlgCtrlID(GetFocus()), focused) << name << " at " << path;
                };
                fails("", "", IDC_ROOT_NAME);
                fails("Name", "", IDC_ROOT_PATH);
                Type(dialog, IDC_ROOT_PATH, "C:\\*");
                Type(dialog, IDC_ROOT_SHORT_TOOLTIP, std::string(51, 's'));
                Click(dialog, IDOK);
              })
      .ExpectMessage("Name Error", "You must enter a name for this root")
      .ExpectMessage("Path Error", "You must enter a path for this root")
      .ExpectMessage("Path Error", "You must enter a path for this root")
      .ExpectMessage("Error: Illegal Character",
                     "The following characters are not allowed:\n\n< > ? / * \" |")
      .ExpectMessage("Error: Text too long", "There is a limit of 50 characters");
  EXPECT_EQ(CRootPropertiesDialog(root).DoModal(nullptr), IDOK);
  EXPECT_EQ(root.RootPath, "C:\\");
  EXPECT_EQ(root.ShortToolTip.size(), 50U);
}

TEST_F(FilesPage, DialogKeepsNumbersThatItCannotShow) {
  const struct {
    std::uint32_t levels, deny;
    const char* typed;  // into the levels; null leaves them
    bool clickDeny;
    std::uint32_t expectedLevels, expectedDeny;
  } cases[] = {
      {4000000000U, 7, nullptr, false, 4000000000U, 7},
      {4000000000U, 7, "100", true, 99, 0},
      {5, 0, "", true, 0, 1},
      {5, 0, "99", false, 99, 0},
      {100, 1, "99999999999", false, 99, 1},
  };
  for (const auto& each : cases) {
    FolderRoot root = kRoot;
    root.FolderLevels = each.levels;
    root.DenyModify = each.deny;
    DialogScript script;
    script.Expect(kDialogTitle, [&](HWND dialog) {
      EXPECT_EQ(ControlText(dialog, IDC_FOLDER_LEVELS), std::to_string(each.levels));
      if (each.typed) Type(dialog, IDC_FOLDER_LEVELS, each.typed);
      if (each.clickDeny) Click(dialog, IDC_DENY_MODIFY);
      Click(dialog, IDOK);
    });
    EXPECT_EQ(CRootPropertiesDialog(root).DoModal(nullptr), IDOK);
    EXPECT_EQ(root.FolderLevels, each.expectedLevels);
    EXPECT_EQ(root.DenyModify, each.expectedDeny);
  }
}

TEST_F(FilesPage, PickerTakesAFileFromAnywhere) {
  AddPicture("Default\\A.bmp");
  const std::string elsewhere = AddPicture("Elsewhere\\D.bmp");
  const std::string rubbish = AddPicture("Elsewhere\\Rubbish.bmp", "no bitmap");
  const auto open = [](const std::string& path) {
    return [path](HWND dialog) {
      SetDlgItemTextA(dialog, cmb13, path.c_str());
      Click(dialog, IDOK);
    };
  };
  const PictureFolders folders;
  CIconPicker picker(folders, "A.bmp");
  DialogScript script;
  script
      .Expect(kPickerTitle,
              [&](HWND dialog) {
                Click(dialog, IDC_BROWSE_PICTURE);
                EXPECT_EQ(ControlText(dialog, IDC_PICTURE_FILE), PicturePath("Default\\A.bmp"));
                Click(dialog, IDC_BROWSE_PICTURE);
                EXPECT_EQ(ControlText(dialog, IDC_PICTURE_FILE), elsewhere);
                EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_PICTURES);
                PressKey(VK_RETURN);
                Pump();
              })
      .Expect("Browse for a Picture", open(rubbish))
      .ExpectMessage("Picture Problem", "Rubbish.bmp\n\nThis file cannot be used as a picture.")
      .Expect("Browse for a Picture", open(elsewhere));
  EXPECT_EQ(picker.DoModal(nullptr), IDOK);
  EXPECT_EQ(picker.Picture(), elsewhere);
}

}  // namespace
