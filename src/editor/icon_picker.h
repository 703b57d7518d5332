// Lets the user choose a folder's picture: from the icons and bitmaps of the shell's folders by their
// thumbnails, any other file by browsing, or none.
#pragma once

#include <string>

#include "controls/dialog.h"
#include "editor/picture_list.h"

class CIconPicker : public CDialog {
 public:
  // Opens on the picture that is stored now. `folders` must outlive the dialog.
  CIconPicker(const PictureFolders& folders, std::string stored);

  // What a scheme stores for the picture that was chosen; as it was, when the dialog was cancelled.
  const std::string& Picture() const { return picture_; }

 protected:
  const char* HelpPage() const override { return "icon-picker.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
  void OnOK() override;

 private:
  void Browse();

  const PictureFolders& folders_;
  CPictureList list_;
  std::string picture_;
};
