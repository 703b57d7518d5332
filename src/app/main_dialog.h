// The main window: the schemes of the machine and every command of the program.
#pragma once

#include <optional>
#include <string>

#include "controls/dialog.h"
#include "controls/image_button.h"
#include "controls/window_handles.h"
#include "registry/catalogue/scheme_catalogue.h"

class CMainDialog : public CDialog {
 public:
  CMainDialog();

 private:
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
  void OnHelp() override;

  void SetUpWindowIcons();
  void SetUpButtons();
  void SetUpList();

  // Shows the catalogue as it stands, and selects a row if it has one of that number.
  void FillList(std::optional<int> rowToSelect = std::nullopt);
  void RebuildImageList();
  void InsertRow(int row, const SchemeProperties& scheme);
  void FitDescriptionColumn();
  // The row of the last scheme of that name, if there is one.
  std::optional<int> FindRow(const std::string& schemeName) const;

  void EditSelectedScheme();
  void CreateNewScheme();
  void DeleteSelectedScheme();
  void LoadSchemesFromDisk();
  void ShowAbout();

  // Loaded at start, and again after each command that changes schemes behind its back.
  SchemeCatalogue catalogue_;
  HWND list_ = nullptr;
  UniqueImageList images_;
  UniqueIcon largeIcon_;
  UniqueIcon smallIcon_;
  CImageButton allocateButton_;
  CImageButton helperButton_;
  CImageButton helpButton_;
};
