#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "controls/dir_dlg.h"
#include "support/dialog_script.h"
#include "support/scratch_folder.h"

namespace {

constexpr char kTitle[] = "Choose a Folder";
constexpr int kSelect = 5000;
constexpr int kTypedName = 1148;
constexpr int kView = 1121;
constexpr int kUpOneLevel = 40961;

std::string CurrentFolder() {
  char folder[MAX_PATH] = "";
  GetCurrentDirectoryA(sizeof(folder), folder);
  return folder;
}

TEST(DirDlg, AnswersTheViewedFolderWithATrailingBackslash) {
  const struct {
    const char* initial;
    WPARAM key;  // 0 clicks "Select"
    const char* path;
  } cases[] = {
      {"C:\\", 0, "C:\\"},
      {"C:\\windows", 0, "C:\\windows\\"},
      {"C:\\windows\\system32\\", VK_RETURN, "C:\\windows\\system32\\"},
  };
  for (const auto& [initial, key, path] : cases) {
    SCOPED_TRACE(initial);
    const std::string before = CurrentFolder();
    DialogScript script;
    script.Expect(kTitle, [key = key, path = path](HWND frame) {
      EXPECT_EQ(ControlText(frame, 1090), "Folder Path:");
      EXPECT_EQ(ControlText(frame, kTypedName), path);
      EXPECT_EQ(LOWORD(SendMessageA(frame, DM_GETDEFID, 0, 0)), kSelect);
      for (const int hidden : {IDOK, 1089, 1136})
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(frame, hidden))) << hidden;
      if (key) {
        PressKey(key);
      } else {
        Click(frame, kSelect);
      }
    });
    CDirDlg chooser(initial, nullptr);
    EXPECT_EQ(chooser.DoModal(), IDOK);
    EXPECT_EQ(chooser.FolderPath(), path);
    EXPECT_EQ(CurrentFolder(), before);
  }
}

TEST(DirDlg, EnterOpensAFolderMarkedInTheList) {
  const ScratchFolder scratch;
  CreateDirectoryA(scratch.File("Inner").c_str(), nullptr);
  DialogScript script;
  script.Expect(kTitle, [&](HWND frame) {
    const HWND list = FindWindowExA(GetDlgItem(frame, kView), nullptr, WC_LISTVIEWA, nullptr);
    SetFocus(list);
    ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    PressKey(VK_RETURN);
    Pump();
    EXPECT_EQ(ControlText(frame, kTypedName), scratch.File("Inner\\"));
    PressKey(VK_RETURN);
  });
  CDirDlg chooser(scratch.Path(), nullptr);
  EXPECT_EQ(chooser.DoModal(), IDOK);
  EXPECT_EQ(chooser.FolderPath(), scratch.File("Inner\\"));
}

TEST(DirDlg, CannotSelectAPlaceThatIsNoFolder) {
  DialogScript script;
  script.Expect(kTitle, [](HWND frame) {
    SendMessageA(frame, WM_COMMAND, kUpOneLevel, 0);  // to My Computer
    EXPECT_EQ(ControlText(frame, kTypedName), "");
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(frame, kSelect)));
    Click(frame, IDCANCEL);
  });
  EXPECT_EQ(CDirDlg("C:\\", nullptr).DoModal(), IDCANCEL);
}

TEST(DirDlg, ATypedNameNeitherClosesItNorCounts) {
  DialogScript script;
  script.Expect(kTitle, [](HWND frame) {
    SetDlgItemTextA(frame, kTypedName, "win.ini");
    SendMessageA(frame, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(IsWindowVisible(frame));
    Click(frame, kSelect);
  });
  CDirDlg chooser("C:\\windows", nullptr);
  EXPECT_EQ(chooser.DoModal(), IDOK);
  EXPECT_EQ(chooser.FolderPath(), "C:\\windows\\");
}

TEST(DirDlg, EscCancelsAndAnAbsurdInitialFolderDoesNoHarm) {
  for (const std::string& initial : {std::string("C:\\no such folder"), std::string(70'000, 'x')}) {
    DialogScript script;
    script.Expect(kTitle, [](HWND) { PressKey(VK_ESCAPE); });
    EXPECT_EQ(CDirDlg(initial, nullptr).DoModal(), IDCANCEL);
  }
}

}  // namespace
