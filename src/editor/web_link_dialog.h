// Edits one web link.
#pragma once

#include "controls/dialog.h"
#include "editor/picture_list.h"
#include "model/scheme_properties.h"

class CWebLinkDialog : public CDialog {
 public:
  // `link` is changed when the dialog is confirmed, and keeps what the dialog does not show. `folders` must
  // outlive the dialog.
  CWebLinkDialog(WebLink& link, const PictureFolders& folders);

 protected:
  const char* HelpPage() const override { return "web-link.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
  void OnOK() override;

 private:
  WebLink& link_;
  const PictureFolders& folders_;
  CPictureList pictures_;
};
