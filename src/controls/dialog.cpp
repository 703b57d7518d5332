#include "controls/dialog.h"

#include <commctrl.h>

#include <exception>

#include "controls/window_text.h"

INT_PTR CDialog::DoModal(HWND owner) {
  return DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(templateId_), owner, &Procedure,
                         reinterpret_cast<LPARAM>(this));
}

std::string CDialog::ItemText(int id) const { return WindowText(Item(id)); }

void CDialog::EnableItem(int id, bool enable) {
  const HWND item = Item(id);
  // A disabled control that kept the focus would swallow the keyboard.
  if (!enable && GetFocus() == item) SendMessageA(window_, WM_NEXTDLGCTL, 0, FALSE);
  EnableWindow(item, enable);
}

void CDialog::FocusItem(int id) {
  SendMessageA(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(id)), TRUE);
}

INT_PTR CALLBACK CDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<CDialog*>(lParam)->window_ = window;
    SetWindowLongPtrA(window, DWLP_USER, lParam);
  }
  auto* self = reinterpret_cast<CDialog*>(GetWindowLongPtrA(window, DWLP_USER));
  if (!self) return FALSE;
  try {
    const INT_PTR answer = self->Route(message, wParam, lParam);
    if (message == WM_NCDESTROY) self->window_ = nullptr;
    return answer;
  } catch (const std::exception&) {
    self->initialising_ = false;  // else the dialog could not be closed any more
    MessageBeep(MB_ICONERROR);
    return FALSE;
  }
}

INT_PTR CDialog::Route(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  switch (message) {
    case WM_INITDIALOG:
      return Initialise();
    case WM_COMMAND:
      return initialising_ ? FALSE : RouteCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY:
      return Answer(OnNotify(*reinterpret_cast<const NMHDR*>(lParam)));
    case WM_HELP:
      OnHelp();
      return Answer(TRUE);
    case WM_DRAWITEM:
      return Answer(SendMessageA(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem, kDrawYourself,
                                 wParam, lParam));
    default:
      return OnMessage(message, wParam, lParam, result) ? Answer(result) : FALSE;
  }
}

bool CDialog::Initialise() {
  initialising_ = true;
  const bool setFocus = OnInitDialog();
  initialising_ = false;
  return setFocus;
}

INT_PTR CDialog::RouteCommand(int id, int code) {
  switch (id) {
    case IDOK:
      OnOK();
      break;
    case IDCANCEL:
      OnCancel();
      break;
    default:
      OnCommand(id, code);
  }
  return TRUE;
}

INT_PTR CDialog::Answer(LRESULT result) {
  SetWindowLongPtrA(window_, DWLP_MSGRESULT, result);
  return TRUE;
}
