// A property sheet and its pages.
//
// The sheet borrows its pages, in order; both live on the stack of the command. Everything is written at OK:
// there is no Apply button. A sheet may be shown again; its pages keep their members and fill themselves from
// them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "controls/dialog.h"

class CPropertySheet;

// A page is a dialog whose members are the data that it edits. Pages that were never shown keep theirs.
class CPropertyPage : public CDialog {
 public:
  // The caption on the tab is the template's.
  using CDialog::CDialog;

 protected:
  // Moves the page's data from its members to the controls or back. Called when the page is made and at
  // OK (PSN_APPLY), so that both directions stand in one function.
  virtual void ExchangeData(bool /*toControls*/) {}
  // The sheet's Help button, or F1 (PSN_HELP).
  void OnHelp() override;

  bool OnInitDialog() override;
  LRESULT OnNotify(const NMHDR& header) override;

 private:
  friend class CPropertySheet;
  static INT_PTR CALLBACK PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  CPropertySheet* sheet_ = nullptr;
};

class CPropertySheet {
 public:
  explicit CPropertySheet(std::string title) : title_(std::move(title)) {}
  virtual ~CPropertySheet() = default;
  CPropertySheet(const CPropertySheet&) = delete;
  CPropertySheet& operator=(const CPropertySheet&) = delete;

  // Borrows a page; it must outlive the sheet.
  void AddPage(CPropertyPage& page);

  // Shows the sheet, on its first page, until it is confirmed or cancelled (PropertySheetA). Answers IDOK or
  // IDCANCEL by what its pages were told: the Windows call does not tell the two apart reliably.
  INT_PTR DoModal(HWND owner);

 protected:
  // The Help button of any page, or F1.
  virtual void OnHelp() {}

 private:
  friend class CPropertyPage;

  std::string title_;
  std::vector<CPropertyPage*> pages_;
  bool confirmed_ = false;
};
