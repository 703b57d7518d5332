// The files that the benchmark makes on its way.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

inline constexpr char kFolder[] = "C:\\bench";

inline std::string InFolder(const std::string& name) { return std::string(kFolder) + "\\" + name; }

inline std::string FileBytes(const std::string& path) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  std::ifstream(path, std::ios::binary).read(bytes.data(), std::ssize(bytes));
  return bytes;
}
