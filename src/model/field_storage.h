// Rows of a layout table (model/field.h) as values of a registry key, whose path counts from `root`:
// HKEY_LOCAL_MACHINE, or the open key of a scheme.
#pragma once

#include <windows.h>

#include <string>
#include <variant>

#include "base/outcome.h"
#include "model/field.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"

// What the key's last reading, which failed, says of what was asked for. A value that is too long for its
// type, or of another type, is damaged; any other error may be gone the next time.
inline Outcome OutcomeOf(const RegistryKey& key) {
  const auto error = static_cast<LSTATUS>(key.LastError());
  const bool damaged = error == ERROR_SUCCESS || error == ERROR_MORE_DATA;
  return damaged || IsMissing(error) ? Outcome::kIncomplete : Outcome::kFailed;
}

// Reads the row's value into its member, which stays as it was when RegistryKey cannot read it.
template <class Owner>
Outcome LoadField(RegistryKey& key, Owner& owner, const Field<Owner>& field) {
  if (const auto* text = std::get_if<typename Field<Owner>::Text>(&field.Member)) {
    const char* value = nullptr;
    if (!key.GetString(field.Name, &value)) return OutcomeOf(key);
    owner.** text = value ? value : "";
  } else {
    DWORD value = 0;
    if (!key.GetDword(field.Name, &value)) return OutcomeOf(key);
    owner.*std::get<typename Field<Owner>::Number>(field.Member) = value;
  }
  return Outcome::kComplete;
}

template <class Owner>
bool SaveField(RegistryKey& key, const Owner& owner, const Field<Owner>& field) {
  if (const auto* text = std::get_if<typename Field<Owner>::Text>(&field.Member)) {
    return key.SetString(field.Name, (owner.**text).c_str());
  }
  return key.SetDword(field.Name, owner.*std::get<typename Field<Owner>::Number>(field.Member));
}

// All rows of a table, in its order, each even if an earlier one failed. Opening the key is the test whether
// it exists, or may be written: where it cannot be opened, no value is asked for. `fields` is any range of
// Field<Owner>.
template <class Owner, class Fields>
Outcome LoadKey(const std::string& path, Owner& owner, const Fields& fields) {
  RegistryKey key(RegistryKey::kOpen, path);
  if (!key.Open()) return OutcomeOf(key);
  Outcome outcome = Outcome::kComplete;
  for (const Field<Owner>& field : fields)
    outcome |= LoadField(key, owner, field);
  return outcome;
}

template <class Owner, class Fields>
bool SaveKey(const std::string& path, const Owner& owner, const Fields& fields,
             HKEY root = HKEY_LOCAL_MACHINE) {
  RegistryKey key(RegistryKey::kCreate, path, root);
  if (!key.Open()) return false;
  bool complete = true;
  for (const Field<Owner>& field : fields)
    complete &= SaveField(key, owner, field);
  return complete;
}

// What to do about a key that is not there.
enum class MissingKey { kAdd, kLeave };

// Saves, empty or 0, those rows of a table whose values the key does not have. What is there stays, whatever
// it is. False when something that is missing could not be written, or may be missing and could not be asked
// for.
template <class Owner, class Fields>
bool AddMissingFields(const std::string& path, const Fields& fields, MissingKey missingKey) {
  static const Owner empty{};
  RegistryKey stored(RegistryKey::kOpen, path);
  if (!stored.Open()) {
    if (OutcomeOf(stored) == Outcome::kFailed) return false;
    return missingKey == MissingKey::kLeave || SaveKey(path, empty, fields);
  }
  RegistryKey added(RegistryKey::kCreate, path);  // opened for the first value that is missing
  bool complete = true;
  for (const Field<Owner>& field : fields) {
    if (stored.HasValue(field.Name)) continue;
    complete &= OutcomeOf(stored) == Outcome::kIncomplete && SaveField(added, empty, field);
  }
  return complete;
}
