#include "allocation/dialog/scheme_selector.h"

#include "allocation/dialog/scheme_choice.h"
#include "allocation/dialog/scheme_selector_ids.h"
#include "resources/resource_ids.h"

CSchemeSelector::CSchemeSelector(std::vector<std::string> schemes,
                                 const std::optional<std::string>& preselected)
    : CDialog(IDD_SCHEME_SELECTOR), entries_(std::move(schemes)) {
  if (preselected && !preselected->empty() && !FindName(entries_, *preselected))
    entries_.push_back(*preselected);
  SortNames(entries_);
  entries_.insert(entries_.begin(), "");
  if (preselected) preselected_ = FindName(entries_, *preselected);
}

bool CSchemeSelector::OnInitDialog() {
  for (const std::string& entry : entries_)
    SendItem(IDC_SELECTOR_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
  if (preselected_) SendItem(IDC_SELECTOR_LIST, LB_SETCURSEL, *preselected_);
  return true;
}

void CSchemeSelector::OnCommand(int id, int code) {
  if (id == IDC_SELECTOR_LIST && code == LBN_DBLCLK) OnOK();
}

void CSchemeSelector::OnOK() {
  const LRESULT entry = SendItem(IDC_SELECTOR_LIST, LB_GETCURSEL);
  if (entry != LB_ERR) scheme_ = entries_[static_cast<std::size_t>(entry)];
  EndDialog(IDOK);
}
