// Rows of a layout table (model/field.h) as values of a registry key.
#pragma once

#include <windows.h>

#include <string>
#include <variant>

#include "model/field.h"
#include "registry/registry_key.h"

// Reads the row's value into its member. False, with the member as it was, when RegistryKey cannot read it.
template <class Record>
bool LoadField(RegistryKey& key, Record& record, const Field<Record>& field) {
  if (const auto* text = std::get_if<typename Field<Record>::Text>(&field.Member)) {
    const char* value = nullptr;
    if (!key.GetString(field.Name, &value, false)) return false;
    record.** text = value ? value : "";
  } else {
    DWORD value = 0;
    if (!key.GetDword(field.Name, &value)) return false;
    record.*std::get<typename Field<Record>::Number>(field.Member) = value;
  }
  return true;
}

template <class Record>
bool SaveField(RegistryKey& key, const Record& record, const Field<Record>& field) {
  if (const auto* text = std::get_if<typename Field<Record>::Text>(&field.Member)) {
    return key.SetString(field.Name, (record.**text).c_str(), false);
  }
  return key.SetDword(field.Name, record.*std::get<typename Field<Record>::Number>(field.Member));
}

// All rows of a table, in its order, each even if an earlier one failed. True when none failed. `fields` is
// any range of Field<Record>.
template <class Record, class Fields>
bool LoadFields(RegistryKey& key, Record& record, const Fields& fields) {
  bool complete = true;
  for (const Field<Record>& field : fields)
    complete &= LoadField(key, record, field);
  return complete;
}

template <class Record, class Fields>
bool SaveFields(RegistryKey& key, const Record& record, const Fields& fields) {
  bool complete = true;
  for (const Field<Record>& field : fields)
    complete &= SaveField(key, record, field);
  return complete;
}

// The same on the key `path` of the local machine. Opening the key is the test whether it exists, or may be
// written: where it cannot be opened, no value is asked for.
template <class Record, class Fields>
bool LoadKey(const std::string& path, Record& record, const Fields& fields) {
  RegistryKey key(false, path.c_str(), HKEY_LOCAL_MACHINE);
  return key.Open(false, false) && LoadFields(key, record, fields);
}

template <class Record, class Fields>
bool SaveKey(const std::string& path, const Record& record, const Fields& fields) {
  RegistryKey key(true, path.c_str(), HKEY_LOCAL_MACHINE);
  return key.Open(false, false) && SaveFields(key, record, fields);
}
