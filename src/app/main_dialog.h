// The main window: the schemes of the machine and every command of the program.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

#include "app/running_copy.h"
#include "controls/dialog.h"
#include "controls/image_button.h"
#include "controls/window_handles.h"
#include "registry/catalogue/scheme_catalogue.h"

class CMainDialog : public CDialog {
 public:
  // `fileToOpen` is the full path of a scheme file that is opened as soon as the window stands; "" for none.
  explicit CMainDialog(std::wstring fileToOpen = {});

 private:
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
  const char* HelpPage() const override { return "main-window.htm"; }
  void OnHelp(const char* page) override;
  bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

  void SetUpWindowIcons();
  void SetUpButtons();
  void SetUpList();

  // Both load the catalogue after a command that changed schemes, and show it. The second selects the last
  // scheme of that name, if there is one.
  void Reload();
  void ReloadAndSelect(const std::string& scheme);
  // Shows the catalogue as it stands, and selects a row; none below 0.
  void FillList(int rowToSelect = -1);
  void RebuildImageList();
  void InsertRow(int row, const SchemeEntry& scheme);

  void EditSelectedScheme();
  void CreateNewScheme();
  void DeleteSelectedScheme();
  void LoadSchemesFromDisk();
  void ShowAbout();

  // Lets files in from programs that run with fewer rights, as this one may be elevated.
  void AcceptFiles();
  OfferResult OnFileOffered(HWND sender, const COPYDATASTRUCT& offer);
  void OnFilesDropped(HDROP drop);
  // Opens the file when the messages that wait have been worked off.
  void OpenLater(std::wstring path);
  void OpenWaitingFile();

  // Loaded at start, and again after each command that changes schemes.
  SchemeCatalogue catalogue_;
  HWND list_ = nullptr;
  UniqueImageList images_;
  UniqueIcon largeIcon_;
  UniqueIcon smallIcon_;
  CImageButton allocateButton_;
  CImageButton helperButton_;
  CImageButton helpButton_;
  std::wstring fileToOpen_;
};
