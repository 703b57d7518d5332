#include <windows.h>

#include <iomanip>
#include <sstream>
#include <vector>

#include "helper/dialog/helper_chooser.h"
#include "helper/dialog/helper_chooser_ids.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
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
  EXPECT_NE(GetModuleHandleA("SHFolder.dll"), nullptr);  // the library of every time but the first
}

// The program's way to RegSetValueExA. The system takes in a NUL that stands behind the data, so the registry
// does not tell whether it was counted.
#ifdef _WIN64
extern "C" decltype(&RegSetValueExA) g_setValue asm("__imp_RegSetValueExA");
#else
extern "C" decltype(&RegSetValueExA) g_setValue asm("__imp__RegSetValueExA@24");
#endif
const auto g_realSetValue = g_setValue;
std::vector<std::size_t> g_sizes;

LSTATUS WINAPI RecordSize(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size) {
  g_sizes.push_back(size);
  return g_realSetValue(key, name, reserved, type, data, size);
}

TEST_F(HelperTest, IsChosenByKeyboardAndCountsNoTerminatingNul) {
  WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, "[]");  // no setting: one write at once, one at OK
  DWORD old = 0;
  VirtualProtect(&g_setValue, sizeof(g_setValue), PAGE_READWRITE, &old);
  g_setValue = &RecordSize;
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
  g_setValue = g_realSetValue;
  EXPECT_EQ(g_sizes, (std::vector{PathOf("Peedy").size(), PathOf("Genie").size()}));
}

TEST(Helper, GroundCarriesBetweenChannels) { EXPECT_EQ(PictureGround(0xF0F0FF), 0xFAFB09u); }

}  // namespace
