#include "registry/catalogue/scheme_catalogue.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "base/names.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

UniqueKey OpenWithAllAccess(const std::string& path) {
  return OpenKey(HKEY_LOCAL_MACHINE, path, KEY_ALL_ACCESS);
}

// A value as it is stored, to be put back whatever it holds.
class StoredValue {
 public:
  StoredValue(HKEY key, const std::string& name) : name_(Widen(name)) {
    DWORD size = 0;
    if (RegQueryValueExW(key, name_.c_str(), nullptr, &type_, nullptr, &size) != ERROR_SUCCESS) return;
    data_.resize(size);
    if (RegQueryValueExW(key, name_.c_str(), nullptr, &type_, data_.data(), &size) != ERROR_SUCCESS) size = 0;
    data_.resize(std::min<std::size_t>(size, data_.size()));
  }
  [[nodiscard]] bool PutBack(HKEY key) const {
    return RegSetValueExW(key, name_.c_str(), 0, type_, data_.data(), static_cast<DWORD>(data_.size())) ==
           ERROR_SUCCESS;
  }

 private:
  const std::wstring name_;
  DWORD type_ = REG_SZ;
  std::vector<BYTE> data_;
};

// Deletes every value whose text is the scheme's name in any case. A value too long to read cannot be one.
// The names are collected first: deleting while enumerating would skip the neighbour. Of two values that read
// as one name, neither is deleted: it could be the other one. Returns whether all of them are gone.
bool DeleteAllocations(const char* kind, const std::string& scheme) {
  UniqueKey key;
  const LSTATUS opened = OpenKey(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), KEY_ALL_ACCESS, key);
  if (opened != ERROR_SUCCESS) return IsMissing(opened);
  std::vector<std::string> allocated;
  std::multiset<std::string, NameLess> names;
  const LSTATUS end = ForEachShortValue(key.Get(), [&](const ListedValue& value) {
    names.insert(value.Name);
    if (lstrcmpiA(value.Text().c_str(), scheme.c_str()) == 0) allocated.push_back(value.Name);
  });
  bool complete = end == ERROR_NO_MORE_ITEMS;
  for (const std::string& each : allocated)
    complete &= names.count(each) == 1 && RegDeleteValueA(key.Get(), each.c_str()) == ERROR_SUCCESS;
  return complete;
}

// Always works on the first subkey that remains, and goes into it only if it cannot be deleted as it is.
void DeleteSubkeys(HKEY key) {
  char name[260];
  // At first only shorter names are taken, so a longer one in the first place ends the deletion; kept as it
  // is.
  DWORD length = 128;
  while (RegEnumKeyExA(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
    if (RegDeleteKeyA(key, name) != ERROR_SUCCESS) {
      UniqueKey subkey = OpenKey(key, name, KEY_ALL_ACCESS);
      if (subkey) DeleteSubkeys(subkey.Get());
      subkey.Reset();
      if (RegDeleteKeyA(key, name) != ERROR_SUCCESS) return;
    }
    length = sizeof(name);
  }
}

ChangeResult DoneIf(bool complete) { return complete ? ChangeResult::kDone : ChangeResult::kIncomplete; }

}  // namespace

CatalogueResult SchemeCatalogue::LoadCatalogue(std::size_t maxSchemes, SchemesAccess access) {
  hive_.Entries.clear();
  walk_ = {};
  if (!RegistryKey::KeyExists(kSchemesKey)) return CatalogueResult::kNoSchemesKey;
  walk_ = hive_.LoadFromRegistry(access, maxSchemes);
  if (!walk_.Opened) return CatalogueResult::kNoAccess;
  if (walk_.Failed) return CatalogueResult::kReadError;
  return walk_.CutShort ? CatalogueResult::kCutShort : CatalogueResult::kLoaded;
}

std::optional<std::size_t> SchemeCatalogue::Find(const std::string& name) const {
  const auto found = std::ranges::find(Schemes().rbegin(), Schemes().rend(), name, &SchemeEntry::Name);
  if (found == Schemes().rend()) return std::nullopt;
  return static_cast<std::size_t>(Schemes().rend() - found) - 1;
}

void SchemeCatalogue::LoadProtectedSchemes(SchemesAccess access) {
  protectedSchemes_.clear();
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kProtectedSchemesKey,
                                access == SchemesAccess::kRead ? KEY_READ : KEY_ALL_ACCESS);
  if (!key) return;
  ForEachValue(key.Get(), [this](const ListedValue& value) {
    protectedSchemes_.insert(value.Name);
    return true;
  });
}

