// A folder of the test's own for files, removed with everything in it.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class ScratchFolder {
 public:
  ScratchFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("Kelvanstead tests " + std::to_string(GetCurrentProcessId()))) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(path_, ignored)) {
      SetFileAttributesA(entry.path().string().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string Path() const { return path_.string(); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  const std::filesystem::path path_;
};

inline std::string ReadFileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteFileBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}
