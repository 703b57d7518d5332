// Edits one folder root.
#pragma once

#include "base/unique_handle.h"
#include "controls/dialog.h"
#include "editor/pictures.h"
#include "model/scheme_properties.h"

class CRootPropertiesDialog : public CDialog {
 public:
  // `root` is changed when the dialog is confirmed, and keeps what the dialog does not show.
  explicit CRootPropertiesDialog(FolderRoot& root);

 protected:
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  void OnHelp() override;
  void OnOK() override;

 private:
  // One of the two pictures, with the controls that show and change it.
  struct Picture {
    std::string FolderRoot::*Member;
    int ThumbnailId, NameId;
    std::string Stored;
    UniqueIcon Thumbnail;
  };

  void BrowseForPath();
  void Choose(Picture& picture);
  void Show(Picture& picture);
  // The number in the field, as long as the user has not changed it as it was stored.
  std::uint32_t FolderLevels() const;

  FolderRoot& root_;
  PictureFolders folders_;
  Picture closed_;
  Picture open_;
};
