#include "controls/dialog.h"

#include <commctrl.h>

#include <utility>

#include "controls/callback.h"
#include "controls/window_text.h"

namespace {

// Posted while the dialog is filled, where that has changed texts.
constexpr UINT kTextsFilled = WM_APP + 0x2C;

// The page that a dialog is asking its outermost owner window for. Not in the message, which any process can
// send.
const char* g_helpPage = nullptr;

}  // namespace

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

void CDialog::OnHelp(const char* page) {
  HWND outermost = GetAncestor(window_, GA_ROOT);
  while (const HWND owner = GetWindow(outermost, GW_OWNER))
    outermost = owner;
  if (outermost == window_) return;
  g_helpPage = page;
  SendMessageA(outermost, WM_HELP, 0, 0);
  g_helpPage = nullptr;
}

INT_PTR CALLBACK CDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<CDialog*>(lParam)->window_ = window;
    SetWindowLongPtrA(window, DWLP_USER, lParam);
  }
  auto* self = reinterpret_cast<CDialog*>(GetWindowLongPtrA(window, DWLP_USER));
  if (!self) return FALSE;
  const INT_PTR handled = GuardCallback(INT_PTR{FALSE}, [&] { return self->Route(message, wParam, lParam); });
  if (message == WM_NCDESTROY) self->window_ = nullptr;
  return handled;
}

INT_PTR CDialog::Route(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  switch (message) {
    case WM_INITDIALOG:
      return Initialise();
    case kTextsFilled:
      OnTextsFilled();
      return TRUE;
    case WM_COMMAND:
      if (!initialising_) return RouteCommand(LOWORD(wParam), HIWORD(wParam));
      OnCommandWhileInitialising(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_NOTIFY:
      return Handled(OnNotify(*reinterpret_cast<const NMHDR*>(lParam)));
    case WM_HELP:
      OnHelp(g_helpPage ? g_helpPage : HelpPage());
      return Handled(TRUE);
    case WM_DRAWITEM:
      return Handled(SendMessageA(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem, kDrawYourself,
                                  wParam, lParam));
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      ForwardToControls(message, wParam, lParam);
      return FALSE;
    default:
      return OnMessage(message, wParam, lParam, result) ? Handled(result) : FALSE;
  }
}

bool CDialog::Initialise() {
  enum { kLeaveFocus, kSetFocus, kFailed };
  filledTexts_.clear();
  initialising_ = true;
  const int result =
      GuardCallback(int{kFailed}, [this]() -> int { return OnInitDialog() ? kSetFocus : kLeaveFocus; });
  initialising_ = false;
  if (result == kFailed) OnInitFailed();
  return result == kSetFocus;
}

void CDialog::OnCommandWhileInitialising(int id, int code) {
  if (code != EN_CHANGE) return;
  if (filledTexts_.empty()) PostMessageA(window_, kTextsFilled, 0, 0);
  filledTexts_.push_back(id);
}

void CDialog::OnTextsFilled() {
  // Windows shows a modal dialog when no message waits any more, which is later.
  const HWND root = GetAncestor(window_, GA_ROOT);
  if (!IsWindowVisible(root)) ShowWindow(root, SW_SHOWNORMAL);
  // One after the other, as each may show messages.
  for (const int id : std::exchange(filledTexts_, {}))
    OnCommand(id, EN_CHANGE);
}

INT_PTR CDialog::RouteCommand(int id, int code) {
  switch (id) {
    case IDOK:
      OnOK();
      break;
    case IDCANCEL:
      OnCancel();
      break;
    case IDHELP:
      OnHelp(HelpPage());
      break;
    default:
      OnCommand(id, code);
  }
  return TRUE;
}

// Windows tells the dialog alone of new system colours.
void CDialog::ForwardToControls(UINT message, WPARAM wParam, LPARAM lParam) {
  for (HWND control = GetWindow(window_, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
    SendMessageA(control, message, wParam, lParam);
}

INT_PTR CDialog::Handled(LRESULT result) {
  SetWindowLongPtrA(window_, DWLP_MSGRESULT, result);
  return TRUE;
}
