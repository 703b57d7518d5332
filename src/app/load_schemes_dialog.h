// The dialog "Load Schemes": what a scheme file would change, and what of it is to be loaded.
//
// Its lists hold no rows of their own (LVS_OWNERDATA): they ask for what they show, however much there is.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <string>
#include <vector>

#include "app/load_plan.h"
#include "controls/dialog.h"

class CLoadSchemesDialog : public CDialog {
 public:
  // Works on the plan, which must outlive it: the check boxes at once, the copy when it is confirmed.
  explicit CLoadSchemesDialog(LoadPlan& plan);

 private:
  const char* HelpPage() const override { return "load-schemes.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
  // Asks first whether a file in the place of the copy is to be replaced, and stays open if not.
  void OnOK() override;

  void SetUpSchemes();
  void SetUpDamage();
  void HideDamage();
  LRESULT OnSchemesNotify(const NMHDR& header);
  LRESULT FindScheme(const NMLVFINDITEMA& search) const;

  const std::vector<Difference>& Settings() const;
  void ShowSettings();
  void Toggle(int row);
  void CheckEach(bool check);
  void EnableLoad();
  void EnableCopy();
  void BrowseForCopy();

  std::string CellText(UINT_PTR list, std::size_t row, int column) const;
  void FillIn(UINT_PTR list, LVITEMA& item) const;

  LoadPlan& plan_;
};
