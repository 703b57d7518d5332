#include "controls/property_sheet.h"

#include <commctrl.h>
#include <prsht.h>

INT_PTR CALLBACK CPropertyPage::PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    // The parameter is the page's description; the object is in it.
    auto* page = reinterpret_cast<CPropertyPage*>(reinterpret_cast<const PROPSHEETPAGEA*>(lParam)->lParam);
    lParam = reinterpret_cast<LPARAM>(static_cast<CDialog*>(page));
  }
  return Procedure(window, message, wParam, lParam);
}

bool CPropertyPage::OnInitDialog() {
  ExchangeData(true);
  return true;
}

void CPropertyPage::OnHelp() { sheet_->OnHelp(); }

LRESULT CPropertyPage::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case PSN_APPLY:
      ExchangeData(false);
      sheet_->confirmed_ = true;
      return PSNRET_NOERROR;
    case PSN_RESET:
      sheet_->confirmed_ = false;
      return 0;
    case PSN_HELP:
      OnHelp();
      return 0;
    default:
      return 0;
  }
}

void CPropertySheet::AddPage(CPropertyPage& page) {
  page.sheet_ = this;
  pages_.push_back(&page);
}

INT_PTR CPropertySheet::DoModal(HWND owner) {
  std::vector<PROPSHEETPAGEA> descriptions;
  for (CPropertyPage* page : pages_) {
    PROPSHEETPAGEA description{};
    description.dwSize = sizeof(description);
    description.dwFlags = PSP_HASHELP;
    description.hInstance = GetModuleHandleA(nullptr);
    description.pszTemplate = MAKEINTRESOURCEA(page->TemplateId());
    description.pfnDlgProc = &CPropertyPage::PageProcedure;
    description.lParam = reinterpret_cast<LPARAM>(page);
    descriptions.push_back(description);
  }
  PROPSHEETHEADERA header{};
  header.dwSize = sizeof(header);
  header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW | PSH_HASHELP | PSH_NOCONTEXTHELP;
  header.hwndParent = owner;
  header.hInstance = GetModuleHandleA(nullptr);
  header.pszCaption = title_.c_str();
  header.nPages = static_cast<UINT>(descriptions.size());
  header.ppsp = descriptions.data();
  confirmed_ = false;
  PropertySheetA(&header);
  return confirmed_ ? IDOK : IDCANCEL;
}
