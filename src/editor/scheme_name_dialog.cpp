#include "editor/scheme_name_dialog.h"

#include <utility>

#include "editor/scheme_name_dialog_ids.h"
#include "editor/text_entry.h"
#include "resources/resource_ids.h"

CSchemeNameDialog::CSchemeNameDialog(std::string name)
    : CDialog(IDD_SCHEME_NAME_PROBLEM), name_(std::move(name)) {}

bool CSchemeNameDialog::OnInitDialog() {
  SetItemText(IDC_NEW_SCHEME_NAME, name_);
  return true;
}

void CSchemeNameDialog::OnCommand(int id, int code) {
  if (id == IDC_NEW_SCHEME_NAME && code == EN_CHANGE) ApplyTextRule(Window(), id, kNewSchemeNameRule);
}

void CSchemeNameDialog::OnOK() {
  name_ = ItemText(IDC_NEW_SCHEME_NAME);
  CDialog::OnOK();
}
