#include "schemefile/scheme_file.h"

#include <windows.h>

#include <io.h>

#include <algorithm>
#include <utility>

#include "base/unique_handle.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"

namespace {

constexpr int kExists = 0;  // the modes of _access
constexpr int kWritable = 2;

constexpr LONGLONG kMaxFileSize = 0x7FFFFFFE;  // the longest text of a 32-bit process
constexpr std::size_t kWriteSize = 1 << 16;

// Some 40,000 schemes. A damaged file may hold little but terminators, and records in memory, with their
// index, take fifteen times as much as those on disk.
constexpr std::ptrdiff_t kMaxFields = 12'000'000;

bool WriteAll(HANDLE file, const std::string& bytes) {
  DWORD written = 0;
  return WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size();
}

// A new file in a folder, gone again when its object ends unless it was moved (GetTempFileNameA).
class FileBeside {
 public:
  explicit FileBeside(const std::string& folder) {
    // With the backslash, or "C:" would be the working folder of that drive.
    if (GetTempFileNameA((folder + "\\").c_str(), "ksf", 0, path_) == 0) *path_ = '\0';
  }
  ~FileBeside() {
    if (*path_) DeleteFileA(path_);
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  // "" when no such file could be made.
  const char* Path() const { return path_; }

 private:
  char path_[MAX_PATH] = "";
};

bool ReadAll(const std::string& path, std::string& bytes) {
  const UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size;
  if (!file || !GetFileSizeEx(file.Get(), &size) || size.QuadPart > kMaxFileSize) return false;
  bytes.resize(static_cast<std::size_t>(size.QuadPart));
  DWORD read = 0;
  return ReadFile(file.Get(), bytes.data(), size.LowPart, &read, nullptr) && read == size.LowPart;
}

FileResult CheckedSchemeFile(const std::string& path, std::string& bytes) {
  if (!ReadAll(path, bytes)) return FileResult::kUnreadable;
  if (!HasSignature(bytes)) return FileResult::kNotASchemeFile;
  const bool tooMany = std::count(bytes.begin(), bytes.end(), kFieldTerminator) > kMaxFields;
  return tooMany ? FileResult::kUnreadable : FileResult::kDone;
}

}  // namespace

FileResult ReadSchemeFile(const std::string& path, std::string& bytes) {
  const FileResult result = CheckedSchemeFile(path, bytes);
  if (result != FileResult::kDone) bytes = {};
  return result;
}

std::size_t SchemeFile::Save(const SchemeHive& hive, const Progress& progress) {
  ExportSchemes(hive, progress);
  return TheRecordStore().FlushRecordStore(records_);
}

bool SchemeFile::Write(const std::string& folder, const std::string& path) const {
  if (_access(folder.c_str(), kExists) != 0) return false;
  if (_access(path.c_str(), kExists) == 0 && _access(path.c_str(), kWritable) != 0) return false;
  const FileBeside beside(folder);
  return *beside.Path() && WriteTo(beside.Path()) &&
         MoveFileExA(beside.Path(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

bool SchemeFile::WriteTo(const std::string& path) const {
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

FileResult SchemeFile::Read(const std::string& testPath, const std::string& path) {
  records_.Clear();
  if (_access(testPath.c_str(), kWritable) != 0) return FileResult::kUnreadable;
  std::string bytes;
  const FileResult result = ReadSchemeFile(path, bytes);
  if (result == FileResult::kDone) records_ = SplitRecords(std::move(bytes));
  return result;
}

RecordList SchemeFile::TakeRecords() { return std::exchange(records_, {}); }
