// The record store: the records of the export or import under way, with the operations that every section
// writer and reader is made of. Single-threaded. Knows nothing of Windows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "schemefile/scheme_record.h"

class RecordStore {
 public:
  // Appends a record whose three texts carry their terminator already, as the file writer expects. A look-up
  // in a store that was just written to therefore finds nothing; only records split out of a file match.
  void WriteStringRecord(std::string_view key1, std::string_view key2, std::string_view value);
  // The same with the value in signed decimal ("%d").
  void WriteIntRecord(std::string_view key1, std::string_view key2, std::int32_t value);

  // The value of the record at the read cursor if both its keys match (whole texts, case matters), else of
  // the last matching record of the list, else "". The cursor moves on by exactly one in every case. Costs no
  // more than the length of the keys, plus once the size of the list for the first look-up that misses the
  // cursor.
  std::string ReadStringRecord(std::string_view key1, std::string_view key2);
  // The same text through atoi: leading blanks, a sign, digits up to the first other character. 0 where there
  // is none; a number out of range is cut to the nearest limit.
  std::int32_t ReadIntRecord(std::string_view key1, std::string_view key2);

  void ClearRecordStore();
  void ResetReadCursor() { readCursor_ = 0; }
  // Makes `records` a copy of the store's records, in order. Answers their number.
  std::size_t FlushRecordStore(std::vector<SchemeRecord>& records) const;

  // Replaces the store's records by those of a file and sets the read cursor to 0.
  void Fill(std::vector<SchemeRecord> records);

  std::size_t Count() const { return records_.size(); }
  std::uint32_t ReadCursor() const { return readCursor_; }

  // Never set by any operation; export and import ask for them at their ends all the same.
  bool ExportFailed = false;
  bool ImportFailed = false;

 private:
  using Keys = std::pair<std::string_view, std::string_view>;
  struct KeysHash {
    std::size_t operator()(const Keys& keys) const;
  };

  const SchemeRecord* Find(std::string_view key1, std::string_view key2);
  void BuildIndex();

  std::vector<SchemeRecord> records_;
  std::uint32_t readCursor_ = 0;
  // Keys to the last record that carries them; views into records_. Empty until a look-up misses the cursor,
  // and again after every change of the list.
  std::unordered_map<Keys, std::size_t, KeysHash> index_;
};

// The one store of the process.
RecordStore& TheRecordStore();
