// Feeds arbitrary bytes through everything that a scheme file passes on its way in, short of the registry.

#include <algorithm>
#include <array>
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
#include "schemefile/compare.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

// What a look-up must return, found the slow way.
std::string_view LastMatch(const RecordList& records, const SchemeRecord& asked) {
  std::string_view value;
  for (std::size_t i = 0; i < records.Count(); ++i) {
    if (records[i].Key1 == asked.Key1 && records[i].Key2 == asked.Key2) value = records[i].Value;
  }
  return value;
}

// Looks every record up in the order of the file, where each stands at the cursor, and from the last to the
// first, where hardly any does.
void LookUp(const RecordList& records) {
  RecordStore store;
  store.Fill(records);
  for (std::size_t i = 0; i < records.Count(); ++i) {
    Require(store.ReadStringRecord(records[i].Key1, records[i].Key2) == records[i].Value);
  }
  Require(store.ReadCursor() == records.Count());
  constexpr std::size_t kMaxComparedSlowly = 50;
  const std::size_t count = std::min(records.Count(), kMaxComparedSlowly);
  for (std::size_t i = count; i-- > 0;) {
    Require(store.ReadStringRecord(records[i].Key1, records[i].Key2) == LastMatch(records, records[i]));
  }
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
    Require(CompareScheme(scheme, scheme).empty());
    (void)CompareScheme(schemes.front(), scheme);
    WritePropertyRecords(exported, scheme);
  }
}

// A record of a file and the same written again: numbers in one form, tab flags as 0 or 1.
std::array<std::string, 3> Normal(const SchemeRecord& record) {
  const auto text = [](std::string_view field) {
    if (field.ends_with(kFieldTerminator)) field.remove_suffix(1);
    return std::string(field);
  };
  std::array<std::string, 3> normal = {text(record.Key1), text(record.Key2), text(record.Value)};
  std::string& value = normal[2];
  char* end = nullptr;
  const long long number = std::strtoll(value.c_str(), &end, 10);
  if (!value.empty() && end == value.data() + value.size()) {
    value = std::to_string(normal[0].ends_with(" - Tabs") ? number != 0 : number);
  }
  return normal;
}

std::vector<std::array<std::string, 3>> Sorted(const RecordList& records) {
  std::vector<std::array<std::string, 3>> sorted;
  for (std::size_t i = 0; i < records.Count(); ++i)
    sorted.push_back(Normal(records[i]));
  std::ranges::sort(sorted);
  return sorted;
}

// What the check passes, the import reads whole: written again, it has the same records, none less and none
// more.
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
  Require(Sorted(store.Records()) == Sorted(records));
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
