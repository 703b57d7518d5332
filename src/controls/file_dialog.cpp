#include "controls/file_dialog.h"

#include <array>

namespace {

// Puts the working folder of the process back, which is the pictures folder on purpose. The dialogs change it
// while the user browses; OFN_NOCHANGEDIR does not keep the one that opens files from it.
class WorkingFolderKeeper {
 public:
  WorkingFolderKeeper() { GetCurrentDirectoryA(sizeof(folder_), folder_); }
  ~WorkingFolderKeeper() { SetCurrentDirectoryA(folder_); }
  WorkingFolderKeeper(const WorkingFolderKeeper&) = delete;
  WorkingFolderKeeper& operator=(const WorkingFolderKeeper&) = delete;

 private:
  char folder_[MAX_PATH] = "";
};

bool IsFolder(const std::string& path) {
  if (path.size() >= MAX_PATH) return false;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::optional<ChosenFile> Ask(const FileRequest& request, BOOL(WINAPI* show)(OPENFILENAMEA*)) {
  const WorkingFolderKeeper keeper;
  std::array<char, 1024> path{};
  request.Path.copy(path.data(), path.size() - 1);
  OPENFILENAMEA dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = request.Owner;
  dialog.lpstrTitle = request.Title;
  dialog.lpstrFilter = request.Filter;
  dialog.lpstrDefExt = request.Extension;
  dialog.lpstrInitialDir = IsFolder(request.Folder) ? request.Folder.c_str() : nullptr;
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | request.Flags;
  dialog.lpfnHook = request.Hook;
  dialog.lCustData = request.HookData;
  if (!show(&dialog)) return std::nullopt;
  const std::string chosen = path.data();
  return ChosenFile{chosen, chosen.substr(0, dialog.nFileOffset > 0 ? dialog.nFileOffset - 1 : 0)};
}

}  // namespace

std::optional<ChosenFile> AskForFileToOpen(const FileRequest& request) {
  return Ask(request, &GetOpenFileNameA);
}

std::optional<ChosenFile> AskForFileToSave(const FileRequest& request) {
  return Ask(request, &GetSaveFileNameA);
}
