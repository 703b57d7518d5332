#include "app/exchange_commands.h"

#include <commdlg.h>
#include <io.h>

#include <optional>
#include <string>

#include "controls/message.h"
#include "controls/working_folder.h"
#include "schemefile/exchange.h"
#include "schemefile/scheme_file.h"

namespace {

struct ChosenFile {
  std::string Path;
  std::string Folder;  // the path in front of the name and its backslash
};

class WaitCursor {
 public:
  WaitCursor() : previous_(SetCursor(LoadCursorA(nullptr, IDC_WAIT))) {}
  ~WaitCursor() { SetCursor(previous_); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  const HCURSOR previous_;
};

// `show` is GetSaveFileNameA or GetOpenFileNameA. Nothing when the user cancelled.
std::optional<ChosenFile> ChooseFile(HWND owner, BOOL(WINAPI* show)(OPENFILENAMEA*), DWORD flags) {
  const WorkingFolderKeeper keeper;
  char path[1024] = "*.ksf";
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = "Kelvanstead Scheme Manager file (*.ksf)\0*.ksf\0";
  dialog.lpstrFile = path;
  dialog.nMaxFile = sizeof(path);
  dialog.lpstrDefExt = "ksf";
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | flags;
  if (!show(&dialog)) return std::nullopt;
  const std::string chosen = path;
  return ChosenFile{chosen, chosen.substr(0, dialog.nFileOffset > 0 ? dialog.nFileOffset - 1 : 0)};
}

}  // namespace

void SaveToDisk(HWND owner) {
  const std::optional<ChosenFile> chosen = ChooseFile(owner, &GetSaveFileNameA, OFN_OVERWRITEPROMPT);
  if (!chosen) return;
  const WaitCursor waitCursor;
  if (_access(chosen->Folder.c_str(), 0) != 0) {
    // The text speaks of protection where only the existence is tested; users know it so.
    ShowWarning(owner, "The folder you have specified is read only, please pick another", "Export Problem");
    return;
  }
  SchemeFile file(owner);
  file.Save();
  SchemeFile::Remove(chosen->Path);
  if (!file.Write(chosen->Folder, chosen->Path)) ShowExportProblem(owner);
}

bool LoadFromDisk(HWND owner) {
  const std::optional<ChosenFile> chosen = ChooseFile(owner, &GetOpenFileNameA, OFN_FILEMUSTEXIST);
  if (!chosen) return false;
  const WaitCursor waitCursor;
  SchemeFile(owner).Read(chosen->Path, chosen->Path);
  return true;
}
