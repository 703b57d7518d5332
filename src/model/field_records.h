// Layout tables as records of a scheme file: rows (model/field.h) and counted lists (model/item_list.h).
// Knows nothing of Windows.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "model/field.h"
#include "model/item_list.h"
#include "schemefile/records/record_store.h"

// Appends the record (`label`, the row's label, the value of the row's member). Numbers are written in signed
// decimal: 0xFFFFFFFF as "-1".
template <class Owner>
void WriteField(RecordStore& store, std::string_view label, const Owner& owner, const Field<Owner>& field) {
  if (const auto* text = std::get_if<typename Field<Owner>::Text>(&field.Member)) {
    store.WriteStringRecord(label, field.Label, owner.**text);
  } else {
    const auto number = std::get<typename Field<Owner>::Number>(field.Member);
    store.WriteIntRecord(label, field.Label, static_cast<std::int32_t>(owner.*number));
  }
}

// Stores the value of a record in the row's member: "", of a record that is missing, as an empty text or 0.
template <class Owner>
void SetField(Owner& owner, const Field<Owner>& field, std::string_view value) {
  if (const auto* text = std::get_if<typename Field<Owner>::Text>(&field.Member)) {
    owner.** text = value;
  } else {
    const auto number = std::get<typename Field<Owner>::Number>(field.Member);
    owner.*number = static_cast<std::uint32_t>(NumberIn(value));
  }
}

// All rows of a table, in its order. `fields` is any range of Field<Owner>.
template <class Owner, class Fields>
void WriteFields(RecordStore& store, std::string_view label, const Owner& owner, const Fields& fields) {
  for (const Field<Owner>& field : fields)
    WriteField(store, label, owner, field);
}

template <class Owner, class Fields>
void ReadFields(RecordStore& store, std::string_view label, Owner& owner, const Fields& fields) {
  std::vector<std::string_view> texts(fields.size());
  std::ranges::transform(fields, texts.begin(), &Field<Owner>::Label);
  store.ReadRecords(label, texts);
  auto text = texts.begin();
  for (const Field<Owner>& field : fields)
    SetField(owner, field, *text++);
}

// Appends the records of every item of the list.
template <class Owner, class Item>
void WriteItems(RecordStore& store, const std::string& scheme, const ItemListLayout<Owner, Item>& layout,
                const Owner& owner) {
  ForEachItemPart(layout, owner, [&](const std::string& name, const ItemPart<Item>& part, const Item& item) {
    WriteFields(store, scheme + layout.FileLabel + name + part.FileSuffix, item, part.FileFields);
  });
}

// Replaces the list by as many items as are stated. Returns whether it then holds exactly so many.
template <class Owner, class Item>
bool ReadItems(RecordStore& store, const std::string& scheme, const ItemListLayout<Owner, Item>& layout,
               std::int32_t stated, Owner& owner) {
  return FillItems(
      layout, stated, owner, [&](const std::string& name, const ItemPart<Item>& part, Item& item) {
        ReadFields(store, scheme + layout.FileLabel + name + part.FileSuffix, item, part.ReadFields);
      });
}
