#include "app/about_dialog.h"

#include "app/about_dialog_ids.h"
#include "resources/resource_ids.h"
#include "resources/version.h"

CAboutDialog::CAboutDialog() : CDialog(IDD_ABOUT) {}

bool CAboutDialog::OnInitDialog() {
  SetItemText(IDC_ABOUT_VERSION, "Kelvanstead Scheme Manager version " VERSION_TEXT);
  return true;
}
