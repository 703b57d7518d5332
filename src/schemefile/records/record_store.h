// The record store: the records of the export or import under way, with the operations that every section
// writer and reader is made of. Single-threaded. Knows nothing of Windows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "schemefile/records/record_list.h"

// The number of a record, as atoi reads it: leading blanks, a sign, digits up to the first other character. 0
// where there is none; a number out of range is cut to the nearest limit.
std::int32_t NumberIn(std::string_view text);

class RecordStore {
 public:
  // Appends a record whose three texts carry their terminator already, as the file writer expects. A look-up
  // in a store that was just written to therefore finds nothing; only records split out of a file match.
  void WriteStringRecord(std::string_view key1, std::string_view key2, std::string_view value);
  // The same with the value in signed decimal ("%d").
  void WriteIntRecord(std::string_view key1, std::string_view key2, std::int32_t value);

  // The value of the record at the read cursor if both its keys match (whole texts, case matters), else of
  // the last matching record of the list, else "". The cursor moves on by exactly one in every case. Costs no
  // more than the length of the texts, plus once the size of the list for the first look-up that misses the
  // cursor.
  std::string ReadStringRecord(std::string_view key1, std::string_view key2);
  // The same text as a number (NumberIn).
  std::int32_t ReadIntRecord(std::string_view key1, std::string_view key2);
  // Puts in the place of each text, the second key of a record under `key1`, what ReadStringRecord returns
  // for it, in turn. The values stay valid until the list changes.
  void ReadRecords(std::string_view key1, std::span<std::string_view> texts);

  // Where in the list the record stands that the two above read; moves the cursor in the same way.
  std::optional<std::size_t> FindRecord(std::string_view key1, std::string_view key2);

  // Empties the list. The read cursor stays where it is.
  void ClearRecordStore();
  void ResetReadCursor() { readCursor_ = 0; }
  // Makes `records` a copy of the store's records, in order. Returns their number.
  std::size_t FlushRecordStore(RecordList& records) const;

  // Replaces the store's records by those of a file and sets the read cursor to 0.
  void Fill(RecordList records);

  const RecordList& Records() const { return records_; }
  std::size_t Count() const { return records_.Count(); }
  std::uint32_t ReadCursor() const { return readCursor_; }

  // Never set by any operation; export and import ask for them at their ends all the same.
  bool ExportFailed = false;
  bool ImportFailed = false;

 private:
  // A place in the index: a record's position in the list, counted from 1 (0 is a free place), with the hash
  // of its keys, which tells most others without a look at them.
  struct Slot {
    std::uint32_t Hash = 0;
    std::uint32_t Position = 0;
  };

  bool IsAtCursor(std::string_view key1, std::string_view key2) const;
  void ReadByIndex(std::string_view key1, std::span<std::string_view> texts);
  // The slot of a record with these keys, or the free one where it belongs.
  Slot& FindSlot(std::uint32_t hash, std::string_view key1, std::string_view key2);
  void BuildIndex();

  RecordList records_;
  std::uint32_t readCursor_ = 0;
  // A hash table with linear probing that leads to the last record with certain keys. Its size is a power of
  // two. Empty until a look-up misses the cursor, and again after every change of the list.
  std::vector<Slot> index_;
};

// The one store of the process.
RecordStore& TheRecordStore();
