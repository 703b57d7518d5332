// Counted lists (model/item_list.h) in the registry, below the key of the section that owns the list.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/outcome.h"
#include "model/field_storage.h"
#include "model/item_list.h"

// Replaces the list by as many items as are stated. An item of which something, or all, is missing counts all
// the same. Complete when the list then holds exactly as many items as stated; failed when the registry
// refused to read one.
template <class Owner, class Item>
Outcome LoadItems(const std::string& sectionPath, const ItemListLayout<Owner, Item>& layout,
                  std::int32_t stated, Owner& owner) {
  Outcome outcome = Outcome::kComplete;
  const bool asStated =
      FillItems(layout, stated, owner, [&](const std::string& name, const ItemPart<Item>& part, Item& item) {
        if (LoadKey(sectionPath + "\\" + name + part.SubKey, item, part.Fields) == Outcome::kFailed)
          outcome = Outcome::kFailed;
      });
  if (!asStated) outcome |= Outcome::kIncomplete;
  return outcome;
}

// Saves every item of the list. What is stored beyond the end of the list stays.
template <class Owner, class Item>
bool SaveItems(const std::string& sectionPath, const ItemListLayout<Owner, Item>& layout, const Owner& owner,
               HKEY root = HKEY_LOCAL_MACHINE) {
  bool complete = true;
  ForEachItemPart(layout, owner, [&](const std::string& name, const ItemPart<Item>& part, const Item& item) {
    complete &= SaveKey(sectionPath + "\\" + name + part.SubKey, item, part.Fields, root);
  });
  return complete;
}

// Adds what the stored items lack. Items are not added: one without a key reads as an empty one anyway.
template <class Owner, class Item>
bool AddMissingToItems(const std::string& sectionPath, const ItemListLayout<Owner, Item>& layout,
                       std::int32_t stated) {
  bool complete = true;
  for (std::int32_t n = 1; n <= std::min(stated, kMaxItems); ++n) {
    const std::string path = sectionPath + "\\" + ItemName(layout, n);
    for (const ItemPart<Item>& part : layout.Parts)
      complete &= AddMissingFields<Item>(path + part.SubKey, part.Fields, MissingKey::kLeave);
  }
  return complete;
}
