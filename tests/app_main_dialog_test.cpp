#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include "app/main_dialog.h"
#include "app/main_dialog_ids.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/list_driver.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

namespace {

// Three schemes, one of them built in.
constexpr char kMachine[] = R"(
  [Protected Schemes] "Staff"="" "INFANTS"=""
  [Schemes] "Infants"="For the youngest" "Juniors"=" " "Staff"="Teachers"
  [Schemes\Infants\Defaults] "DefaultView"="tree1"
  [Schemes\Staff] [Schemes\Juniors]
  [Class Schemes] "1A"="INFANTS" "1B"="Juniors")";

class MainWindowTest : public RegistryTest {
 protected:
  // Runs the main window of the machine through `use` and closes it.
  void Run(const std::function<void()>& use) {
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, kMachine);
    script_.Expect("Kelvanstead Scheme Manager", [&](HWND window) {
      window_ = window;
      list_ = GetDlgItem(window, IDC_SCHEME_LIST);
      use();
      EXPECT_EQ(script_.Remaining(), 0u);
      Click(window, IDOK);
    });
    EXPECT_EQ(CMainDialog().DoModal(nullptr), IDOK);
  }

  // The rows: the number of the picture and the name, behind * where it is selected.
  std::string Rows() const {
    std::string rows;
    LVITEMA item{};
    item.mask = LVIF_IMAGE;
    for (; SendMessageA(list_, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)); ++item.iItem) {
      if (SelectedRow(list_) == item.iItem) rows += '*';
      rows += std::to_string(item.iImage) + ListCellText(list_, item.iItem, 0) + ' ';
    }
    return rows;
  }

  // Selects a scheme, presses a button and answers the message that comes.
  void Press(int button, const std::string& scheme, const std::string& message, int answer = 0) {
    script_.ExpectMessage(answer ? "Scheme Deletion" : "Error", message, answer ? answer : IDOK);
    SelectRow(list_, FindRow(list_, scheme));
    Click(window_, button);
  }

  DialogScript script_;
  HWND window_ = nullptr, list_ = nullptr;
};

TEST_F(MainWindowTest, ListsSchemesAndDeletesTheSelectedOneOnly) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(@="whose?" "Gone"="" "Lost"="")");
  script_.ExpectMessage("Schemes Problem",
                        "The following scheme/s could not be read:\nGone, Lost.\n\nIt's recommended that "
                        "they are reloaded from a valid\nKelvanstead Scheme Manager configuration file.");
  Run([this] {
    EXPECT_EQ(Rows(), "1 1Infants 1Juniors 0Staff ") << "the built in one, compared with case";
    EXPECT_EQ(ListCellText(list_, 1, 1), "For the youngest");
    EXPECT_EQ(GetFocus(), list_);
    const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey);
    Click(window_, IDC_DELETE);  // nothing is selected

    const std::string cannotBeEdited = "Staff is a built in scheme and cannot be edited";
    Press(IDC_EDIT, "Staff", cannotBeEdited);
    script_.ExpectMessage("Error", cannotBeEdited);
    RECT row{};
    ListView_GetItemRect(list_, SelectedRow(list_), &row, LVIR_LABEL);
    SendMessageA(list_, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(row.left + 4, row.top + 4));
    Press(IDC_DELETE, "",
          "As the name of this scheme is a blank deleting it is not possible.\nPlease contact your system "
          "administrator for help");
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Juniors"="")");  // built in by now
    Press(IDC_DELETE, "Juniors", "Juniors is a built in scheme and cannot be removed");
    const std::string question = "Are you sure you want to delete this scheme ?";
    Press(IDC_DELETE, "Infants", question, IDCANCEL);
    EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey), before);

    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProtectedSchemesKey);
    script_.ExpectMessage("Scheme Deletion", question);
    SendMessageA(list_, WM_KEYDOWN, VK_DELETE, 0);
    EXPECT_EQ(Rows(), "1 *1Juniors 1Staff ") << "the next row is selected";
    Press(IDC_DELETE, "Staff", question, IDOK);
    EXPECT_EQ(Rows(), "1 *1Juniors ") << "behind the last row, the one before";
  });
  ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, R"(
    [Class Schemes] "1B"="Juniors" [Schemes] @="whose?" "Gone"="" "Lost"="" "Juniors"=" " [Schemes\Juniors])");
}

// The main job: save, lose everything, load.
TEST_F(MainWindowTest, HelpsAndRestoresAWipedMachineFromItsFile) {
  WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\KelvansteadScheme Manager",
            R"("HelpPath"="C:\\none.htm")");
  const ScratchFolder folder;
  const auto choose = [file = folder.File("schemes.ksf")](HWND dialog) {
    constexpr int kFileName = 1148;
    SetDlgItemTextA(dialog, kFileName, file.c_str());
    Click(dialog, IDOK);
  };
  Run([&] {
    script_.Expect("Save As", choose).Expect("Open", choose);
    Click(window_, IDC_SAVE);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "");
    Click(window_, IDC_LOAD);
    EXPECT_EQ(Rows(), "1Infants 1Juniors 0Staff ") << "the list follows without a restart";

    script_.ExpectMessage("Help Problem",
                          "There has been a problem locating the correct help file.\nIt is recommended you "
                          "inform your system administrator\nof this error");
    SendMessageA(window_, WM_HELP, 0, 0);
    script_.Expect("About Kelvanstead Scheme Manager", [](HWND about) {
      EXPECT_TRUE(FindWindowExA(about, nullptr, "Static", "Kelvanstead Scheme Manager version 2.28.0.0"));
      Click(about, IDOK);
    });
    SendMessageA(window_, WM_COMMAND, IDM_ABOUT, 0);
  });
  EXPECT_EQ(ReadText(HKEY_LOCAL_MACHINE, SchemeKeyPath("Infants") + "\\Defaults", "DefaultView"), "tree1");
}

}  // namespace
