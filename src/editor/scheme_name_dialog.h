// Asks for another name when a scheme's own is blank or already taken.
#pragma once

#include <string>

#include "controls/dialog.h"

class CSchemeNameDialog : public CDialog {
 public:
  // Opens on the name that was refused. There is no way out but OK.
  explicit CSchemeNameDialog(std::string name);

  // What was typed; it may be refused again.
  const std::string& Name() const { return name_; }

 private:
  const char* HelpPage() const override { return "names.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  void OnOK() override;
  void OnCancel() override {}

  std::string name_;
};
