// The config hive in a scheme file. Knows nothing of Windows.

#include <cstdint>

#include "model/config_hive.h"
#include "model/property_records.h"
#include "model/scheme_layout.h"
#include "registry/registry_paths.h"
#include "schemefile/records/record_store.h"

void ConfigHive::WriteToFile() const {
  RecordStore& store = TheRecordStore();
  std::size_t number = 0;
  for (const SchemeEntry& entry : Entries) {
    store.WriteStringRecord(kConfigHiveLabel, ConfigKey(++number), entry.Name);
    store.WriteStringRecord(kConfigHiveLabel, entry.Name, entry.Description);
  }
}

void ConfigHive::ReadFromFile() {
  RecordStore& store = TheRecordStore();
  const std::int32_t count = ReadSchemeCount(store);
  Entries.clear();
  for (std::int32_t i = 1; i <= count; ++i) {
    SchemeEntry& entry = Entries.emplace_back();
    entry.Name = store.ReadStringRecord(kConfigHiveLabel, ConfigKey(i));
    entry.Description = store.ReadStringRecord(kConfigHiveLabel, entry.Name).substr(0, kMaxTextLength);
  }
}
