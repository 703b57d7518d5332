#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "controls/dir_dlg.h"
#include "controls/list_view.h"
#include "support/dialog_script.h"
#include "support/scratch_folder.h"

namespace {

constexpr int kSelect = 5000, kTypedName = 1148, kView = 1121, kUpOneLevel = 40961;

void PressEsc(HWND) { PressKey(VK_ESCAPE); }

// It neither closes the dialog nor counts.
void TypeAName(HWND frame) {
  SetDlgItemTextA(frame, kTypedName, "win.ini");
  SendMessageA(frame, WM_COMMAND, IDOK, 0);
  EXPECT_TRUE(IsWindowVisible(frame));
  Click(frame, kSelect);
}

void OpenTheFirstFolderOfTheList(HWND frame) {
  const HWND list = FindWindowExA(GetDlgItem(frame, kView), nullptr, WC_LISTVIEWA, nullptr);
  EXPECT_EQ(ListView_GetItemCount(list), 1) << "no files";
  SetFocus(list);
  SelectRow(list, 0);
  PressKey(VK_RETURN);
  Pump();
  PressKey(VK_RETURN);
}

void GoToMyComputer(HWND frame) {
  SendMessageA(frame, WM_COMMAND, kUpOneLevel, 0);
  EXPECT_EQ(ControlText(frame, kTypedName), "");
  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(frame, kSelect)));
  Click(frame, IDCANCEL);
}

TEST(DirDlg, ReturnsTheViewedFolderWithATrailingBackslash) {
  const ScratchFolder scratch;
  CreateDirectoryA(scratch.File("Inner").c_str(), nullptr);
  WriteFileBytes(scratch.File("File.txt"), "");
  const auto before = std::filesystem::current_path();
  const struct {
    std::string initial;
    DialogScript::Action act;
    std::string path;  // "" when cancelled
  } cases[] = {
      {"C:\\windows", &TypeAName, "C:\\windows\\"},
      {scratch.Path(), &OpenTheFirstFolderOfTheList, scratch.File("Inner\\")},
      {"C:\\", &GoToMyComputer, ""},
      {std::string(70'000, 'x'), &PressEsc, ""},
      {"C:\\NUL", &PressEsc, ""},
      {scratch.File("File.txt"), &PressEsc, ""},
  };
  for (const auto& [initial, act, path] : cases) {
    SCOPED_TRACE(initial.substr(0, 20));
    DialogScript script;
    script.Expect("Choose a Folder", [&act = act](HWND frame) {
      EXPECT_EQ(ControlText(frame, 1090), "Folder Path:");
      EXPECT_EQ(LOWORD(SendMessageA(frame, DM_GETDEFID, 0, 0)), kSelect);
      for (const int hidden : {IDOK, 1089, 1136})
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(frame, hidden))) << hidden;
      act(frame);
    });
    CDirDlg chooser(initial, nullptr);
    EXPECT_EQ(chooser.DoModal(), path.empty() ? IDCANCEL : IDOK);
    EXPECT_EQ(path.empty() ? path : chooser.FolderPath(), path);
    EXPECT_EQ(std::filesystem::current_path(), before);
  }
}

}  // namespace
