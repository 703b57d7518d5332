// The property sheet on which a scheme is edited, with its three pages.
#pragma once

#include <string>

#include "controls/property_sheet.h"
#include "editor/files_page.h"
#include "editor/general_page.h"
#include "editor/links_page.h"
#include "model/scheme_properties.h"

class CMyPropertySheet : public CPropertySheet {
 public:
  // The pages take over what they show of `scheme`. `folders` must outlive the sheet.
  CMyPropertySheet(std::string title, const SchemeProperties& scheme, const PictureFolders& folders);

  // Shows the sheet until it is cancelled, or confirmed with at least one tab ticked: false or true. Shown
  // again after the message about the tabs, it keeps everything that was typed and chosen.
  bool Run(HWND owner);

  // Writes what was edited into a scheme; what no page shows stays as it is.
  void CopyTo(SchemeProperties& scheme) const;

 private:
  CPage1 general_;
  CPage2 links_;
  CPage3 files_;
};
