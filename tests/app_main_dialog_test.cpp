#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/main_dialog.h"
#include "app/main_dialog_ids.h"
#include "controls/list_view.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

constexpr char kTitle[] = "Kelvanstead Scheme Manager";

// Three schemes, one of them built in.
constexpr char kMachine[] = R"(
  [Protected Schemes]
  "Staff"=""
  [Schemes]
  "Infants"="For the youngest"
  "Juniors"=" "
  "Staff"="Teachers"
  [Schemes\Infants\Defaults]
  "DefaultView"="tree1"
  [Schemes\Staff]
  [Schemes\Juniors]
  [Class Schemes]
  "1A"="INFANTS"
  "1B"="Juniors"
)";

HWND List(HWND window) { return GetDlgItem(window, IDC_SCHEME_LIST); }

std::vector<std::string> Names(HWND window) {
  std::vector<std::string> names;
  for (int row = 0; row < ListView_GetItemCount(List(window)); ++row) {
    names.push_back(ListCellText(List(window), row, 0));
  }
  return names;
}

int Image(HWND window, int row) {
  LVITEMA item{};
  item.mask = LVIF_IMAGE;
  item.iItem = row;
  SendMessageA(List(window), LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  return item.iImage;
}

void Select(HWND window, const std::string& name) {
  const auto names = Names(window);
  const auto found = std::find(names.begin(), names.end(), name);
  ASSERT_NE(found, names.end()) << name;
  ListView_SetItemState(List(window), static_cast<int>(found - names.begin()), LVIS_SELECTED | LVIS_FOCUSED,
                        LVIS_SELECTED | LVIS_FOCUSED);
}

class MainWindowTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, kMachine);
  }

  // Runs the main window through `script`, whose first main window step is `use`, and closes it.
  static void Run(DialogScript& script, DialogScript::Action use) {
    script.Expect(kTitle, [use = std::move(use)](HWND window) {
      use(window);
      Click(window, IDOK);
    });
  }
  static void Show() { EXPECT_EQ(CMainDialog().DoModal(nullptr), IDOK); }
};

using Texts = std::vector<std::string>;

TEST_F(MainWindowTest, ReportsUnreadableSchemesOnceAndListsTheOthers) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "[]\n\"Gone\"=\"\"\n\"Lost\"=\"\"\n");
  DialogScript script;
  script.ExpectMessage(
      "Schemes Problem",
      "The following scheme/s could not be read:\nGone, Lost.\n\nIt's recommended that they are "
      "reloaded from a valid\nKelvanstead Scheme Manager configuration file.");
  Run(script, [](HWND window) {
    EXPECT_EQ(Names(window), (Texts{"Infants", "Juniors", "Staff"}));
    EXPECT_EQ(ListCellText(List(window), 0, 1), "For the youngest");
    EXPECT_EQ(Image(window, 1), 1);
    EXPECT_EQ(Image(window, 2), 0) << "built in schemes have a picture of their own";
    EXPECT_EQ(GetFocus(), List(window));
  });
  Show();
}

TEST_F(MainWindowTest, DeletesTheSelectedSchemeOnly) {
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  DialogScript script;
  Run(script, [&](HWND window) {
    Click(window, IDC_DELETE);  // nothing is selected

    script.ExpectMessage("Error", "Staff is a built in scheme and cannot be removed");
    Select(window, "Staff");
    Click(window, IDC_DELETE);

    script.ExpectMessage("Scheme Deletion", "Are you sure you want to delete this scheme ?", IDCANCEL);
    Select(window, "Infants");
    Click(window, IDC_DELETE);
    EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kProductKey), before);

    script.ExpectMessage("Scheme Deletion", "Are you sure you want to delete this scheme ?");
    SendMessageA(List(window), WM_KEYDOWN, VK_DELETE, 0);
    EXPECT_EQ(Names(window), (Texts{"Juniors", "Staff"}));
    EXPECT_EQ(SelectedRow(List(window)), 0) << "the next row is selected";

    script.ExpectMessage("Scheme Deletion", "Are you sure you want to delete this scheme ?");
    Select(window, "Juniors");
    Click(window, IDC_DELETE);
    EXPECT_EQ(SelectedRow(List(window)), 0) << "behind the last row, the one before";
  });
  Show();
  ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, R"(
    [Class Schemes]
    [Protected Schemes]
    "Staff"=""
    [Schemes]
    "Staff"="Teachers"
    [Schemes\Staff]
  )");
}

