#include "editor/scheme_creation_dialog.h"

#include <algorithm>
#include <utility>

#include "controls/window_text.h"
#include "editor/scheme_creation_dialog_ids.h"
#include "model/scheme_properties.h"
#include "resources/resource_ids.h"

CSchemeCreationDialog::CSchemeCreationDialog(std::vector<std::string> schemes, const std::string& preselected)
    : CDialog(IDD_SCHEME_CREATION), schemes_(std::move(schemes)), source_(preselected) {}

bool CSchemeCreationDialog::OnInitDialog() {
  for (const std::string& scheme : schemes_)
    SendItem(IDC_CREATION_SOURCE, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(scheme.c_str()));
  const auto preselected = std::ranges::find(schemes_, source_);
  const auto position = preselected == schemes_.end() ? 0 : preselected - schemes_.begin();
  SendItem(IDC_CREATION_SOURCE, CB_SETCURSEL, static_cast<WPARAM>(position));
  CheckItem(IDC_CREATION_NEW, true);
  EnableItem(IDC_CREATION_COPY, !schemes_.empty());
  EnableSource();
  return true;
}

void CSchemeCreationDialog::OnCommand(int id, int) {
  if (id == IDC_CREATION_NEW || id == IDC_CREATION_COPY) EnableSource();
}

void CSchemeCreationDialog::OnOK() {
  if (IsItemChecked(IDC_CREATION_COPY)) {
    const int position = static_cast<int>(SendItem(IDC_CREATION_SOURCE, CB_GETCURSEL));
    source_ = ComboItemText(Item(IDC_CREATION_SOURCE), position);
  } else {
    source_ = kDefaultUserScheme;
  }
  CDialog::OnOK();
}

void CSchemeCreationDialog::EnableSource() {
  EnableItem(IDC_CREATION_SOURCE, IsItemChecked(IDC_CREATION_COPY));
}
