// Edits one folder root.
#pragma once

#include <optional>

#include "controls/dialog.h"
#include "controls/window_handles.h"
#include "editor/pictures.h"
#include "model/scheme_properties.h"

class CRootPropertiesDialog : public CDialog {
 public:
  // `root` is changed when the dialog is confirmed, and keeps what the dialog does not show. `folders` must
  // outlive the dialog.
  CRootPropertiesDialog(FolderRoot& root, const PictureFolders& folders);

 protected:
  const char* HelpPage() const override { return "root-properties.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
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
  // The number in the field, 0 where it is empty. Nothing where it holds anything else.
  std::optional<std::uint32_t> FolderLevels() const;

  FolderRoot& root_;
  const PictureFolders& folders_;
  Picture closed_;
  Picture open_;
};
