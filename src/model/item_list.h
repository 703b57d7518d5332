// The layout of a counted list: numbered items, each in keys of its own in the registry and under labels of
// its own in a scheme file. Folder roots, web links and buttons are such lists. Knows nothing of Windows.
//
// How many items there are is stated beside them, in the registry and in the file; where, the section that
// owns the list tells. Once read, the list's own length is the count.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "model/field.h"

// A stated count beyond this is damage: no more items are read, and the list counts as not read whole.
inline constexpr std::int32_t kMaxItems = 1000;

// An item may have values in more than one key.
template <class Item>
struct ItemPart {
  const char* SubKey;                                    // follows the path of the item's key
  const char* FileSuffix;                                // follows the item's owner in a file
  std::span<const Field<Item>> Fields;                   // as they are loaded and saved
  std::span<const Field<Item>> FileFields = Fields;      // as they are written to a file
  std::span<const Field<Item>> ReadFields = FileFields;  // as they are read from a file
};

template <class Owner, class Item>
struct ItemListLayout {
  std::vector<Item> Owner::*List;
  const char* Word;  // with a number behind it, counted from 1, the item's key and its name in a file
  std::string Item::*KeyName;  // member that holds that name, or null
  const char* FileLabel;       // stands between the scheme's name and the item's
  std::span<const ItemPart<Item>> Parts;
};

// The name of item `number`, counted from 1.
template <class Owner, class Item>
std::string ItemName(const ItemListLayout<Owner, Item>& layout, std::int32_t number) {
  return layout.Word + std::to_string(number);
}

// Replaces the list by as many items as are stated, and lets `read` (name, part, item) fill each part of
// each. Where the stated number is damaged, empty items at the end are dropped. Returns whether the list then
// holds exactly as many items as stated, whatever of each could be read.
template <class Owner, class Item, class Read>
bool FillItems(const ItemListLayout<Owner, Item>& layout, std::int32_t stated, Owner& owner,
               const Read& read) {
  std::vector<Item>& list = owner.*layout.List;
  list.clear();
  for (std::int32_t n = 1; n <= std::min(stated, kMaxItems); ++n) {
    const std::string name = ItemName(layout, n);
    Item& item = list.emplace_back();
    for (const ItemPart<Item>& part : layout.Parts)
      read(name, part, item);
  }
  Item empty;
  while (stated > kMaxItems && !list.empty() && list.back() == empty)
    list.pop_back();
  if (layout.KeyName) {
    std::int32_t number = 0;
    for (Item& item : list)
      item.*layout.KeyName = ItemName(layout, ++number);
  }
  return std::ssize(list) == stated;
}

// Calls `visit` (name, part, item) for each part of each item of the list.
template <class Owner, class Item, class Visit>
void ForEachItemPart(const ItemListLayout<Owner, Item>& layout, const Owner& owner, const Visit& visit) {
  std::int32_t number = 0;
  for (const Item& item : owner.*layout.List) {
    const std::string name = ItemName(layout, ++number);
    for (const ItemPart<Item>& part : layout.Parts)
      visit(name, part, item);
  }
}
