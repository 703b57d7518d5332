// A modal dialog from a resource template.
//
// A dialog lives on the stack of the command that runs it. One static procedure connects the window to its
// object and routes messages to the virtual functions below. An exception that reaches it ends the message,
// not the program; a dialog that could not be filled is ended, so that nobody confirms what it does not show.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// What a dialog sends on to an owner-drawn control in place of its WM_DRAWITEM: the control draws itself.
// lParam is the DRAWITEMSTRUCT.
inline constexpr UINT kDrawYourself = WM_APP + 0x2B;

class CDialog {
 public:
  explicit CDialog(UINT templateId) : templateId_(templateId) {}
  virtual ~CDialog() = default;
  CDialog(const CDialog&) = delete;
  CDialog& operator=(const CDialog&) = delete;

  // Shows the dialog until it is ended (DialogBoxParamA). Returns what EndDialog was given, -1 when the
  // dialog could not be made. `owner` is disabled meanwhile; it may be null.
  INT_PTR DoModal(HWND owner);

  // Null before the dialog is shown and after its window was destroyed.
  HWND Window() const { return window_; }

 protected:
  // WM_INITDIALOG. Returns true when Windows is to set the focus to the first control, false when it is set.
  virtual bool OnInitDialog() { return true; }
  // WM_COMMAND of every control and menu, but for OK, Cancel and Help. Of what controls send while
  // OnInitDialog fills them only the changed texts arrive (EN_CHANGE), and not before the window is on the
  // screen: their handlers may show messages over it.
  virtual void OnCommand(int /*id*/, int /*code*/) {}
  // WM_NOTIFY; the result goes back to the control.
  virtual LRESULT OnNotify(const NMHDR& /*header*/) { return 0; }
  // The file name of the dialog's page of the help; null for the help as a whole.
  virtual const char* HelpPage() const { return nullptr; }
  // F1 (WM_HELP) or the Help button. Goes on to the outermost of the owner windows, which knows the help: its
  // OnHelp is called with this page.
  virtual void OnHelp(const char* page);
  // The OK button or Enter; the Cancel button, Esc or the close box.
  virtual void OnOK() { EndDialog(IDOK); }
  virtual void OnCancel() { EndDialog(IDCANCEL); }
  // OnInitDialog has failed: ends the dialog with -1.
  virtual void OnInitFailed() { EndDialog(-1); }
  // Every message that has no function of its own. True when it was handled, with its result.
  virtual bool OnMessage(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/, LRESULT& /*result*/) {
    return false;
  }

  void EndDialog(INT_PTR result) { ::EndDialog(window_, result); }

  HWND Item(int id) const { return GetDlgItem(window_, id); }
  std::string ItemText(int id) const;
  void SetItemText(int id, const std::string& text) { SetDlgItemTextA(window_, id, text.c_str()); }
  // Moves the focus on first if the control that is disabled has it.
  void EnableItem(int id, bool enable);
  void ShowItem(int id, bool show) { ShowWindow(Item(id), show ? SW_SHOW : SW_HIDE); }
  bool IsItemChecked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }
  void CheckItem(int id, bool check) { CheckDlgButton(window_, id, check ? BST_CHECKED : BST_UNCHECKED); }
  // Moves the focus as Tab does, so that the default button follows (WM_NEXTDLGCTL).
  void FocusItem(int id);
  LRESULT SendItem(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendDlgItemMessageA(window_, id, message, wParam, lParam);
  }

  UINT TemplateId() const { return templateId_; }

  // The procedure of every dialog. The creation parameter is the CDialog.
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  INT_PTR Route(UINT message, WPARAM wParam, LPARAM lParam);
  bool Initialise();
  void OnCommandWhileInitialising(int id, int code);
  void OnTextsFilled();
  INT_PTR RouteCommand(int id, int code);
  void ForwardToControls(UINT message, WPARAM wParam, LPARAM lParam);
  // Hands a message's result to the system (DWLP_MSGRESULT).
  INT_PTR Handled(LRESULT result);

  const UINT templateId_;
  HWND window_ = nullptr;
  bool initialising_ = false;
  std::vector<int> filledTexts_;  // controls whose changed texts OnCommand has yet to hear of
};
