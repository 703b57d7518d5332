// A scheme file on disk: the records of one export or import.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

#include "schemefile/records/record_list.h"

// Made for one export or import. Messages and the progress window are shown over `owner`.
class SchemeFile {
 public:
  explicit SchemeFile(HWND owner) : owner_(owner) {}

  // Reads every scheme of the machine and makes this object's records of them, in place of what it held.
  // Where the Schemes key is missing, says so and ends the process (SchemeCatalogue::LoadCatalogue). Answers
  // the number of records.
  std::size_t Save();

  // Writes the signature and the records, as they stand, to `path`, over an existing file (CreateFileA,
  // WriteFile). Writes nothing when `folder` does not exist (_access, mode 0). Shows nothing. False when any
  // byte may not have reached the disk; an incomplete file is then left behind.
  [[nodiscard]] bool Write(const std::string& folder, const std::string& path) const;

  // Deletes the file if it may be written to (_access, mode 2; DeleteFileA). Shows nothing.
  static void Remove(const std::string& path);

  // Imports the file at `path` into the registry, and empties this object. Tells the user, and changes
  // nothing, when `testPath` may not be written to (_access, mode 2: write-protected files are refused), when
  // the file cannot be read, when it does not begin with the signature, or when it has more records than any
  // machine's schemes or memory would hold. Answers the number of its records, 0 for a file that was refused.
  std::size_t Read(const std::string& testPath, const std::string& path);

 private:
  // Nothing when the file cannot be read. Shows the message for a file without the signature.
  std::optional<std::size_t> Import(const std::string& path);

  const HWND owner_;
  RecordList records_;
};
