#include "allocation/dialog/scheme_selector.h"

#include "allocation/dialog/scheme_selector_ids.h"
#include "resources/resource_ids.h"

namespace {

constexpr int kBlankEntry = 0;

LPARAM TextParameter(const std::string& text) { return reinterpret_cast<LPARAM>(text.c_str()); }

}  // namespace

CSchemeSelector::CSchemeSelector(const std::vector<std::string>& schemes,
                                 std::optional<std::string> preselected)
    : CDialog(IDD_SCHEME_SELECTOR), schemes_(schemes), preselected_(std::move(preselected)) {}

bool CSchemeSelector::OnInitDialog() {
  for (const std::string& scheme : schemes_)
    SendItem(IDC_SELECTOR_LIST, LB_ADDSTRING, 0, TextParameter(scheme));
  SendItem(IDC_SELECTOR_LIST, LB_INSERTSTRING, kBlankEntry, TextParameter(""));
  if (preselected_) {
    const LRESULT entry = preselected_->empty() ? kBlankEntry
                                                : SendItem(IDC_SELECTOR_LIST, LB_FINDSTRINGEXACT, kBlankEntry,
                                                           TextParameter(*preselected_));
    SendItem(IDC_SELECTOR_LIST, LB_SETCURSEL, static_cast<WPARAM>(entry));
  }
  return true;
}

void CSchemeSelector::OnCommand(int id, int code) {
  if (id == IDC_SELECTOR_LIST && code == LBN_DBLCLK) OnOK();
}

void CSchemeSelector::OnOK() {
  const auto entry = static_cast<WPARAM>(SendItem(IDC_SELECTOR_LIST, LB_GETCURSEL));
  const LRESULT length = SendItem(IDC_SELECTOR_LIST, LB_GETTEXTLEN, entry);
  if (length > 0) {
    scheme_.resize(static_cast<std::size_t>(length));
    SendItem(IDC_SELECTOR_LIST, LB_GETTEXT, entry, reinterpret_cast<LPARAM>(scheme_.data()));
  }
  EndDialog(IDOK);
}
