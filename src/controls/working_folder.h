#pragma once

#include <windows.h>

// Puts the working folder of the process back, which is the pictures folder on purpose. The file dialogs
// change it while the user browses; OFN_NOCHANGEDIR does not keep the one that opens files from it.
class WorkingFolderKeeper {
 public:
  WorkingFolderKeeper() { GetCurrentDirectoryA(sizeof(folder_), folder_); }
  ~WorkingFolderKeeper() { SetCurrentDirectoryA(folder_); }
  WorkingFolderKeeper(const WorkingFolderKeeper&) = delete;
  WorkingFolderKeeper& operator=(const WorkingFolderKeeper&) = delete;

 private:
  char folder_[MAX_PATH] = "";
};
