// A scheme file on disk.
#pragma once

#include <cstddef>
#include <string>

#include "base/progress.h"
#include "schemefile/exchange.h"
#include "schemefile/records/record_list.h"

enum class FileResult {
  kDone,
  kUnreadable,      // it cannot be opened or read, or holds more fields than the schemes of any machine
  kNotASchemeFile,  // it does not begin with the signature
};

// Reads the bytes of a scheme file, by one ReadFile. `bytes` is left empty unless kDone. Throws
// std::bad_alloc where the file is larger than memory.
[[nodiscard]] FileResult ReadSchemeFile(const std::string& path, std::string& bytes);

// The records of one export or import. Shows nothing.
class SchemeFile {
 public:
  // Makes this object's records of the hive, in place of what it held, through the process's record store
  // (ExportSchemes). Returns the number of records.
  std::size_t Save(const SchemeHive& hive, const Progress& progress);

  // Writes the signature and the records, as they stand, to `path`: to a new file beside it, which is flushed
  // and then takes its place (CreateFileA, FlushFileBuffers, MoveFileExA). Writes nothing when `folder`,
  // where the file lies, does not exist (_access, mode 0) or the file at `path` may not be written to (mode
  // 2). False when the file at `path` is not the new one; then what was there is untouched, and nothing stays
  // beside it.
  [[nodiscard]] bool Write(const std::string& folder, const std::string& path) const;

  // Reads the file at `path` into this object's records. kUnreadable also when `testPath` may not be written
  // to (_access, mode 2): write-protected files are refused. Without a file this object holds no records.
  [[nodiscard]] FileResult Read(const std::string& testPath, const std::string& path);

  // Hands the records over; this object holds none afterwards.
  RecordList TakeRecords();

 private:
  bool WriteTo(const std::string& path) const;

  RecordList records_;
};
