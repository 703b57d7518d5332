#include <windows.h>

#include <iomanip>
#include <sstream>
#include <vector>

#include "helper/dialog/helper_chooser.h"
#include "helper/dialog/helper_chooser_ids.h"
#include "helper/windows_folder.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/imported_calls.h"
#include "support/looks.h"
#include "support/registry_test.h"

namespace {

// The settings as a tree.
std::string Setting(const std::string& path) {
  return (std::ostringstream() << "[] \"msAgent Path\"=" << std::quoted(path)).str();
}

std::string PathOf(const std::string& helper) {
  return getenv("windir") + ("\\msagent\\chars\\" + helper + ".acs");
}

// The chosen button, and by it the text, the check marks and the tab stop.
void ExpectSelected(HWND dialog, const std::string& name) {
  EXPECT_EQ(ControlText(dialog, IDC_HELPER_SELECTED), name);
  for (const int id : {IDC_HELPER_PEEDY, IDC_HELPER_MERLIN, IDC_HELPER_ROBBY, IDC_HELPER_GENIE}) {
    const bool selected = ControlText(dialog, id) == name;
    EXPECT_EQ(IsDlgButtonChecked(dialog, id) == BST_CHECKED, selected) << ControlText(dialog, id);
    EXPECT_EQ((GetWindowLongA(GetDlgItem(dialog, id), GWL_STYLE) & WS_TABSTOP) != 0, selected);
  }
}

// Shows the dialog, does something in it, and expects this setting afterwards.
void Show(DialogScript::Action action, const std::string& setting) {
  DialogScript script;
  script.Expect("Choose an OnScreen Helper", std::move(action));
  CHelperDialog().DoModal(nullptr);
  ExpectTree(HKEY_LOCAL_MACHINE, kSettingsKey, setting);
}

using HelperTest = RegistryTest;

TEST_F(HelperTest, OpensWithTheHelperOfTheSettingOrWritesPeedys) {
  Show([](HWND dialog) { Click(dialog, IDOK); }, "");  // a machine without the shell's settings
  const std::pair<std::string, std::string> cases[] = {
      {".acs", ""},
      {"merlin.acs", ""},  // "erlin"
      {"C:\\Windows\\msagent\\chars\\merlin.acs", ""},
      {"C:\\Windows\\msagent\\chars\\", ""},
      {"D:\\elsewhere\\Genie.acs", "Genie"},
      {"xMerlin.txt", "Merlin"},  // the first letter is lost, the extension is not looked at
  };
  for (const auto& [path, named] : cases) {
    SCOPED_TRACE(path);
    WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, Setting(path));
    const auto leave = [&named = named](HWND dialog) {
      ExpectSelected(dialog, named.empty() ? "Peedy" : named);
      Click(dialog, IDC_HELPER_ROBBY);
      ExpectSelected(dialog, "Robby");
      SendMessageA(dialog, WM_CLOSE, 0, 0);
    };
    Show(leave, Setting(named.empty() ? PathOf("Peedy") : path));
  }
}

TEST_F(HelperTest, IsChosenByKeyboard) {
  WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, "[]");
  const auto press = [](HWND dialog) {
    const std::pair<WPARAM, const char*> keys[] = {
        {VK_RIGHT, "Merlin"}, {VK_DOWN, "Robby"}, {VK_TAB, "Robby"},  {VK_TAB, "Robby"},
        {VK_SPACE, "Robby"},  {VK_UP, "Merlin"},  {VK_LEFT, "Peedy"}, {VK_LEFT, "Genie"}};
    for (const auto& [key, selected] : keys) {
      PressKey(key);
      Pump();
      ExpectSelected(dialog, selected);
    }
    PressKey(VK_RETURN);
  };
  Show(press, Setting(PathOf("Genie")));
}

TEST_F(HelperTest, ShowsThePicturesAndTooltips) {
  const struct {
    int Id;
    UINT First, Second;
    const char* Tooltip;
  } cases[] = {{1141, 229, 233, "Selects Peedy as agent to use"},
               {1144, 228, 232, "Selects Merlin as agent to use"},
               {1143, 230, 231, "Selects Robby as agent to use"},
               {1145, 235, 234, "Selects Genie as agent to use"}};
  const auto shows = [](HWND button, UINT bitmapId) {
    RECT area;
    GetClientRect(button, &area);
    const Canvas canvas(area.right, area.bottom);
    DRAWITEMSTRUCT item{};
    item.hDC = canvas.Dc.Get();
    SendMessageA(button, kDrawYourself, 0, reinterpret_cast<LPARAM>(&item));
    return ShowsBitmap(canvas, (canvas.Width - 96) / 2, 6, bitmapId);
  };
  DialogScript script;
  script.Expect("Choose an OnScreen Helper", [&](HWND dialog) {
    for (const auto& [id, first, second, tooltip] : cases) {
      Click(dialog, id);
      for (const auto& other : cases)
        EXPECT_TRUE(shows(GetDlgItem(dialog, other.Id), other.Id == id ? other.Second : other.First)) << id;
      EXPECT_EQ(TooltipOf(dialog, id), tooltip);
    }
    Click(dialog, IDOK);
  });
  CHelperDialog().DoModal(nullptr);
}

HRESULT WINAPI KnowNoFolder(HWND, int, HANDLE, DWORD, LPSTR) { return E_FAIL; }
FARPROC WINAPI FindKnowNoFolder(HMODULE, LPCSTR) {
  return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&KnowNoFolder));
}

TEST(Helper, FindsTheWindowsFolderThroughShell32OnlyTheFirstTime) {
  ImportedCalls calls({IMPORTED(LoadLibraryA)});
  calls.FailEach("LoadLibraryA", ERROR_MOD_NOT_FOUND);
  EXPECT_EQ(WindowsFolder(), "") << "without any library";
  calls.FailEach("", 0);
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(WindowsFolder(), getenv("windir"));
  const Diversion diversion("GetProcAddress", reinterpret_cast<void*>(&FindKnowNoFolder));
  EXPECT_EQ(WindowsFolder(), "C:\\Windows") << "of a library that does not know it";
  const std::vector<std::string> loaded(calls.Lines().end() - 3, calls.Lines().end());
  EXPECT_EQ(loaded, (std::vector<std::string>{"LoadLibraryA Shell32.dll", "LoadLibraryA SHFolder.dll",
                                              "LoadLibraryA SHFolder.dll"}));
}

TEST(Helper, GroundCarriesBetweenChannels) { EXPECT_EQ(PictureGround(0xF0F0FF), 0xFAFB09u); }

}  // namespace
