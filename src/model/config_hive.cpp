#include "model/config_hive.h"

#include <windows.h>

#include <set>

#include "base/names.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

// Whether the value is a REG_SZ that reads as `text` (RegQueryValueExA). Stored characters outside the code
// page read as others, and stay.
bool IsStored(HKEY schemes, const std::string& name, const std::string& text) {
  char data[kMaxTextLength + 1];
  DWORD type = REG_NONE;
  DWORD size = sizeof(data);
  return RegQueryValueExA(schemes, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(data), &size) ==
             ERROR_SUCCESS &&
         type == REG_SZ && size == text.size() + 1 && text.compare(0, text.npos, data, text.size()) == 0;
}

}  // namespace

SchemeWalk ConfigHive::LoadFromRegistry(SchemesAccess access, std::size_t maxEntries) {
  Entries.clear();
  SchemeWalk walk;
  const UniqueKey key =
      OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, access == SchemesAccess::kRead ? KEY_READ : KEY_ALL_ACCESS);
  if (!key) return walk;
  walk.Opened = true;
  std::set<std::string, NameLess> names;
  const LSTATUS end = ForEachValue(key.Get(), [&](const std::string& name, const std::string& text) {
    if (!names.insert(name).second) {
      walk.Unreadable.push_back(name);
      walk.Ambiguous.push_back(name);
      return true;
    }
    const Outcome found = FindSchemeKey(name);
    walk.Failed |= found == Outcome::kFailed;
    if (found == Outcome::kComplete) {
      Entries.push_back({name, text});
    } else {
      walk.Unreadable.push_back(name);
    }
    return Entries.size() < maxEntries;
  });
  walk.CutShort = end == ERROR_MORE_DATA;
  walk.Failed |= end != ERROR_NO_MORE_ITEMS && end != ERROR_MORE_DATA && end != ERROR_SUCCESS;
  return walk;
}

bool ConfigHive::SaveToRegistry(const SettingsCaution& caution) const {
  if (!RegistryKey::KeyExists(kSchemesKey)) {
    if (caution) caution(kSchemesKey);
    return false;
  }
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ | KEY_WRITE);
  if (!key) return false;
  // On a machine without schemes no value needs to be asked for.
  std::string name, text;
  const bool isEmpty = ReadValueAt(key.Get(), 0, name, text) == ERROR_NO_MORE_ITEMS;
  bool complete = true;
  for (const SchemeEntry& entry : Entries) {
    if (!IsSchemeName(entry.Name)) continue;
    if (!isEmpty && IsStored(key.Get(), entry.Name, entry.Description)) continue;
    complete &= WriteText(key.Get(), entry.Name, entry.Description) == ERROR_SUCCESS;
  }
  return complete;
}
