// A property sheet and its pages.
//
// The sheet borrows its pages, in order; both live on the stack of the command. Everything is written at OK:
// there is no Apply button. A sheet may be shown again; its pages keep their members and fill themselves from
// them.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <string>
#include <vector>

#include "controls/dialog.h"

class CPropertySheet;

// A page is a dialog whose members are the data that it edits. Pages that were never shown keep theirs. OK,
// Cancel and Esc on a page are its sheet's. A page that could not be filled cancels the sheet, and one whose
// data could not be taken over keeps it open.
class CPropertyPage : public CDialog {
 public:
  // `title` stands on the tab; null means the template's caption.
  explicit CPropertyPage(UINT templateId, const char* title = nullptr) : CDialog(templateId), title_(title) {}

 protected:
  // Moves the page's data from its members to the controls or back. Called when the page is made and at
  // OK (PSN_APPLY), so that both directions stand in one function.
  virtual void ExchangeData(bool /*toControls*/) {}

  bool OnInitDialog() override;
  void OnInitFailed() override;
  // The sheet's Help button arrives here too (PSN_HELP).
  LRESULT OnNotify(const NMHDR& header) override;
  void OnOK() override;
  void OnCancel() override;

 private:
  friend class CPropertySheet;
  static INT_PTR CALLBACK PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  PROPSHEETPAGEA Describe();
  LRESULT Apply();
  void PressSheetButton(int button) const;

  const char* const title_;
  CPropertySheet* sheet_ = nullptr;
};

class CPropertySheet {
 public:
  explicit CPropertySheet(std::string title) : title_(std::move(title)) {}
  CPropertySheet(const CPropertySheet&) = delete;
  CPropertySheet& operator=(const CPropertySheet&) = delete;

  // Borrows a page; it must outlive the sheet.
  void AddPage(CPropertyPage& page);

  // Shows the sheet, on its first page, until it is confirmed or cancelled (PropertySheetA). Returns IDOK or
  // IDCANCEL by what its pages were told: the Windows call does not tell the two apart reliably.
  INT_PTR DoModal(HWND owner);

 private:
  friend class CPropertyPage;

  std::string title_;
  std::vector<CPropertyPage*> pages_;
  bool confirmed_ = false;
};
