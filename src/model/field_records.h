// Rows of a layout table (model/field.h) as records of a scheme file. Knows nothing of Windows.
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

#include "model/field.h"
#include "schemefile/records/record_store.h"

// Appends the record (`owner`, the row's label, the value of the row's member). Numbers are written in signed
// decimal: 0xFFFFFFFF as "-1".
template <class Record>
void WriteField(RecordStore& store, std::string_view owner, const Record& record,
                const Field<Record>& field) {
  if (const auto* text = std::get_if<typename Field<Record>::Text>(&field.Member)) {
    store.WriteStringRecord(owner, field.Label, record.**text);
  } else {
    const auto number = std::get<typename Field<Record>::Number>(field.Member);
    store.WriteIntRecord(owner, field.Label, static_cast<std::int32_t>(record.*number));
  }
}

// Looks the same record up and stores its value in the row's member: an empty text or 0 when it is missing.
template <class Record>
void ReadField(RecordStore& store, std::string_view owner, Record& record, const Field<Record>& field) {
  if (const auto* text = std::get_if<typename Field<Record>::Text>(&field.Member)) {
    record.** text = store.ReadStringRecord(owner, field.Label);
  } else {
    const auto number = std::get<typename Field<Record>::Number>(field.Member);
    record.*number = static_cast<std::uint32_t>(store.ReadIntRecord(owner, field.Label));
  }
}

// All rows of a table, in its order. `fields` is any range of Field<Record>.
template <class Record, class Fields>
void WriteFields(RecordStore& store, std::string_view owner, const Record& record, const Fields& fields) {
  for (const Field<Record>& field : fields)
    WriteField(store, owner, record, field);
}

template <class Record, class Fields>
void ReadFields(RecordStore& store, std::string_view owner, Record& record, const Fields& fields) {
  for (const Field<Record>& field : fields)
    store.Prefetch(owner, field.Label);
  for (const Field<Record>& field : fields)
    ReadField(store, owner, record, field);
}
