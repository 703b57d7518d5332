#include "schemefile/records/record_store.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <functional>
#include <limits>
#include <utility>

namespace {

bool HasKeys(const SchemeRecord& record, std::string_view key1, std::string_view key2) {
  return record.Key2 == key2 && record.Key1 == key1;
}

std::uint32_t HashKeys(std::string_view key1, std::string_view key2) {
  const std::hash<std::string_view> hash;
  return static_cast<std::uint32_t>(hash(key1) * 31 + hash(key2));
}

std::string Terminated(std::string_view text) {
  std::string terminated;
  terminated.reserve(text.size() + 1);
  terminated.append(text).push_back(kFieldTerminator);
  return terminated;
}

}  // namespace

std::int32_t NumberIn(std::string_view text) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<long long>(std::strtoll(std::string(text).c_str(), nullptr, 10),
                                                         Limits::min(), Limits::max()));
}

void RecordStore::WriteStringRecord(std::string_view key1, std::string_view key2, std::string_view value) {
  index_.clear();
  records_.Append({Terminated(key1), Terminated(key2), Terminated(value)});
}

void RecordStore::WriteIntRecord(std::string_view key1, std::string_view key2, std::int32_t value) {
  WriteStringRecord(key1, key2, std::to_string(value));
}

std::string RecordStore::ReadStringRecord(std::string_view key1, std::string_view key2) {
  const std::optional<std::size_t> position = FindRecord(key1, key2);
  return position ? std::string(records_[*position].Value) : std::string();
}

std::int32_t RecordStore::ReadIntRecord(std::string_view key1, std::string_view key2) {
  return NumberIn(ReadStringRecord(key1, key2));
}

void RecordStore::ReadRecords(std::string_view key1, std::span<std::string_view> texts) {
  std::size_t inOrder = 0;
  for (; inOrder < texts.size() && IsAtCursor(key1, texts[inOrder]); ++inOrder)
    texts[inOrder] = records_[readCursor_++].Value;
  if (inOrder < texts.size()) ReadByIndex(key1, texts.subspan(inOrder));
}

// In a file of another order the records lie far apart. Each loop takes one step for all of them, so that
// memory is waited for once a step rather than once a step and record.
void RecordStore::ReadByIndex(std::string_view key1, std::span<std::string_view> texts) {
  if (index_.empty()) BuildIndex();
  struct Search {
    std::uint32_t Hash, Position;
    SchemeRecord Record;
    bool IsLikely;
  };
  std::vector<Search> searches(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i)
    searches[i].Hash = HashKeys(key1, texts[i]);
  for (Search& search : searches)
    search.Position = index_[search.Hash & (index_.size() - 1)].Position;
  for (Search& search : searches)
    if (search.Position) search.Record = records_[search.Position - 1];
  for (Search& search : searches)
    search.IsLikely = search.Record.Key1.substr(0, 1) == key1.substr(0, 1);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const Search& search = searches[i];
    if (IsAtCursor(key1, texts[i])) {
      texts[i] = records_[readCursor_].Value;
    } else if (search.IsLikely && HasKeys(search.Record, key1, texts[i])) {
      texts[i] = search.Record.Value;
    } else {
      const std::uint32_t position = FindSlot(search.Hash, key1, texts[i]).Position;
      texts[i] = position ? records_[position - 1].Value : std::string_view();
    }
    ++readCursor_;
  }
}

bool RecordStore::IsAtCursor(std::string_view key1, std::string_view key2) const {
  return readCursor_ < Count() && HasKeys(records_[readCursor_], key1, key2);
}

void RecordStore::ClearRecordStore() {
  index_.clear();
  records_.Clear();
}

std::size_t RecordStore::FlushRecordStore(RecordList& records) const {
  records = records_;
  return records.Count();
}

void RecordStore::Fill(RecordList records) {
  index_.clear();
  records_ = std::move(records);
  readCursor_ = 0;
}

std::optional<std::size_t> RecordStore::FindRecord(std::string_view key1, std::string_view key2) {
  const bool isAtCursor = IsAtCursor(key1, key2);
  const std::size_t cursor = readCursor_++;
  if (isAtCursor) return cursor;
  if (Count() == 0) return std::nullopt;
  if (index_.empty()) BuildIndex();
  const std::uint32_t position = FindSlot(HashKeys(key1, key2), key1, key2).Position;
  if (!position) return std::nullopt;
  return position - 1;
}

RecordStore::Slot& RecordStore::FindSlot(std::uint32_t hash, std::string_view key1, std::string_view key2) {
  const std::size_t mask = index_.size() - 1;
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    Slot& slot = index_[i];
    if (!slot.Position) return slot;
    if (slot.Hash == hash && HasKeys(records_[slot.Position - 1], key1, key2)) return slot;
  }
}

void RecordStore::BuildIndex() {
  index_.resize(std::bit_ceil(Count() * 2));
  for (std::uint32_t position = 0; position < Count();) {
    const auto [key1, key2, value] = records_[position];
    const std::uint32_t hash = HashKeys(key1, key2);
    FindSlot(hash, key1, key2) = {hash, ++position};
  }
}

RecordStore& TheRecordStore() {
  static RecordStore store;
  return store;
}
