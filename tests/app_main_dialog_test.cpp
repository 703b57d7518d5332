#include "app/main_dialog.h"

#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <shellapi.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/main_dialog_ids.h"
#include "controls/window_handles.h"
#include "editor/scheme_creation_dialog_ids.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/imported_calls.h"
#include "support/list_driver.h"
#include "support/looks.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"
#include "support/scratch_folder.h"

namespace {

constexpr char kTitle[] = "Kelvanstead Scheme Manager";
const MessageStyle kOwnWarning = kWarning.OwnedBy(kTitle);
constexpr char kDeletionQuestion[] = "Are you sure you want to delete this scheme ?";

// Controls of the main window, and of the General page.
constexpr int kList = 1021, kCreate = 1014, kDelete = 1015, kEdit = 1016, kLoad = 1034, kSave = 1035;
constexpr int kAllocate = 1124, kHelper = 1139, kMenuHelp = 32771, kMenuAbout = 32772;
constexpr int kGeneralName = 1036, kGeneralDescription = 1028;
constexpr UINT kBuiltInIcon = 187, kSchemeIcon = 186;

// Three schemes, one of them built in.
constexpr char kMachine[] = R"(
  [Protected Schemes] "Staff"="" "INFANTS"=""
  [Schemes] "Infants"="For the youngest" "Juniors"=" " "Staff"="Teachers"
  [Schemes\Infants\TabSelection] "Page1"=dword:1 "Page2"=dword:1 "Page3"=dword:1
  [Schemes\Infants\Defaults] "DefaultView"="tree1"
  [Schemes\Staff] [Schemes\Juniors]
  [Class Schemes] "1A"="INFANTS" "1B"="Juniors")";

std::vector<COLORREF> Pixels(HIMAGELIST images, int image) {
  constexpr int kSize = 16;
  const Canvas canvas(kSize, kSize);
  ImageList_Draw(images, image, canvas.Dc.Get(), 0, 0, ILD_TRANSPARENT);
  std::vector<COLORREF> pixels;
  for (int i = 0; i < kSize * kSize; ++i)
    pixels.push_back(GetPixel(canvas.Dc.Get(), i % kSize, i / kSize));
  return pixels;
}

class MainWindowTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, kMachine);
  }

  // Runs the main window of the machine through `use` and closes it.
  void Run(const std::function<void()>& use) {
    script_.Expect(kTitle, [&](HWND window) {
      window_ = window;
      list_ = GetDlgItem(window, kList);
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

  void Select(const std::string& scheme) const { SelectRow(list_, FindRow(list_, scheme)); }
  void DoubleClickSelectedRow() const {
    RECT row{};
    ListView_GetItemRect(list_, SelectedRow(list_), &row, LVIR_LABEL);
    SendMessageA(list_, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(row.left + 4, row.top + 4));
  }
  void Delete(const std::string& scheme, int answer) {
    script_.ExpectMessage(kOwnWarning.WithCancel(), "Scheme Deletion", kDeletionQuestion, answer);
    Select(scheme);
    Click(window_, kDelete);
  }
  // A sheet in which a name is typed and confirmed.
  void ExpectSheet(const char* title, const std::string& name) {
    script_.Expect(title, [name](HWND sheet) {
      const HWND page = PropSheet_GetCurrentPageHwnd(sheet);
      Type(page, kGeneralName, name);
      Type(page, kGeneralDescription, "Described");
      Click(sheet, IDOK);
    });
  }

  DialogScript script_;
  HWND window_ = nullptr, list_ = nullptr;
};

TEST_F(MainWindowTest, ShowsTheMachine) {
  Run([this] {
    EXPECT_EQ(Rows(), "1Infants 1Juniors 0Staff ") << "the built in one, compared with case";
    EXPECT_EQ(ListCellText(list_, 0, 1), "For the youngest");
    EXPECT_EQ(GetFocus(), list_);

    const HIMAGELIST images = ListView_GetImageList(list_, LVSIL_SMALL);
    for (const auto& [image, icon] : {std::pair{0, kBuiltInIcon}, std::pair{1, kSchemeIcon}}) {
      const UniqueIcon loaded(static_cast<HICON>(
          LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(icon), IMAGE_ICON, 16, 16, 0)));
      const UniqueImageList expected(ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1));
      ImageList_AddIcon(expected.Get(), loaded.Get());
      EXPECT_EQ(Pixels(images, image), Pixels(expected.Get(), 0)) << "picture " << image;
    }

    EXPECT_EQ(GetWindowLongA(list_, GWL_STYLE) & 0x804D, 0x804D);
    EXPECT_EQ(ListView_GetExtendedListViewStyle(list_), 0x20u);
    EXPECT_EQ(ColumnsOf(list_), "Name 180, Description 196, ") << "the second one fills the list";
  });
}

