// The standard dialogs that open and save files (GetOpenFileNameA, GetSaveFileNameA).
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <optional>
#include <string>

struct FileRequest {
  HWND Owner = nullptr;
  const char* Title = nullptr;      // null: Windows' own
  const char* Filter = nullptr;     // pairs of a name and its patterns, each ended by a NUL, and one more NUL
  const char* Extension = nullptr;  // added to a typed name that has none
  DWORD Flags = 0;                  // OFN_ flags beside OFN_EXPLORER and OFN_HIDEREADONLY
  std::string Path = {};            // what stands in the name field at first
  // The folder in which the dialog opens. Anything that is no folder of this machine counts for nothing: a
  // device's name ("CON") would crash the dialog.
  std::string Folder = {};
  LPOFNHOOKPROC Hook = nullptr;  // gets HookData in OPENFILENAMEA::lCustData
  LPARAM HookData = 0;
};

struct ChosenFile {
  std::string Path;
  std::string Folder;  // the path in front of the name and its backslash
};

// Show the dialog. Nothing when the user cancelled, or Windows could not show it. The process keeps its
// working folder.
std::optional<ChosenFile> AskForFileToOpen(const FileRequest& request);
std::optional<ChosenFile> AskForFileToSave(const FileRequest& request);
