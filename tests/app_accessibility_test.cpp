// A walk over every window of the program as a screen reader and a keyboard go: what Tab leads to and what it
// is called, letters that lead to one control each, and texts that have room.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include <cctype>
#include <functional>
#include <map>
#include <string>

#include "app/load_schemes_command.h"
#include "app/main_dialog.h"
#include "base/com_apartment.h"
#include "base/names.h"
#include "controls/window_handles.h"
#include "controls/window_text.h"
#include "support/dialog_script.h"
#include "support/environment_component.h"
#include "support/list_driver.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"
#include "support/scratch_folder.h"

namespace {

std::string ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof(name));
  return name;
}

std::string WithoutMnemonic(std::string text) {
  std::erase(text, '&');
  return text;
}

// What the accessibility interface calls a control, which must have a role there and be able to take the
// focus.
std::string AccessibleName(HWND control) {
  IAccessible* object = nullptr;
  if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                        reinterpret_cast<void**>(&object))))
    return "";
  VARIANT self{}, role{}, state{};
  self.vt = VT_I4;
  BSTR name = nullptr;
  object->get_accName(self, &name);
  object->get_accRole(self, &role);
  object->get_accState(self, &state);
  object->Release();
  char text[256] = "";
  if (name) WideCharToMultiByte(CP_ACP, 0, name, -1, text, sizeof(text) - 1, nullptr, nullptr);
  SysFreeString(name);
  EXPECT_NE(role.lVal, 0) << text;
  EXPECT_EQ(state.lVal & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_UNAVAILABLE), STATE_SYSTEM_FOCUSABLE) << text;
  return text;
}

// Windows calls lists and combo boxes by the label or the frame that stands before them, whatever their own
// text; Wine does so for edit controls only.
std::string LabelBefore(HWND control) {
  for (HWND before = control; (before = GetWindow(before, GW_HWNDPREV));) {
    if (!IsWindowVisible(before)) continue;
    if (!(SendMessageA(before, WM_GETDLGCODE, 0, 0) & DLGC_STATIC)) break;
    if ((GetWindowLongA(before, GWL_STYLE) & SS_TYPEMASK) != SS_ICON)
      return WithoutMnemonic(WindowText(before));
  }
  return "";
}

// The letter behind the &, in lower case; 0 without one.
char Mnemonic(const std::string& text) {
  for (std::size_t i = text.find('&'); i != text.npos && i + 1 < text.size(); i = text.find('&', i + 2)) {
    if (text[i + 1] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(text[i + 1])));
  }
  return 0;
}

// Whether a button or a label has room for its text.
bool HasRoom(HWND control) {
  RECT area{};
  GetClientRect(control, &area);
  const LONG style = GetWindowLongA(control, GWL_STYLE);
  const bool isStatic = ClassOf(control) == "Static";
  const LONG type = isStatic ? style & SS_TYPEMASK : style & BS_TYPEMASK;
  if (isStatic ? type == SS_ICON || (style & SS_ELLIPSISMASK) != 0 : type == BS_OWNERDRAW) return true;
  constexpr int kBox = 16, kEdges = 6;  // of a check box or radio button, of a push button
  if (!isStatic) area.right -= type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON ? kEdges : kBox;
  const WindowDc dc(control);
  const SelectedObject font(dc.Get(), reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)));
  RECT needed{0, 0, area.right, 0};
  UINT format = DT_CALCRECT;
  if (isStatic && type != SS_LEFTNOWORDWRAP) format |= DT_WORDBREAK;
  if (style & SS_NOPREFIX && isStatic) format |= DT_NOPREFIX;
  const std::string text = WindowText(control);
  DrawTextA(dc.Get(), text.c_str(), -1, &needed, format);
  return needed.right <= area.right && needed.bottom <= area.bottom;
}

using Letters = std::map<char, std::string>;

BOOL CALLBACK ExamineText(HWND control, LPARAM parameter) {
  const bool isLabel = ClassOf(control) == "Static";
  if (!IsWindowVisible(control) || !(isLabel || ClassOf(control) == "Button")) return TRUE;
  auto& letters = *reinterpret_cast<Letters*>(parameter);
  const std::string text = WindowText(control);
  EXPECT_TRUE(HasRoom(control)) << text;
  const bool hasLetter = !isLabel || !(GetWindowLongA(control, GWL_STYLE) & SS_NOPREFIX);
  if (const char letter = hasLetter ? Mnemonic(text) : '\0') {
    EXPECT_TRUE(letters.emplace(letter, text).second) << text << " and " << letters[letter];
  }
  return TRUE;
}

// The names of what Tab leads to, in its order.
std::string TabOrder(HWND dialog) {
  std::string names;
  const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
  HWND control = first;
  do {
    const std::string type = ClassOf(control);
    const bool isLabelled = type == "SysListView32" || type == "ComboBox" || type == "ListBox";
    const std::string accessible = AccessibleName(control);
    const std::string name = isLabelled ? LabelBefore(control) : accessible;
    // The tabs of a sheet go by that of the page that is shown, which Wine does not tell.
    if (type != "SysTabControl32") {
      EXPECT_FALSE(name.empty()) << GetDlgCtrlID(control);
      names += (names.empty() ? "" : " | ") + name;
    }
    control = GetNextDlgTabItem(dialog, control, FALSE);
  } while (control != first);
  return names;
}

void ExpectControls(HWND dialog, const char* tabOrder) {
  Letters letters;
  EnumChildWindows(dialog, &ExamineText, reinterpret_cast<LPARAM>(&letters));
  EXPECT_EQ(TabOrder(dialog), tabOrder);
}