TEST_F(MainWindowTest, EditsByTheButtonAndByADoubleClick) {
  const std::string refusal = "Staff is a built in scheme and cannot be edited";
  DialogScript script;
  Run(script, [&](HWND window) {
    Click(window, IDC_EDIT);  // nothing is selected
    Select(window, "Staff");
    script.ExpectMessage("Error", refusal).ExpectMessage("Error", refusal);
    Click(window, IDC_EDIT);
    RECT row{};
    ListView_GetItemRect(List(window), SelectedRow(List(window)), &row, LVIR_LABEL);
    SendMessageA(List(window), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(row.left + 4, row.top + 4));
    EXPECT_EQ(script.Remaining(), 0u);
  });
  Show();
}

TEST_F(MainWindowTest, RefusesToDeleteTheUnnamedSchemeAndOneThatIsBuiltInByNow) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "[]\n@=\"whose?\"\n");
  DialogScript script;
  Run(script, [&](HWND window) {
    script.ExpectMessage(
        "Error",
        "As the name of this scheme is a blank deleting it is not possible.\nPlease contact your "
        "system administrator for help");
    Select(window, "");
    Click(window, IDC_DELETE);
    script.ExpectMessage("Error", "Infants is a built in scheme and cannot be removed");
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, "\"Infants\"=\"\"");
    Select(window, "Infants");
    Click(window, IDC_DELETE);
  });
  Show();
}

TEST_F(MainWindowTest, HelpsAndTellsItsVersion) {
  DialogScript script;
  Run(script, [&](HWND window) {
    script.Expect("Help Problem", [](HWND box) { Click(box, IDOK); });
    HELPINFO help{};
    help.cbSize = sizeof(help);
    SendMessageA(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    script.Expect("About Kelvanstead Scheme Manager", [](HWND about) {
      EXPECT_NE(FindWindowExA(about, nullptr, "Static", "Kelvanstead Scheme Manager version 2.28.0.0"),
                nullptr);
      Click(about, IDOK);
    });
    SendMessageA(window, WM_COMMAND, IDM_ABOUT, 0);
  });
  Show();
}

// The main job: delete, save, lose everything, load.
TEST_F(MainWindowTest, RestoresAWipedMachineFromItsFile) {
  const auto file = (std::filesystem::temp_directory_path() / "kelvanstead main window.ksf").string();
  std::filesystem::remove(file);
  constexpr int kFileName = 1148;
  const auto choose = [&file](HWND dialog) {
    SetDlgItemTextA(dialog, kFileName, file.c_str());
    Click(dialog, IDOK);
  };
  std::string saved;
  DialogScript script;
  Run(script, [&](HWND window) {
    script.ExpectMessage("Scheme Deletion", "Are you sure you want to delete this scheme ?");
    Select(window, "Juniors");
    Click(window, IDC_DELETE);

    script.Expect("Save As", choose);
    Click(window, IDC_SAVE);
    // What an import leaves of schemes that lacked sections is complete; that state is the one to compare.
    script.Expect("Open", choose);
    Click(window, IDC_LOAD);
    saved = DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey);

    script.ExpectMessage("Scheme Deletion", "Are you sure you want to delete this scheme ?");
    Select(window, "Infants");
    Click(window, IDC_DELETE);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "[]\n");
    script.Expect("Open", choose);
    Click(window, IDC_LOAD);
    EXPECT_EQ(Names(window), (Texts{"Infants", "Staff"})) << "the list follows without a restart";
  });
  Show();
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey), saved);
  std::filesystem::remove(file);
}

}  // namespace
