// The config hive in a scheme file. Knows nothing of Windows.

#include <cstdint>

#include "model/config_hive.h"
#include "model/property_records.h"
#include "registry/registry_paths.h"
#include "schemefile/records/record_store.h"

namespace {

constexpr char kFileLabel[] = "Config Hive";

std::string FileKey(std::int32_t number) { return "Config" + std::to_string(number); }

}  // namespace

void ConfigHive::WriteToFile() const {
  RecordStore& store = TheRecordStore();
  std::int32_t number = 0;
  for (const SchemeEntry& entry : Entries) {
    store.WriteStringRecord(kFileLabel, FileKey(++number), entry.Name);
    store.WriteStringRecord(kFileLabel, entry.Name, entry.Description);
  }
}

void ConfigHive::ReadFromFile() {
  RecordStore& store = TheRecordStore();
  const std::int32_t count = ReadSchemeCount(store);
  Entries.clear();
  for (std::int32_t i = 1; i <= count; ++i) {
    SchemeEntry& entry = Entries.emplace_back();
    entry.Name = store.ReadStringRecord(kFileLabel, FileKey(i));
    entry.Description = store.ReadStringRecord(kFileLabel, entry.Name).substr(0, kMaxTextLength);
  }
}
