// Asks what a new scheme starts from.
#pragma once

#include <string>
#include <vector>

#include "controls/dialog.h"

class CSchemeCreationDialog : public CDialog {
 public:
  // `schemes` are offered in their order; the one named `preselected` is selected, or else the first.
  CSchemeCreationDialog(std::vector<std::string> schemes, const std::string& preselected);

  // The scheme to copy, once the dialog was confirmed; a completely new one is a copy of "Default User".
  const std::string& Source() const { return source_; }

 private:
  const char* HelpPage() const override { return "scheme-creation.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  void OnOK() override;

  void EnableSource();

  const std::vector<std::string> schemes_;
  std::string source_;
};
