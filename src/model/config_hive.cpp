#include "model/config_hive.h"

#include <windows.h>

#include "model/property_records.h"
#include "model/scheme_storage.h"
#include "model/settings_caution.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"
#include "schemefile/records/record_store.h"

namespace {

constexpr char kFileLabel[] = "Config Hive";

std::string FileKey(std::int32_t number) { return "Config" + std::to_string(number); }

}  // namespace

void ConfigHive::LoadFromRegistry() {
  Entries.clear();
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ);
  if (!key) return;
  ForEachValue(key.Get(), [this](const std::string& name, const std::string& text) {
    if (HasSchemeKey(name)) Entries.push_back({name, text});
  });
}

bool ConfigHive::SaveToRegistry() const {
  if (!RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, kSchemesKey)) {
    ShowSettingsCaution(kSchemesKey);
    return false;
  }
  RegistryKey key(true, kSchemesKey, HKEY_LOCAL_MACHINE);
  bool complete = true;
  for (const ConfigHiveEntry& entry : Entries) {
    if (!IsSchemeName(entry.SchemeName)) continue;
    complete &= key.SetString(entry.SchemeName.c_str(), entry.ConfigText.c_str(), false);
  }
  return complete;
}

void ConfigHive::WriteToFile() const {
  RecordStore& store = TheRecordStore();
  std::int32_t number = 0;
  for (const ConfigHiveEntry& entry : Entries) {
    store.WriteStringRecord(kFileLabel, FileKey(++number), entry.SchemeName);
    store.WriteStringRecord(kFileLabel, entry.SchemeName, entry.ConfigText);
  }
}

void ConfigHive::ReadFromFile() {
  RecordStore& store = TheRecordStore();
  const std::int32_t count = ReadSchemeCount(store);
  Entries.clear();
  for (std::int32_t i = 1; i <= count; ++i) {
    ConfigHiveEntry& entry = Entries.emplace_back();
    entry.SchemeName = store.ReadStringRecord(kFileLabel, FileKey(i));
    entry.ConfigText = store.ReadStringRecord(kFileLabel, entry.SchemeName).substr(0, kMaxTextLength);
  }
}
