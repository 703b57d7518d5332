#include "schemefile/scheme_file.h"

#include <io.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <optional>
#include <utility>

#include "base/unique_handle.h"
#include "controls/message.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "schemefile/exchange.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"

namespace {

constexpr int kExists = 0;  // the modes of _access
constexpr int kWritable = 2;

constexpr LONGLONG kMaxFileSize = 0x7FFFFFFE;  // the longest text of a 32-bit process
constexpr std::size_t kWriteSize = 1 << 20;

// Some 40,000 schemes. A damaged file may hold little but terminators, and records in memory, with their
// index, take fifteen times as much as those on disk.
constexpr std::ptrdiff_t kMaxFields = 12'000'000;

bool WriteAll(HANDLE file, const std::string& bytes) {
  DWORD written = 0;
  return WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size();
}

// The bytes of the file, by one ReadFile. Nothing when it cannot be opened or read.
std::optional<std::string> ReadAll(const std::string& path) {
  const UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size;
  if (!file || !GetFileSizeEx(file.Get(), &size) || size.QuadPart > kMaxFileSize) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  DWORD read = 0;
  if (!ReadFile(file.Get(), bytes.data(), size.LowPart, &read, nullptr) || read != size.LowPart) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace

std::size_t SchemeFile::Save() {
  SchemeCatalogue catalogue;
  catalogue.LoadCatalogue(false);
  SchemeHive hive;
  hive.Config = std::move(catalogue.Config);
  hive.Schemes = std::move(catalogue.Schemes);
  ExportSchemes(owner_, hive);
  TheRecordStore().FlushRecordStore(hive.Records);
  records_ = std::move(hive.Records);
  return records_.Count();
}

bool SchemeFile::Write(const std::string& folder, const std::string& path) const {
  if (_access(folder.c_str(), kExists) != 0) return false;
  UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return false;
  std::string buffer(kSignature);
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    const SchemeRecord record = records_[i];
    buffer.append(record.Key1).append(record.Key2).append(record.Value);
    if (buffer.size() < kWriteSize) continue;
    if (!WriteAll(file.Get(), buffer)) return false;
    buffer.clear();
  }
  // A disk in a USB port or on the network may tell only now that it is full or gone.
  if (!WriteAll(file.Get(), buffer) || !FlushFileBuffers(file.Get())) return false;
  return CloseHandle(file.Release()) != 0;
}

void SchemeFile::Remove(const std::string& path) {
  if (_access(path.c_str(), kWritable) == 0) DeleteFileA(path.c_str());
}

std::size_t SchemeFile::Read(const std::string& testPath, const std::string& path) {
  records_.Clear();
  try {
    if (_access(testPath.c_str(), kWritable) == 0) {
      if (const std::optional<std::size_t> count = Import(path)) return *count;
    }
  } catch (const std::exception&) {  // more than memory holds
  }
  ShowWarning(owner_,
              "Unable to read the file specified.\n"
              "This is due to the file being damaged,\n"
              "protected or unreadable for another reason",
              "Read Problem");
  return 0;
}

std::optional<std::size_t> SchemeFile::Import(const std::string& path) {
  std::optional<std::string> file = ReadAll(path);
  if (!file) return std::nullopt;
  if (!HasSignature(*file)) {
    ShowMessage(owner_, "This does not appear to be a valid Kelvanstead Scheme Manager File.",
                "File Load Problem", MB_ICONEXCLAMATION);
    return 0;
  }
  if (std::count(file->begin(), file->end(), kFieldTerminator) > kMaxFields) return std::nullopt;
  SchemeHive hive;
  hive.Records = SplitRecords(*std::move(file));
  const std::size_t count = hive.Records.Count();
  ImportSchemes(owner_, hive);
  ApplyImport(hive);
  return count;
}
