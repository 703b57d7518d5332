// "Classes, Users and Schemes": allocates a scheme to each class, user and user group; or, in an environment
// where the scheme is a setting of each user, chooses the current user's.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "allocation/allocations.h"
#include "controls/dialog.h"

class CAllocationDialog : public CDialog {
 public:
  CAllocationDialog();

 protected:
  const char* HelpPage() const override { return "allocation.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;
  // Writes every row of the list, from the first to the last, but for one whose allocation is neither known
  // nor chosen; in the per-user layout, the chosen scheme if there is one. Stays open where that fails.
  void OnOK() override;

 private:
  void ShowPerUserLayout();
  void ShowAllocationLayout();
  RECT ItemPlace(int id) const;  // in the dialog's client area
  void MoveItem(int id, int dx, int dy);
  void Shorten(int pixels);

  void MakeColumns();
  void FillSchemes();
  void FillRows();

  void OnChange();
  // Each says so where something could not be written, and returns whether all was.
  bool WriteRows();
  bool ApplyToCurrentUser();
  bool Report(WriteResult result) const;
  void SortBy(int column);
  std::vector<int> SelectedRows() const;
  Allocation& AllocationOf(int row);
  // The scheme that all these rows have; nothing when they differ.
  std::optional<std::string> CommonScheme(const std::vector<int>& rows);

  bool perUser_ = false;
  std::vector<std::string> schemes_;     // sorted
  std::vector<Allocation> allocations_;  // a row's lParam is its index here
  int sortedColumn_ = -1;
  bool descending_ = false;
};
