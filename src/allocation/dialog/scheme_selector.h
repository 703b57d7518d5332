// "Schemes": the choice of one scheme of a list, or of none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/dialog.h"

class CSchemeSelector : public CDialog {
 public:
  // Shows the names sorted, after a blank entry that stands for no scheme. `preselected` may be blank; one
  // that is not in the list becomes an entry of its own, so that OK keeps it.
  CSchemeSelector(std::vector<std::string> schemes, const std::optional<std::string>& preselected);

  // What was chosen, when DoModal returned IDOK. "" for no scheme: the blank entry, or nothing selected.
  const std::string& Scheme() const { return scheme_; }

 protected:
  const char* HelpPage() const override { return "allocation.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  void OnOK() override;

 private:
  std::vector<std::string> entries_;
  std::optional<std::size_t> preselected_;
  std::string scheme_;
};
