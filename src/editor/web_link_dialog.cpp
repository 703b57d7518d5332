#include "editor/web_link_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include "controls/message.h"
#include "controls/wait_cursor.h"
#include "editor/text_entry.h"
#include "editor/web_link_dialog_ids.h"
#include "resources/resource_ids.h"

namespace {

constexpr TextField<WebLink> kTextFields[] = {
    {IDC_LINK_NAME, &WebLink::DisplayName, kLinkNameRule},
    {IDC_LINK_URL, &WebLink::URL, kLinkUrlRule},
    {IDC_LINK_LONG_TOOLTIP, &WebLink::LongToolTip, kLongToolTipRule},
    {IDC_LINK_SHORT_TOOLTIP, &WebLink::ShortToolTip, kShortToolTipRule},
};

}  // namespace

CWebLinkDialog::CWebLinkDialog(WebLink& link, const PictureFolders& folders)
    : CDialog(IDD_WEB_LINK), link_(link), folders_(folders), pictures_(folders) {}

bool CWebLinkDialog::OnInitDialog() {
  const WaitCursor cursor;
  ShowTextFields(Window(), kTextFields, link_);
  pictures_.Fill(Item(IDC_LINK_PICTURES), Item(IDC_LINK_PICTURE_FILE), folders_.Bitmaps(), link_.IconFile);
  return true;
}

void CWebLinkDialog::OnCommand(int id, int code) {
  if (code == EN_CHANGE) ApplyTextRules(Window(), kTextFields, id);
}

LRESULT CWebLinkDialog::OnNotify(const NMHDR& header) {
  return header.idFrom == IDC_LINK_PICTURES ? pictures_.OnNotify(header) : 0;
}

void CWebLinkDialog::OnOK() {
  const std::string url = ItemText(IDC_LINK_URL);
  if (ItemText(IDC_LINK_NAME).empty()) {
    ShowMessage(nullptr, "The Name is missing.\n\rPlease enter the Name and try again.", "Missing Name");
    return FocusItem(IDC_LINK_NAME);
  }
  if (url.empty()) {
    ShowMessage(nullptr, "The URL is missing.\n\rPlease enter the URL and try again.", "Missing URL");
    return FocusItem(IDC_LINK_URL);
  }
  if (!CheckUrl(url)) {
    SetItemText(IDC_LINK_URL, "");
    return FocusItem(IDC_LINK_URL);
  }
  ReadTextFields(Window(), kTextFields, link_);
  link_.IconFile = pictures_.Chosen();
  EndDialog(IDOK);
}