TEST_F(MainWindowTest, ReportsUnreadableSchemesOnceAndDeletesTheSelectedOneOnly) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(@="whose?" "Gone"="" "Lost"="")");
  script_.ExpectMessage(kWarning, "Schemes Problem",
                        "The following scheme/s could not be read:\nGone, Lost.\n\nIt's recommended that "
                        "they are reloaded from a valid\nKelvanstead Scheme Manager configuration file.");
  Run([this] {
    const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey);
    Click(window_, kDelete);  // nothing is selected
    Click(window_, kEdit);

    for (const bool byButton : {true, false}) {
      script_.ExpectMessage(kOwnWarning, "Error", "Staff is a built in scheme and cannot be edited");
      Select("Staff");
      byButton ? Click(window_, kEdit) : DoubleClickSelectedRow();
    }
    script_.ExpectMessage(kOwnWarning, "Error",
                          "As the name of this scheme is a blank deleting it is not possible.\nPlease "
                          "contact your system administrator for help");
    Select("");
    Click(window_, kDelete);
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Juniors"="")");  // built in by now
    script_.ExpectMessage(kOwnWarning, "Error", "Juniors is a built in scheme and cannot be removed");
    Select("Juniors");
    Click(window_, kDelete);
    Delete("Infants", IDCANCEL);
    EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey), before);

    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProtectedSchemesKey);
    script_.ExpectMessage(kOwnWarning.WithCancel(), "Scheme Deletion", kDeletionQuestion);
    SendMessageA(list_, WM_KEYDOWN, VK_DELETE, 0);
    EXPECT_EQ(Rows(), "1 *1Juniors 1Staff ") << "the next row is selected";
    Delete("Staff", IDOK);
    EXPECT_EQ(Rows(), "1 *1Juniors ") << "behind the last row, the one before";
  });
  ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, R"(
    [Class Schemes] "1B"="Juniors" [Schemes] @="whose?" "Gone"="" "Lost"="" "Juniors"=" " [Schemes\Juniors])");
}

TEST_F(MainWindowTest, TheListFollowsTheRegistryAfterEachCommand) {
  Run([this] {
    script_.Expect("Scheme Creation", [](HWND dialog) {
      EXPECT_EQ(ControlText(dialog, IDC_CREATION_SOURCE), "Staff") << "the selected scheme";
      Click(dialog, IDOK);
    });
    ExpectSheet("New Scheme Properties", "Club");
    Select("Staff");
    Click(window_, kCreate);
    EXPECT_EQ(Rows(), "*1Club 1Infants 1Juniors 0Staff ") << "where the registry lists it, and selected";

    ExpectSheet("Existing Scheme Properties", "Year 1");
    Select("Infants");
    DoubleClickSelectedRow();
    EXPECT_EQ(Rows(), "1Club 1Juniors 0Staff *1Year 1 ") << "selected under its new name";
    EXPECT_EQ(ListCellText(list_, 3, 1), "Described");

    const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
    ImportedCalls calls({IMPORTED(RegOpenKeyExA)});
    calls.FailNth(2, ERROR_ACCESS_DENIED);  // the first is that of the built-in schemes
    Delete("Juniors", IDOK);
    EXPECT_EQ(Rows(), "1Club *1Juniors 0Staff 1Year 1 ") << "a refused deletion is seen at once";
    EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kProductKey), before) << "and left the allocations alone";
  });
  EXPECT_EQ(ReadText(HKEY_LOCAL_MACHINE, SchemeKeyPath("Year 1") + "\\Defaults", "DefaultView"), "tree1");
}

// What an edit cannot write is told, and a scheme that cannot be read is not opened.
TEST_F(MainWindowTest, TellsWhenAnEditFailsAndShowsWhatIsStored) {
  Run([this] {
    ImportedCalls calls({IMPORTED(RegSetValueExA), IMPORTED(RegOpenKeyExA)});
    for (const char* refused : {"RegSetValueExA Year 1", "RegSetValueExA DefaultView"}) {
      calls.FailEach(refused, ERROR_ACCESS_DENIED);
      ExpectSheet("Existing Scheme Properties", "Year 1");
      script_.ExpectMessage(kOwnWarning, "Error",
                            "Year 1 could not be saved completely.\nThe list shows what is stored now.");
      Select("Infants");
      Click(window_, kEdit);
    }
    EXPECT_EQ(Rows(), "1Juniors 0Staff *1Year 1 ");
    calls.FailEach("Juniors\\ToolBars\\Page 2", ERROR_ACCESS_DENIED);
    script_.ExpectMessage(kOwnWarning, "Error",
                          "Juniors could not be read, so it is left as it is.\nPlease try again later.");
    Select("Juniors");
    Click(window_, kEdit);
  });
}

