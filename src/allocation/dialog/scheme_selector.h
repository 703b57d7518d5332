// "Schemes": the choice of one scheme of a list, or of none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/dialog.h"

class CSchemeSelector : public CDialog {
 public:
  // Borrows the names, which are shown sorted, after a blank entry that stands for no scheme. `preselected`
  // may be blank, and one that is not in the list is not selected.
  CSchemeSelector(const std::vector<std::string>& schemes, std::optional<std::string> preselected);

  // What was chosen, when DoModal answered IDOK. "" for no scheme: the blank entry, or nothing selected.
  const std::string& Scheme() const { return scheme_; }

 protected:
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  void OnOK() override;

 private:
  const std::vector<std::string>& schemes_;
  const std::optional<std::string> preselected_;
  std::string scheme_;
};
