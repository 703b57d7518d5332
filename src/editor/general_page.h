// The General page of the scheme property sheet: name, description, tabs, toolbar buttons and defaults.
#pragma once

#include <array>
#include <string>

#include "controls/property_sheet.h"
#include "controls/window_handles.h"
#include "model/scheme_properties.h"

class CPage1 : public CPropertyPage {
 public:
  // Takes over what the page shows of a scheme. The name and description of "Default User" are left out, and
  // a description of one blank counts as none.
  explicit CPage1(const SchemeProperties& scheme);

  // Whether at least one of the shell's tabs is ticked.
  bool AnyTabChosen() const;

  // Writes the page's members into a scheme. Buttons that a page of the shell cannot do without (Back,
  // Forward, Refresh, Help and Up) are switched on; what the page does not show stays as it is.
  void CopyTo(SchemeProperties& scheme) const;

 private:
  const char* HelpPage() const override { return "scheme-editor-general.htm"; }
  static constexpr std::size_t kTabCount = 3;
  static constexpr std::size_t kToolButtonCount = 6;
  static constexpr std::size_t kSwitchCount = 3;

  bool OnInitDialog() override;
  void ExchangeData(bool toControls) override;
  void OnCommand(int id, int code) override;

  void ExchangeText(bool toControls, int id, std::string& text);
  void ExchangeCheck(bool toControls, int id, bool& checked);
  void ShowPictures();
  void FillTabList();
  void FillViewList();
  void ToggleTab(std::size_t tab);
  // Returns the position in the list.
  LRESULT AppendToTabList(std::size_t tab);
  void RemoveFromTabList(std::size_t tab);
  void ChooseFirstTab();

  std::string name_;
  std::string description_;
  std::array<bool, kTabCount> tabs_{};
  std::array<bool, kToolButtonCount> toolButtons_{};
  std::array<bool, kSwitchCount> switches_{};
  std::size_t firstTab_ = 0;
  int view_;  // position in the list, or -1 for a view that this program does not know

  std::array<UniqueIcon, kTabCount> pictures_;
};
