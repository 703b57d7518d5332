// A folder chooser: the standard open dialog (GetOpenFileNameA with OFN_EXPLORER and a hook), made to show
// folders only. Its OK button gives way to "Select", and the folder being viewed is the result.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <string>

class CDirDlg {
 public:
  // The dialog opens on `initialFolder`; where that is not a folder of this machine, on one of Windows'
  // choice. `parent` may be null.
  CDirDlg(std::string initialFolder, HWND parent);
  CDirDlg(const CDirDlg&) = delete;
  CDirDlg& operator=(const CDirDlg&) = delete;

  // Returns IDOK when "Select" was clicked or Enter pressed, else IDCANCEL. Enter on a folder marked in the
  // list opens that folder. A name typed into the dialog neither closes it nor counts. The process keeps
  // its current folder.
  INT_PTR DoModal();

  // The folder viewed last, ending in "\", after IDOK. "Select" is disabled where what is viewed has no path,
  // as "My Computer" has none.
  const std::string& FolderPath() const { return folderPath_; }

 private:
  static UINT_PTR CALLBACK Hook(HWND child, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK FrameProcedure(HWND frame, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR self);
  UINT_PTR OnEvent(HWND child, UINT event);
  LRESULT OnFrameMessage(HWND frame, UINT message, WPARAM wParam, LPARAM lParam);
  void OnInitDone(HWND frame);
  void OnSelect(HWND frame);
  void OnFolderChange(HWND frame);

  const std::string initialFolder_;
  const HWND parent_;
  std::string folderPath_;
  bool selected_ = false;
};
