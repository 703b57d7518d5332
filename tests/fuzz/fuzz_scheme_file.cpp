// Feeds arbitrary bytes through everything that a scheme file passes on its way in, short of the registry.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "schemefile/property_records.h"
#include "schemefile/record_splitter.h"
#include "schemefile/record_store.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

// What a look-up must answer, found the slow way.
const std::string* LastMatch(const std::vector<SchemeRecord>& records, const SchemeRecord& asked) {
  const std::string* value = nullptr;
  for (const SchemeRecord& record : records) {
    if (record.Key1 == asked.Key1 && record.Key2 == asked.Key2) value = &record.Value;
  }
  return value;
}

// Looks every record up in the order of the file, where each stands at the cursor, and from the last to the
// first, where hardly any does.
void LookUp(const std::vector<SchemeRecord>& records) {
  RecordStore store;
  store.Fill(records);
  for (const SchemeRecord& record : records) {
    Require(store.ReadStringRecord(record.Key1, record.Key2) == record.Value);
  }
  Require(store.ReadCursor() == records.size());
  constexpr std::size_t kMostComparedSlowly = 50;
  const std::size_t count = std::min(records.size(), kMostComparedSlowly);
  for (std::size_t i = count; i-- > 0;) {
    Require(store.ReadStringRecord(records[i].Key1, records[i].Key2) == *LastMatch(records, records[i]));
  }
}

void Import(std::vector<SchemeRecord> records) {
  constexpr std::int32_t kMostSchemes = 4;
  RecordStore store;
  store.Fill(std::move(records));
  const std::int32_t count = ReadSchemeCount(store);
  Require(count >= 0 && static_cast<std::size_t>(count) <= store.Count());
  store.ResetReadCursor();
  const std::vector<SchemeProperties> schemes = ReadSchemes(store, std::min(count, kMostSchemes), [] {});

  RecordStore exported;
  for (const SchemeProperties& scheme : schemes) {
    Require(scheme.FolderDisplay.Count <= kMaxRecords && scheme.WebLinks.Count <= kMaxRecords);
    Require(std::ssize(scheme.FolderDisplay.Records) == scheme.FolderDisplay.Count);
    Require(std::ssize(scheme.WebLinks.Records) == scheme.WebLinks.Count);
    WritePropertyRecords(exported, scheme);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string file(reinterpret_cast<const char*>(data), size);
  // Most inputs would end here; they do more good as the records of a sound file.
  if (!HasSignature(file)) file.insert(0, kSignature);
  std::vector<SchemeRecord> records = SplitRecords(file);
  LookUp(records);
  Import(std::move(records));
  return 0;
}
