// Feeds arbitrary bytes through everything that a scheme file passes on its way in, short of the registry.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/config_hive.h"
#include "model/item_list.h"
#include "model/property_records.h"
#include "schemefile/check.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

// Looks every record up in the order of the file, where each stands at the cursor, and once more where none
// does, by which the last of its name is found.
void LookUp(const RecordList& records) {
  RecordStore store;
  store.Fill(records);
  for (const bool atCursor : {true, false}) {
    for (std::size_t i = 0; i < records.Count(); ++i) {
      const std::string_view found = store.ReadStringRecord(records[i].Key1, records[i].Key2);
      Require(!atCursor || found == records[i].Value);
    }
  }
  Require(store.ReadCursor() == 2 * records.Count());
}

void Import(RecordList records) {
  constexpr std::int32_t kMaxSchemes = 4;
  RecordStore store;
  store.Fill(std::move(records));
  const std::int32_t count = ReadSchemeCount(store);
  Require(count >= 0 && static_cast<std::size_t>(count) <= store.Count());
  store.ResetReadCursor();
  const std::vector<SchemeProperties> schemes = ReadSchemes(store, std::min(count, kMaxSchemes), [] {});

  RecordStore exported;
  for (const SchemeProperties& scheme : schemes) {
    Require(std::ssize(scheme.FolderRoots) <= kMaxItems && std::ssize(scheme.WebLinks) <= kMaxItems);
    WritePropertyRecords(exported, scheme);
  }
}

// What the check passes, the import reads whole: written again, it has as many records.
void Check(const RecordList& records) {
  if (!CheckRecords(records).IsWhole()) return;
  RecordStore& store = TheRecordStore();
  store.Fill(records);
  const std::int32_t count = ReadSchemeCount(store);
  store.ResetReadCursor();
  ConfigHive config;
  config.ReadFromFile();
  const std::vector<SchemeProperties> schemes = ReadSchemes(store, count, [] {});

  store.ClearRecordStore();
  config.WriteToFile();
  WriteSchemeCount(store, schemes.size());
  WriteSchemes(store, schemes, [] {});
  Require(store.Count() == records.Count());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string file(reinterpret_cast<const char*>(data), size);
  // Most inputs would end here; they do more good as the records of a sound file.
  if (!HasSignature(file)) file.insert(0, kSignature);
  RecordList records = SplitRecords(std::move(file));
  LookUp(records);
  Check(records);
  Import(std::move(records));
  return 0;
}