TEST_F(MainWindowTest, OpensTheOtherWindowsAndThePageOfTheHelpForEach) {
  const ScratchFolder folder;
  for (const char* name : {"help.htm", "main-window.htm", "allocation.htm", "scheme-editor-general.htm",
                           "scheme-editor-links.htm", "scheme-creation.htm"})
    WriteFileBytes(folder.File(name), "");
  const std::string help = folder.File("help.htm"), schemes = folder.File("schemes.ksf");
  WriteFileBytes(schemes, ExpectedFile());
  ImportedCalls calls({IMPORTED(ShellExecuteA)});
  calls.FailEach("ShellExecuteA", ERROR_ACCESS_DENIED);
  const auto pressF1 = [](HWND window) {
    HELPINFO info{};
    info.cbSize = sizeof(info);
    SendMessageA(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
  };
  const auto pressF1AndCancel = [&](HWND dialog) {
    pressF1(dialog);
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  };
  Run([&] {
    script_.ExpectMessage({.Icon = MB_ICONINFORMATION, .Beep = MB_ICONEXCLAMATION}, "Help Problem",
                          "There has been a problem locating the correct help file.\nIt is recommended you "
                          "inform your system administrator\nof this error");
    pressF1(window_);
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\KelvansteadScheme Manager", "HelpPath", REG_SZ,
                    help.c_str(), static_cast<DWORD>(help.size() + 1));
    pressF1(window_);
    EXPECT_EQ(calls.Lines().back(), "ShellExecuteA open " + folder.File("main-window.htm"));
    SendMessageA(window_, WM_COMMAND, kMenuHelp, 0);
    script_.Expect("User Schemes", pressF1AndCancel);
    Click(window_, kAllocate);
    script_.Expect("Choose an OnScreen Helper", pressF1AndCancel);  // which has no page of its own
    Click(window_, kHelper);
    script_.Expect("Scheme Creation", pressF1AndCancel);
    Click(window_, kCreate);
    script_.Expect("Existing Scheme Properties", [&](HWND sheet) {
      pressF1(GetDlgItem(PropSheet_GetCurrentPageHwnd(sheet), kGeneralName));
      pressF1(GetDlgItem(sheet, IDOK));
      PropSheet_SetCurSel(sheet, nullptr, 1);
      Click(sheet, IDHELP);
      Click(PropSheet_GetCurrentPageHwnd(sheet), IDHELP);
      Click(PropSheet_GetCurrentPageHwnd(sheet), IDC_ADD_ITEM);
      Click(sheet, IDCANCEL);
    });
    script_.Expect("Web Links", pressF1AndCancel);
    Select("Infants");
    Click(window_, kEdit);
    std::string opened;
    for (const std::string& line : calls.Lines())
      opened += std::filesystem::path(line).stem().string() + ' ';
    EXPECT_EQ(opened,
              "main-window help allocation help scheme-creation scheme-editor-general scheme-editor-general "
              "scheme-editor-links scheme-editor-links help ");

    script_.Expect("About Kelvanstead Scheme Manager", [](HWND about) {
      EXPECT_EQ(TakeBeeps(), (std::vector<UINT>{0})) << "the default sound";
      EXPECT_TRUE(FindWindowExA(about, nullptr, "Static", "Kelvanstead Scheme Manager version 2.28.0.0"));
      Click(about, IDOK);
    });
    SendMessageA(window_, WM_COMMAND, kMenuAbout, 0);
    script_.Expect("Save As", [](HWND dialog) { Click(dialog, IDCANCEL); }).Expect("Open", [&](HWND dialog) {
      constexpr int kFileName = 1148;
      SetDlgItemTextA(dialog, kFileName, schemes.c_str());
      Click(dialog, IDOK);
    });
    Click(window_, kSave);
    Click(window_, kLoad);
    EXPECT_EQ(Rows(), "1Infants 1Juniors 1" + kLeo + " 0Staff ") << "the list follows without a restart";
  });
}

}  // namespace
