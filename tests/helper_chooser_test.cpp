#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "helper/helper_chooser.h"
#include "helper/helper_chooser_ids.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

// The settings as a tree, with the path as it stands in the registry.
std::string Setting(std::string path) {
  for (std::size_t i = 0; (i = path.find('\\', i)) != std::string::npos; i += 2)
    path.insert(i, 1, '\\');
  return "[] \"msAgent Path\"=\"" + path + "\"";
}

std::string WindowsPath(const std::string& helper) {
  char folder[MAX_PATH] = "";
  GetWindowsDirectoryA(folder, MAX_PATH);
  return std::string(folder) + "\\msagent\\chars\\" + helper + ".acs";
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

class HelperTest : public RegistryTest {
 protected:
  // Shows the dialog, does something in it, and expects this setting afterwards.
  void Show(DialogScript::Action action, const std::string& setting) {
    DialogScript script;
    script.Expect("Choose an OnScreen Helper", std::move(action));
    CHelperDialog().DoModal(nullptr);
    ExpectTree(HKEY_LOCAL_MACHINE, kSettingsKey, setting);
  }
};

TEST_F(HelperTest, OpensWithTheHelperOfTheSettingAndWritesTheChoiceAtOk) {
  Show([](HWND dialog) { Click(dialog, IDOK); }, "");  // a machine without the shell's settings
  const struct {
    const char *Path, *Selected;
    bool Rewritten;  // at once, to Peedy's path
  } cases[] = {
      {".acs", "Peedy", true},
      {"merlin.acs", "Peedy", true},  // "erlin"
      {"C:\\Windows\\msagent\\chars\\merlin.acs", "Peedy", true},
      {"C:\\Windows\\msagent\\chars\\", "Peedy", true},
      {"D:\\elsewhere\\Genie.acs", "Genie", false},
      {"xMerlin.txt", "Merlin", false},  // the first letter is lost, the extension is not looked at
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.Path);
    WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, Setting(test.Path));
    const std::string opened = Setting(test.Rewritten ? WindowsPath("Peedy") : test.Path);
    const auto chooseAndLeave = [&](HWND dialog) {
      ExpectSelected(dialog, test.Selected);
      Click(dialog, IDC_HELPER_ROBBY);
      ExpectSelected(dialog, "Robby");
      ExpectTree(HKEY_LOCAL_MACHINE, kSettingsKey, opened);
      SendMessageA(dialog, WM_CLOSE, 0, 0);
    };
    Show(chooseAndLeave, opened);
    Show([](HWND dialog) { Click(dialog, IDOK); }, Setting(WindowsPath(test.Selected)));
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
  Show(press, Setting(WindowsPath("Genie")));
  g_setValue = g_realSetValue;
  EXPECT_EQ(g_sizes, (std::vector{WindowsPath("Peedy").size(), WindowsPath("Genie").size()}));
}

TEST(Helper, GroundCarriesBetweenChannels) { EXPECT_EQ(PictureGround(0xF0F0FF), 0xFAFB09u); }

}  // namespace
