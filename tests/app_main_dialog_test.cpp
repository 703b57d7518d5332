#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "app/main_dialog.h"
#include "app/main_dialog_ids.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/list_driver.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

namespace {

// Three schemes, one of them built in.
constexpr char kMachine[] = R"(
  [Protected Schemes] "Staff"=""
  [Schemes] "Infants"="For the youngest" "Juniors"=" " "Staff"="Teachers"
  [Schemes\Infants\Defaults] "DefaultView"="tree1"
  [Schemes\Staff] [Schemes\Juniors]
  [Class Schemes] "1A"="INFANTS" "1B"="Juniors")";

class MainWindowTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, kMachine);
  }

  // Runs the main window through `use` and closes it.
  void Run(const std::function<void()>& use) {
    script_.Expect("Kelvanstead Scheme Manager", [&](HWND window) {
      window_ = window;
      list_ = GetDlgItem(window, IDC_SCHEME_LIST);
      use();
      EXPECT_EQ(script_.Remaining(), 0u);
      Click(window, IDOK);
    });
    EXPECT_EQ(CMainDialog().DoModal(nullptr), IDOK);
  }

  // The rows: the number of the picture and the name, the selected row's in brackets.
  std::string Rows() const {
    std::string rows;
    LVITEMA item{};
    item.mask = LVIF_IMAGE;
    for (; SendMessageA(list_, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)); ++item.iItem) {
      const std::string row = std::to_string(item.iImage) + ListCellText(list_, item.iItem, 0);
      rows += SelectedRow(list_) == item.iItem ? "[" + row + "] " : row + " ";
    }
    return rows;
  }
  void Press(const std::string& scheme, int button) const {
    SelectRow(list_, FindRow(list_, scheme));
    Click(window_, button);
  }
  void ExpectQuestion(int answer) {
    script_.ExpectMessage("Scheme Deletion", "Are you sure you want to delete this scheme ?", answer);
  }

  DialogScript script_;
  HWND window_ = nullptr;
  HWND list_ = nullptr;
};

TEST_F(MainWindowTest, ListsSchemesAndDeletesTheSelectedOneOnly) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(@="whose?" "Gone"="" "Lost"="")");
  script_.ExpectMessage(
      "Schemes Problem",
      "The following scheme/s could not be read:\nGone, Lost.\n\nIt's recommended that they are "
      "reloaded from a valid\nKelvanstead Scheme Manager configuration file.");
  Run([this] {
    EXPECT_EQ(Rows(), "1 1Infants 1Juniors 0Staff ") << "built in schemes have a picture of their own";
    EXPECT_EQ(ListCellText(list_, 1, 1), "For the youngest");
    EXPECT_EQ(GetFocus(), list_);
    const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey);
    Click(window_, IDC_DELETE);  // nothing is selected
    Click(window_, IDC_EDIT);

    const std::string cannotBeEdited = "Staff is a built in scheme and cannot be edited";
    script_.ExpectMessage("Error", cannotBeEdited).ExpectMessage("Error", cannotBeEdited);
    Press("Staff", IDC_EDIT);
    RECT row{};
    ListView_GetItemRect(list_, SelectedRow(list_), &row, LVIR_LABEL);
    SendMessageA(list_, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(row.left + 4, row.top + 4));

    script_.ExpectMessage(
        "Error",
        "As the name of this scheme is a blank deleting it is not possible.\nPlease contact your "
        "system administrator for help");
    Press("", IDC_DELETE);
    script_.ExpectMessage("Error", "Staff is a built in scheme and cannot be removed");
    Press("Staff", IDC_DELETE);
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Juniors"="")");  // built in by now
    script_.ExpectMessage("Error", "Juniors is a built in scheme and cannot be removed");
    Press("Juniors", IDC_DELETE);
    RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, "Juniors");
    ExpectQuestion(IDCANCEL);
    Press("Infants", IDC_DELETE);
    EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey), before);

    ExpectQuestion(IDOK);
    SendMessageA(list_, WM_KEYDOWN, VK_DELETE, 0);
    EXPECT_EQ(Rows(), "1 [1Juniors] 0Staff ") << "the next row is selected";
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProtectedSchemesKey);
    ExpectQuestion(IDOK);
    Press("Staff", IDC_DELETE);
    EXPECT_EQ(Rows(), "1 [1Juniors] ") << "behind the last row, the one before";
  });
  ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, R"(
    [Class Schemes] "1B"="Juniors" [Schemes] @="whose?" "Gone"="" "Lost"="" "Juniors"=" " [Schemes\Juniors])");
}

TEST_F(MainWindowTest, HelpsAndTellsItsVersion) {
  WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\KelvansteadScheme Manager",
            R"("HelpPath"="C:\\none.htm")");
  Run([this] {
    script_.ExpectMessage(
        "Help Problem",
        "There has been a problem locating the correct help file.\nIt is recommended you inform your "
        "system administrator\nof this error");
    HELPINFO help{};
    help.cbSize = sizeof(help);
    SendMessageA(window_, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    script_.Expect("About Kelvanstead Scheme Manager", [](HWND about) {
      EXPECT_TRUE(FindWindowExA(about, nullptr, "Static", "Kelvanstead Scheme Manager version 2.28.0.0"));
      Click(about, IDOK);
    });
    SendMessageA(window_, WM_COMMAND, IDM_ABOUT, 0);
  });
}

// The main job: delete, save, lose everything, load.
TEST_F(MainWindowTest, RestoresAWipedMachineFromItsFile) {
  const ScratchFolder folder;
  const auto choose = [file = folder.File("schemes.ksf")](HWND dialog) {
    constexpr int kFileName = 1148;
    SetDlgItemTextA(dialog, kFileName, file.c_str());
    Click(dialog, IDOK);
  };
  std::string saved;
  Run([&] {
    ExpectQuestion(IDOK);
    Press("Juniors", IDC_DELETE);
    script_.Expect("Save As", choose);
    Click(window_, IDC_SAVE);
    // What an import leaves of schemes that lacked sections is complete; that state is the one to compare.
    script_.Expect("Open", choose);
    Click(window_, IDC_LOAD);
    saved = DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey);

    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "");
    script_.Expect("Open", choose);
    Click(window_, IDC_LOAD);
    EXPECT_EQ(Rows(), "1Infants 0Staff ") << "the list follows without a restart";
  });
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey), saved);
}

}  // namespace
