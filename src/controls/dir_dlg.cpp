#include "controls/dir_dlg.h"

#include <commctrl.h>
#include <dlgs.h>

#include <array>

#include "controls/callback.h"
#include "controls/file_dialog.h"

namespace {

constexpr int kSelectId = 5000;
constexpr UINT_PTR kSubclassId = 1;
constexpr std::size_t kMaxPath = 1024;

// No file matches ".", so that folders alone are listed.
constexpr char kFilter[] = "Show Folders Only\0.\0";

using PathBuffer = std::array<char, kMaxPath>;

// "" where the place being viewed is no folder of the file system, or its path is too long.
std::string ViewedFolder(HWND frame) {
  PathBuffer path{};
  const LRESULT length =
      SendMessageA(frame, CDM_GETFOLDERPATH, path.size(), reinterpret_cast<LPARAM>(path.data()));
  if (length <= 0 || static_cast<std::size_t>(length) > path.size()) return {};
  path.back() = '\0';
  const DWORD attributes = GetFileAttributesA(path.data());
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY)) return {};
  std::string folder = path.data();
  if (folder.back() != '\\') folder += '\\';
  return folder;
}

void CreateSelectButton(HWND frame) {
  const HWND ok = GetDlgItem(frame, IDOK);
  RECT area{};
  GetWindowRect(ok, &area);
  MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&area), 2);
  const HWND select = CreateWindowExA(
      0, "BUTTON", "Select", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, area.left, area.top,
      area.right - area.left, area.bottom - area.top, frame,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kSelectId)), GetModuleHandleA(nullptr), nullptr);
  SendMessageA(select, WM_SETFONT, static_cast<WPARAM>(SendMessageA(ok, WM_GETFONT, 0, 0)), TRUE);
  // The Tab key follows the order of the windows.
  SetWindowPos(select, ok, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  SendMessageA(ok, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
  SendMessageA(frame, DM_SETDEFID, kSelectId, 0);
}

bool IsFolderMarkedInFocusedList(HWND frame) {
  const HWND focus = GetFocus();
  return IsChild(GetDlgItem(frame, lst2), focus) && SendMessageA(focus, LVM_GETSELECTEDCOUNT, 0, 0) > 0;
}

}  // namespace

CDirDlg::CDirDlg(std::string initialFolder, HWND parent)
    : initialFolder_(std::move(initialFolder)), parent_(parent) {}

INT_PTR CDirDlg::DoModal() {
  selected_ = false;
  folderPath_.clear();
  // The result tells nothing: the frame is closed behind the dialog's back.
  AskForFileToOpen({.Owner = parent_,
                    .Title = "Choose a Folder",
                    .Filter = kFilter,
                    .Flags = OFN_PATHMUSTEXIST | OFN_OVERWRITEPROMPT | OFN_ENABLEHOOK,
                    .Folder = initialFolder_,
                    .Hook = &Hook,
                    .HookData = reinterpret_cast<LPARAM>(this)});
  return selected_ ? IDOK : IDCANCEL;
}

UINT_PTR CALLBACK CDirDlg::Hook(HWND child, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_NOTIFY) return 0;
  const auto& notification = *reinterpret_cast<const OFNOTIFYA*>(lParam);
  auto* self = reinterpret_cast<CDirDlg*>(notification.lpOFN->lCustData);
  return GuardCallback(UINT_PTR{0}, [&] { return self->OnEvent(child, notification.hdr.code); });
}

UINT_PTR CDirDlg::OnEvent(HWND child, UINT event) {
  const HWND frame = GetParent(child);
  switch (event) {
    case CDN_INITDONE:
      OnInitDone(frame);
      return 0;
    case CDN_FOLDERCHANGE:
      OnFolderChange(frame);
      return 0;
    case CDN_FILEOK:
      // A typed file name never closes the dialog.
      SetWindowLongPtrA(child, DWLP_MSGRESULT, TRUE);
      return TRUE;
    default:
      return 0;
  }
}

LRESULT CALLBACK CDirDlg::FrameProcedure(HWND frame, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR self) {
  return GuardCallback(LRESULT{0}, [&] {
    return reinterpret_cast<CDirDlg*>(self)->OnFrameMessage(frame, message, wParam, lParam);
  });
}

LRESULT CDirDlg::OnFrameMessage(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) != kSelectId) break;
      if (HIWORD(wParam) == BN_CLICKED) OnSelect(frame);
      return 0;
    case DM_SETDEFID:
      // The dialog makes its own, hidden button the default when the list gets the focus.
      wParam = folderPath_.empty() ? IDOK : kSelectId;
      break;
    case WM_NCDESTROY:
      RemoveWindowSubclass(frame, &FrameProcedure, kSubclassId);
      break;
    default:
      break;
  }
  return DefSubclassProc(frame, message, wParam, lParam);
}

void CDirDlg::OnSelect(HWND frame) {
  if (IsFolderMarkedInFocusedList(frame)) {
    SendMessageA(frame, WM_COMMAND, IDOK, 0);
  } else {
    selected_ = true;
    EndDialog(frame, IDOK);
  }
}

void CDirDlg::OnInitDone(HWND frame) {
  SetDlgItemTextA(frame, stc3, "Folder Path:");
  SetWindowSubclass(frame, &FrameProcedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
  CreateSelectButton(frame);
  for (const int id : {IDOK, stc2, cmb1})
    ShowWindow(GetDlgItem(frame, id), SW_HIDE);
}

void CDirDlg::OnFolderChange(HWND frame) {
  folderPath_ = ViewedFolder(frame);
  // Some versions of the dialog have a combo box in place of the edit control.
  const int nameId = GetDlgItem(frame, edt1) ? edt1 : cmb13;
  SetDlgItemTextA(frame, nameId, folderPath_.c_str());
  EnableWindow(GetDlgItem(frame, kSelectId), !folderPath_.empty());
  SendMessageA(frame, DM_SETDEFID, kSelectId, 0);
}
