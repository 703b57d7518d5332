#include "model/config_hive.h"

#include <windows.h>

#include <map>
#include <set>
#include <utility>

#include "base/names.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

// The values of the Schemes key as they are stored, read in one walk. A value that is too long is not there.
class StoredPairs {
 public:
  explicit StoredPairs(HKEY schemes) {
    const LSTATUS end = ForEachShortValue(schemes, [this](const ListedValue& value) {
      if (!pairs_.try_emplace(value.Name, value.Type, value.Data).second) ambiguous_.insert(value.Name);
    });
    isWhole_ = end == ERROR_NO_MORE_ITEMS;
  }

  // Whether every value could be read.
  bool IsWhole() const { return isWhole_; }

  // Whether the value is a REG_SZ that reads as the pair's text. Stored characters outside the code page read
  // as others, and stay.
  bool Contains(const SchemeEntry& pair) const {
    const auto found = pairs_.find(pair.Name);
    return found != pairs_.end() && found->second == std::pair(DWORD{REG_SZ}, pair.Description + '\0');
  }
  // Takes note of a pair that is written.
  void Replace(const SchemeEntry& pair) {
    pairs_.insert_or_assign(pair.Name, std::pair(DWORD{REG_SZ}, pair.Description + '\0'));
  }
  const std::set<std::string, NameLess>& Ambiguous() const { return ambiguous_; }

 private:
  std::map<std::string, std::pair<DWORD, std::string>, NameLess> pairs_;
  std::set<std::string, NameLess> ambiguous_;
  bool isWhole_ = false;
};

}  // namespace

SchemeWalk ConfigHive::LoadFromRegistry(SchemesAccess access, std::size_t maxEntries) {
  Entries.clear();
  SchemeWalk walk;
  const UniqueKey key =
      OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, access == SchemesAccess::kRead ? KEY_READ : KEY_ALL_ACCESS);
  if (!key) return walk;
  walk.Opened = true;
  std::set<std::string, NameLess> names;
  const LSTATUS end = ForEachValue(key.Get(), [&](const ListedValue& value) {
    const auto& name = value.Name;
    const std::string text = value.Text();
    walk.CutShort = text.size() > kMaxTextLength;
    if (walk.CutShort) return false;
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
  walk.CutShort |= end == ERROR_MORE_DATA;
  walk.Failed |= end != ERROR_NO_MORE_ITEMS && end != ERROR_MORE_DATA && end != ERROR_SUCCESS;
  return walk;
}

ConfigHiveSaving ConfigHive::SaveToRegistry(const SettingsCaution& caution) const {
  if (!RegistryKey::KeyExists(kSchemesKey)) {
    if (caution) caution(kSchemesKey);
    return {};
  }
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ | KEY_WRITE);
  if (!key) return {};
  StoredPairs stored(key.Get());
  if (!stored.IsWhole()) return {};
  ConfigHiveSaving saving{true, stored.Ambiguous()};
  for (const SchemeEntry& entry : Entries) {
    if (!IsSchemeName(entry.Name) || saving.Ambiguous.contains(entry.Name)) {
      saving.Complete = false;
    } else if (!stored.Contains(entry)) {
      saving.Complete &= WriteText(key.Get(), entry.Name, entry.Description) == ERROR_SUCCESS;
      stored.Replace(entry);
    }
  }
  return saving;
}
