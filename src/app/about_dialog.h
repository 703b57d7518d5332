#pragma once

#include "controls/dialog.h"

// The name and the version of the program.
class CAboutDialog : public CDialog {
 public:
  CAboutDialog();

 private:
  bool OnInitDialog() override;
};
