#include "controls/property_sheet.h"

#include "controls/callback.h"

namespace {

constexpr UINT_PTR kSubclassId = 1;

// Hands new system colours on to the pages, which the sheet's own procedure need not do, and F1 on the tabs
// and the sheet's buttons to the page that is shown.
LRESULT CALLBACK SheetProcedure(HWND sheet, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  return GuardCallback(LRESULT{0}, [=] {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(sheet, &SheetProcedure, kSubclassId);
    if (message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED) {
      for (HWND child = GetWindow(sheet, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageA(child, message, wParam, lParam);
    }
    // Without what was pressed it is a page's own request, on its way to the owner.
    if (message == WM_HELP && lParam)
      return SendMessageA(PropSheet_GetCurrentPageHwnd(sheet), message, wParam, lParam);
    return DefSubclassProc(sheet, message, wParam, lParam);
  });
}

int CALLBACK OnSheetEvent(HWND sheet, UINT event, LPARAM) {
  if (event == PSCB_INITIALIZED) SetWindowSubclass(sheet, &SheetProcedure, kSubclassId, 0);
  return 0;
}

}  // namespace

INT_PTR CALLBACK CPropertyPage::PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    // The parameter is the page's description; the object is in it.
    auto* page = reinterpret_cast<CPropertyPage*>(reinterpret_cast<const PROPSHEETPAGEA*>(lParam)->lParam);
    lParam = reinterpret_cast<LPARAM>(static_cast<CDialog*>(page));
  }
  return Procedure(window, message, wParam, lParam);
}

PROPSHEETPAGEA CPropertyPage::Describe() {
  PROPSHEETPAGEA description{};
  description.dwSize = sizeof(description);
  description.dwFlags = PSP_HASHELP | (title_ ? PSP_USETITLE : 0);
  description.hInstance = GetModuleHandleA(nullptr);
  description.pszTemplate = MAKEINTRESOURCEA(TemplateId());
  description.pszTitle = title_;
  description.pfnDlgProc = &PageProcedure;
  description.lParam = reinterpret_cast<LPARAM>(this);
  return description;
}

bool CPropertyPage::OnInitDialog() {
  ExchangeData(true);
  return true;
}

void CPropertyPage::OnInitFailed() { PressSheetButton(PSBTN_CANCEL); }
void CPropertyPage::OnOK() { PressSheetButton(PSBTN_OK); }
void CPropertyPage::OnCancel() { PressSheetButton(PSBTN_CANCEL); }

// Posted, as the page goes with the sheet, and the sheet may be about to show it.
void CPropertyPage::PressSheetButton(int button) const {
  PostMessageA(GetParent(Window()), PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0);
}

LRESULT CPropertyPage::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case PSN_APPLY:
      return GuardCallback(LRESULT{PSNRET_INVALID_NOCHANGEPAGE}, [this] { return Apply(); });
    case PSN_RESET:
      sheet_->confirmed_ = false;
      return 0;
    case PSN_HELP:
      OnHelp(HelpPage());
      return 0;
    default:
      return 0;
  }
}

LRESULT CPropertyPage::Apply() {
  ExchangeData(false);
  sheet_->confirmed_ = true;
  return PSNRET_NOERROR;
}

void CPropertySheet::AddPage(CPropertyPage& page) {
  page.sheet_ = this;
  pages_.push_back(&page);
}

INT_PTR CPropertySheet::DoModal(HWND owner) {
  std::vector<PROPSHEETPAGEA> descriptions;
  for (CPropertyPage* page : pages_)
    descriptions.push_back(page->Describe());
  PROPSHEETHEADERA header{};
  header.dwSize = sizeof(header);
  header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW | PSH_HASHELP | PSH_NOCONTEXTHELP | PSH_USECALLBACK;
  header.hwndParent = owner;
  header.hInstance = GetModuleHandleA(nullptr);
  header.pszCaption = title_.c_str();
  header.nPages = static_cast<UINT>(descriptions.size());
  header.ppsp = descriptions.data();
  header.pfnCallback = &OnSheetEvent;
  confirmed_ = false;
  PropertySheetA(&header);
  return confirmed_ ? IDOK : IDCANCEL;
}