bool SchemeCatalogue::IsAmbiguous(const std::string& name) const {
  return std::ranges::any_of(walk_.Ambiguous,
                             [&](const std::string& ambiguous) { return IsSameName(ambiguous, name); });
}

bool SchemeCatalogue::IsTaken(const std::string& name) const {
  if (std::ranges::any_of(Schemes(),
                          [&](const SchemeEntry& scheme) { return IsSameName(scheme.Name, name); }))
    return true;
  RegistryKey schemes(RegistryKey::kOpen, kSchemesKey);
  const bool noValue =
      !schemes.HasValue(name.c_str()) && IsMissing(static_cast<LSTATUS>(schemes.LastError()));
  return !noValue && FindSchemeKey(name) != Outcome::kIncomplete;
}

Outcome SchemeCatalogue::ReadScheme(const SchemeEntry& entry, SchemeProperties& scheme) const {
  scheme = {};
  scheme.Name = entry.Name;
  const UniqueKey schemes = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ);
  scheme.Description = ReadText(schemes.Get(), entry.Name).value_or(entry.Description);
  return LoadSchemeProperties(entry.Name, scheme);
}

ChangeResult SchemeCatalogue::Append(const SchemeProperties& scheme) {
  // What was changed or deleted since the list was made must not come back.
  const CatalogueResult listed = LoadCatalogue();
  const UniqueKey schemes = OpenWithAllAccess(kSchemesKey);
  if (!schemes || IsAmbiguous(scheme.Name)) return ChangeResult::kRefused;
  bool complete = listed == CatalogueResult::kLoaded || listed == CatalogueResult::kCutShort;
  complete &= WriteText(schemes.Get(), scheme.Name, scheme.Description) == ERROR_SUCCESS;
  complete &= SaveCatalogue(scheme);
  hive_.Entries.push_back({scheme.Name, scheme.Description});
  return DoneIf(hive_.SaveToRegistry({}).Complete && complete);
}

// Of another scheme only what is missing has to be written: the rest would be written as it stands.
bool SchemeCatalogue::SaveCatalogue(const SchemeProperties& added) const {
  bool complete = SaveSchemeOfMany(added);
  for (const SchemeEntry& entry : Schemes()) {
    if (IsSchemeName(entry.Name) && !IsAmbiguous(entry.Name)) complete &= AddMissingProperties(entry.Name);
  }
  return complete;
}

ChangeResult SchemeCatalogue::Replace(std::size_t index, const SchemeProperties& scheme) {
  SchemeEntry& entry = hive_.Entries[index];
  if (IsAmbiguous(entry.Name) || IsAmbiguous(scheme.Name)) return ChangeResult::kRefused;
  bool replaced = false;
  if (const UniqueKey schemes = OpenWithAllAccess(kSchemesKey)) {
    const StoredValue old(schemes.Get(), entry.Name);
    replaced = RegDeleteValueA(schemes.Get(), entry.Name.c_str()) == ERROR_SUCCESS;
    if (replaced && WriteText(schemes.Get(), scheme.Name, scheme.Description) != ERROR_SUCCESS)
      return old.PutBack(schemes.Get()) ? ChangeResult::kRefused : ChangeResult::kIncomplete;
  }
  if (replaced) entry = {scheme.Name, scheme.Description};
  const bool saved = SaveSchemeProperties(scheme.Name, scheme);
  return DoneIf(replaced && saved);
}

ChangeResult SchemeCatalogue::Remove(const std::string& name) {
  if (!IsSchemeName(name) || IsAmbiguous(name)) return ChangeResult::kRefused;
  const UniqueKey key = OpenWithAllAccess(kSchemesKey);
  if (!key) return ChangeResult::kRefused;
  bool complete = DeleteAllocations(kClassSchemes, name);
  complete &= DeleteAllocations(kUserSchemes, name);
  complete &= RegDeleteValueA(key.Get(), name.c_str()) == ERROR_SUCCESS;
  DeleteSchemeKeyTree(name);
  complete &= RegDeleteKeyA(key.Get(), name.c_str()) == ERROR_SUCCESS;
  std::erase_if(hive_.Entries, [&](const SchemeEntry& entry) { return entry.Name == name; });
  return DoneIf(complete);
}

void SchemeCatalogue::DeleteSchemeKeyTree(const std::string& name) {
  if (!IsSchemeName(name)) return;
  const UniqueKey key = OpenWithAllAccess(SchemeKeyPath(name));
  if (key) DeleteSubkeys(key.Get());
}
