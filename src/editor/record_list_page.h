// A page that edits an ordered list of records: a report list with Add, Edit, Remove, Move Up, Move Down and
// Help.
//
// The list is edited in place, so a page's owner gives it a copy. Double-click edits, Insert adds, Delete
// removes; a button is enabled while it can do something. After each change the row that it concerned is
// selected, and the keyboard focus stays on a control that can use it.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "controls/property_sheet.h"

struct ListColumn {
  const char* Title;
  int Percent;  // of the list's width
};

// The window of the page; what a record is, the class below knows. The template of the page has the controls
// of record_list_page_ids.h.
class CListPage : public CPropertyPage {
 protected:
  // `columns` must outlive the page.
  CListPage(UINT templateId, std::span<const ListColumn> columns)
      : CPropertyPage(templateId), columns_(columns) {}

  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;

 private:
  virtual int RecordCount() const = 0;
  virtual std::string CellText(int row, int column) const = 0;
  // Both run the record's dialog and answer false, having changed nothing, when it was cancelled.
  // AddRecord appends.
  virtual bool AddRecord() = 0;
  virtual bool EditRecord(int row) = 0;
  virtual void RemoveRecord(int row) = 0;
  virtual void SwapRecords(int row, int other) = 0;

  void SetUpColumns();
  void OnAdd();
  void OnEdit();
  void OnRemove();
  void OnMove(int distance);
  void OnListKey(WORD key);
  // Shows the records as they are now, with `row` selected, or the last one if it is beyond the end.
  void Refresh(int row);
  void UpdateButtons();
  HWND List() const;

  std::span<const ListColumn> columns_;
  bool refreshing_ = false;
};

template <class Record>
class CRecordListPage : public CListPage {
 protected:
  // `records` is a member of the page that derives from this.
  CRecordListPage(UINT templateId, std::span<const ListColumn> columns, std::vector<Record>& records)
      : CListPage(templateId, columns), records_(records) {}

 private:
  virtual std::string CellText(const Record& record, int column) const = 0;
  // Runs the dialog on a record. Answers whether it was confirmed.
  virtual bool RunDialog(Record& record) = 0;

  int RecordCount() const override { return static_cast<int>(records_.size()); }
  std::string CellText(int row, int column) const override { return CellText(At(row), column); }
  bool AddRecord() override {
    Record record;
    if (!RunDialog(record)) return false;
    records_.push_back(std::move(record));
    return true;
  }
  bool EditRecord(int row) override {
    Record record = At(row);
    if (!RunDialog(record)) return false;
    At(row) = std::move(record);
    return true;
  }
  void RemoveRecord(int row) override { records_.erase(records_.begin() + row); }
  void SwapRecords(int row, int other) override { std::swap(At(row), At(other)); }

  Record& At(int row) const { return records_[static_cast<std::size_t>(row)]; }

  std::vector<Record>& records_;
};
