#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "helper/helper_chooser.h"
#include "helper/helper_chooser_ids.h"
#include "helper/windows_folder.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

constexpr char kTitle[] = "Choose an OnScreen Helper";
constexpr char kSettings[] = "Software\\Tessaly\\Kelvanstead\\Settings";
constexpr int kButtons[] = {IDC_HELPER_PEEDY, IDC_HELPER_MERLIN, IDC_HELPER_ROBBY, IDC_HELPER_GENIE};

// The settings as a tree, with the path as it stands in the registry.
std::string Setting(std::string path) {
  for (std::size_t i = 0; (i = path.find('\\', i)) != std::string::npos; i += 2)
    path.insert(i, 1, '\\');
  return "[]\n\"msAgent Path\"=\"" + path + "\"\n";
}

std::string WindowsPath(const std::string& helper) {
  char folder[MAX_PATH] = "";
  GetWindowsDirectoryA(folder, MAX_PATH);
  return std::string(folder) + "\\msagent\\chars\\" + helper + ".acs";
}

// The chosen button, and by it the text, the check marks and the tab stop.
void ExpectSelected(HWND dialog, const std::string& name) {
  EXPECT_EQ(ControlText(dialog, IDC_HELPER_SELECTED), name);
  for (const int id : kButtons) {
    const bool selected = ControlText(dialog, id) == name;
    EXPECT_EQ(IsDlgButtonChecked(dialog, id) == BST_CHECKED, selected) << ControlText(dialog, id);
    EXPECT_EQ((GetWindowLongA(GetDlgItem(dialog, id), GWL_STYLE) & WS_TABSTOP) != 0, selected);
  }
}

using HelperTest = RegistryTest;

TEST_F(HelperTest, OpensWithTheHelperOfTheSettingAndWritesTheChoiceAtOk) {
  const struct {
    const char* Path;
    const char* Selected;
    bool Rewritten;  // at once, to Peedy's path
  } cases[] = {
      {"", "Peedy", true},
      {".acs", "Peedy", true},
      {"merlin.acs", "Peedy", true},  // "erlin"
      {"C:\\Windows\\msagent\\chars\\merlin.acs", "Peedy", true},
      {"C:\\Windows\\msagent\\chars\\", "Peedy", true},
      {"D:\\elsewhere\\Genie.acs", "Genie", false},
      {"\\Robby.acs", "Robby", false},
      {"xMerlin.txt", "Merlin", false},  // the first letter is lost, the extension is not looked at
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.Path);
    WriteTree(HKEY_LOCAL_MACHINE, kSettings, Setting(test.Path));
    const std::string opened = Setting(test.Rewritten ? WindowsPath("Peedy") : test.Path);
    DialogScript script;
    script.Expect(kTitle, [&](HWND dialog) {
      ExpectSelected(dialog, test.Selected);
      ExpectTree(HKEY_LOCAL_MACHINE, kSettings, opened);
      for (const int id : kButtons) {
        Click(dialog, id);
        ExpectSelected(dialog, ControlText(dialog, id));
      }
      SendMessageA(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(CHelperDialog().DoModal(nullptr), IDCANCEL);
    ExpectTree(HKEY_LOCAL_MACHINE, kSettings, opened);

    script.Expect(kTitle, [&](HWND dialog) { Click(dialog, IDOK); });
    EXPECT_EQ(CHelperDialog().DoModal(nullptr), IDOK);
    ExpectTree(HKEY_LOCAL_MACHINE, kSettings, Setting(WindowsPath(test.Selected)));
  }
}

// The program's way to RegSetValueExA.
#ifdef _WIN64
extern "C" decltype(&RegSetValueExA) g_setValue asm("__imp_RegSetValueExA");
#else
extern "C" decltype(&RegSetValueExA) g_setValue asm("__imp__RegSetValueExA@24");
#endif

// Looks at the sizes with which values are written: the system takes in a NUL that stands behind the data, so
// the registry does not tell whether it was counted.
class WriteSizes {
 public:
  WriteSizes() {
    DWORD old = 0;
    VirtualProtect(&g_setValue, sizeof(g_setValue), PAGE_READWRITE, &old);
    g_setValue = &Record;
    sizes_.clear();
  }
  ~WriteSizes() { g_setValue = real_; }
  const std::vector<DWORD>& Sizes() const { return sizes_; }

 private:
  static LSTATUS WINAPI Record(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data,
                               DWORD size) {
    sizes_.push_back(size);
    return real_(key, name, reserved, type, data, size);
  }

  static inline const auto real_ = g_setValue;
  static inline std::vector<DWORD> sizes_;
};

TEST_F(HelperTest, CountsNoTerminatingNul) {
  WriteTree(HKEY_LOCAL_MACHINE, kSettings, "[]");  // no setting: one write at once, one at OK
  const WriteSizes writes;
  DialogScript script;
  script.Expect(kTitle, [](HWND dialog) {
    Click(dialog, IDC_HELPER_MERLIN);
    Click(dialog, IDOK);
  });
  CHelperDialog().DoModal(nullptr);
  EXPECT_EQ(writes.Sizes(), (std::vector<DWORD>{static_cast<DWORD>(WindowsPath("Peedy").size()),
                                                static_cast<DWORD>(WindowsPath("Merlin").size())}));
}

TEST_F(HelperTest, IsChosenByKeyboard) {
  WriteTree(HKEY_LOCAL_MACHINE, kSettings, Setting("D:\\elsewhere\\Merlin.acs"));
  DialogScript script;
  script.Expect(kTitle, [&](HWND dialog) {
    const struct {
      WPARAM Key;
      const char* Selected;
    } keys[] = {{VK_RIGHT, "Robby"}, {VK_DOWN, "Genie"}, {VK_RIGHT, "Peedy"}, {VK_LEFT, "Genie"},
                {VK_TAB, "Genie"},   {VK_TAB, "Genie"},  {VK_SPACE, "Genie"}, {VK_UP, "Robby"}};
    for (const auto& [key, selected] : keys) {
      PressKey(key);
      Pump();
      ExpectSelected(dialog, selected);
    }
    PressKey(VK_RETURN);
  });
  EXPECT_EQ(CHelperDialog().DoModal(nullptr), IDOK);
  ExpectTree(HKEY_LOCAL_MACHINE, kSettings, Setting(WindowsPath("Robby")));
}

TEST_F(HelperTest, LeavesAMachineWithoutTheShellsSettingsAlone) {
  DialogScript script;
  script.Expect(kTitle, [](HWND dialog) { Click(dialog, IDOK); });
  EXPECT_EQ(CHelperDialog().DoModal(nullptr), IDOK);
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, "Software"), "");
}

TEST(Helper, FindsTheWindowsFolderEveryTime) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(WindowsFolder() + "\\msagent\\chars\\Peedy.acs", WindowsPath("Peedy"));
  }
  EXPECT_NE(GetModuleHandleA("SHFolder.dll"), nullptr);
}

TEST(Helper, GroundCarriesBetweenChannels) {
  EXPECT_EQ(PictureGround(0xC8D0D4), 0xD2DADEu);
  EXPECT_EQ(PictureGround(0xF0F0FF), 0xFAFB09u);
}

}  // namespace
