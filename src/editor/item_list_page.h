// A page that edits an ordered list of items: a report list with Add, Edit, Remove, Move Up, Move Down and
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
  int Percent;  // of the list's width; 0 for the one column that takes what the others leave
};

// What such a page says. The texts and columns must outlive the page.
struct ItemListTexts {
  const char* Caption;
  const char* Label;  // of the list, with its mnemonic
  std::span<const ListColumn> Columns;
};

// The window of the page. The class template below adds the items.
class CListPage : public CPropertyPage {
 protected:
  explicit CListPage(const ItemListTexts& texts);

  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override;

 private:
  virtual int ItemCount() const = 0;
  virtual std::string CellText(int row, int column) const = 0;
  // Both run the item's dialog and return false, having changed nothing, when it was cancelled.
  // AddItem appends.
  virtual bool AddItem() = 0;
  virtual bool EditItem(int row) = 0;
  virtual void RemoveItem(int row) = 0;
  virtual void SwapItems(int row, int other) = 0;

  void SetUpColumns();
  void FitColumns();
  void OnAdd();
  void OnEdit();
  void OnRemove();
  void OnMove(int distance);
  void OnListKey(WORD key);
  // Shows the items as they are now, with `row` selected, or the last one if it is beyond the end.
  void Refresh(int row);
  void UpdateButtons();
  HWND List() const;

  const ItemListTexts& texts_;
  bool refreshing_ = false;
};

template <class ItemType>
class CItemListPage : public CListPage {
 protected:
  // `items` is a member of the page that derives from this.
  CItemListPage(const ItemListTexts& texts, std::vector<ItemType>& items) : CListPage(texts), items_(items) {}

 private:
  virtual std::string CellText(const ItemType& item, int column) const = 0;
  // Runs the dialog on an item. Returns whether it was confirmed.
  virtual bool RunDialog(ItemType& item) = 0;

  int ItemCount() const override { return static_cast<int>(items_.size()); }
  std::string CellText(int row, int column) const override { return CellText(At(row), column); }
  bool AddItem() override {
    ItemType item;
    if (!RunDialog(item)) return false;
    items_.push_back(std::move(item));
    return true;
  }
  bool EditItem(int row) override {
    ItemType item = At(row);
    if (!RunDialog(item)) return false;
    At(row) = std::move(item);
    return true;
  }
  void RemoveItem(int row) override { items_.erase(items_.begin() + row); }
  void SwapItems(int row, int other) override { std::swap(At(row), At(other)); }

  ItemType& At(int row) const { return items_[static_cast<std::size_t>(row)]; }

  std::vector<ItemType>& items_;
};