const auto Close = [](HWND dialog) { SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0); };

class AccessibilityTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly", R"(
      [Kelvanstead\Schemes] "Infants"=""
      [Kelvanstead\Schemes\Infants\TabSelection] "Page1"=dword:1 "Page2"=dword:1 "Page3"=dword:1
      [Tallowby\Accounts\ann] "Account Type"="Teachers")");
  }

  // Expects a window with this tab order, and closes it when it has been used.
  void Expect(const char* title, const char* tabOrder, const std::function<void(HWND window)>& use = Close,
              DialogScript::Place place = DialogScript::Place::current()) {
    script_.Expect(
        title,
        [=](HWND window) {
          ExpectControls(window, tabOrder);
          use(window);
        },
        place);
  }
  // Runs the main window.
  void Run(const std::function<void(HWND window)>& use) {
    Expect("Kelvanstead Scheme Manager",
           "Available Schemes | Create | Edit | Delete | Load from disk | Save to disk | Allocate Schemes | "
           "Choose OnScreen Helper | Help and About | Close",
           [&](HWND window) {
             use(window);
             EXPECT_EQ(script_.Remaining(), 0u);
             Click(window, IDOK);
           });
    CMainDialog().DoModal(nullptr);
  }

  const ComApartment apartment_;
  DialogScript script_;
};

TEST_F(AccessibilityTest, MainWindowAndTheDialogsOfItsCommands) {
  constexpr int kCreate = 1014, kAllocate = 1124, kHelper = 1139, kAbout = 32772;
  constexpr int kAllocationList = 1124, kChange = 1126;
  Run([&](HWND window) {
    Expect("About Kelvanstead Scheme Manager", "OK");
    SendMessageA(window, WM_COMMAND, kAbout, 0);
    TakeBeeps();
    Expect("Scheme Creation", "Completely new | OK | Cancel");
    Click(window, kCreate);
    Expect("Choose an OnScreen Helper", "Peedy | OK");
    Click(window, kHelper);
    Expect("User Schemes", "Scheme to apply: | OK");
    Click(window, kAllocate);

    const EnvironmentComponent component([](LONG* code) { return *code = 3, S_OK; });
    Expect(
        "Classes, Users and Schemes",
        "Double click to set the scheme for a Class, User or User Group,or select items and click Change. | "
        "OK | Cancel",
        [&](HWND dialog) {
          SelectRow(GetDlgItem(dialog, kAllocationList), 0);
          Expect("Schemes",
                 "Please select a Scheme.\n\rLeave blank and press OK to clear a selection. | OK | Cancel");
          Click(dialog, kChange);
          Close(dialog);
        });
    Click(window, kAllocate);
  });
}

TEST_F(AccessibilityTest, EditorWithItsPagesAndDialogs) {
  constexpr int kList = 1021, kEdit = 1016, kName = 1036, kAdd = 1014, kChoosePicture = 1052;
  constexpr int kNewName = 1101;
  const auto shown = [](HWND sheet) { return PropSheet_GetCurrentPageHwnd(sheet); };
  const auto useSheet = [&](HWND sheet) {
    PropSheet_SetCurSel(sheet, nullptr, 1);
    ExpectControls(sheet, "Links: | Add... | Help | OK | Cancel | Help");
    Expect("Web Links",
           "Display Name: | URL: | Long ToolTip: | Short ToolTip: | Picture: | File: | OK | Cancel | Help");
    Click(shown(sheet), kAdd);
    PropSheet_SetCurSel(sheet, nullptr, 2);
    ExpectControls(sheet, "Folders: | Add... | Help | OK | Cancel | Help");
    Expect("Root Properties",
           "Display Name: | Path: | Browse... | Folder levels: | Users may not change the contents | "
           "Closed folder: | Choose... | Open folder: | Choose... | Long ToolTip: | Short ToolTip: | OK | "
           "Cancel | Help",
           [&](HWND dialog) {
             Expect("Choose a Picture", "Pictures: | File: | Browse... | OK | Cancel | Help");
             Click(dialog, kChoosePicture);
             Close(dialog);
           });
    Click(shown(sheet), kAdd);
    PropSheet_SetCurSel(sheet, nullptr, 0);
    Type(shown(sheet), kName, " ");
    Expect("Scheme Name Problem",
           "A scheme must have a valid and unique  name. This name cannot be blank.\n\nPlease re-enter it "
           "here | OK",
           [&](HWND dialog) {
             Type(dialog, kNewName, "Infants");
             Click(dialog, IDOK);
           });
    Click(sheet, IDOK);
  };
  Run([&](HWND window) {
    Expect(
        "Existing Scheme Properties",
        "Name: | Description: | Programs | My Files | Links | Cut, Copy & Paste | Delete | New & Rename | "
        "Undo | Print | Icon Size | Tab: | View for 'My Files': | Off | Off | Talking | OK | Cancel | Help",
        useSheet);
    SelectRow(GetDlgItem(window, kList), 0);
    Click(window, kEdit);
  });
}

TEST_F(AccessibilityTest, LoadSchemes) {
  const ScratchFolder folder;
  const std::string path = folder.File("schemes.ksf");
  WriteFileBytes(path, ExpectedFile() + "torn");
  Run([&](HWND window) {
    Expect("Load Schemes",
           "Schemes in this file (those that are checked are loaded): | Check All | Check None | "
           "Settings of the selected scheme that loading it changes: | Damage in this file: | "
           "Keep a copy of the present schemes | In the file: | Browse... | Load | Cancel");
    OpenSchemeFile(window, Widen(path), {});
  });
}

}  // namespace
