// An INI file at a place that the program looks at, for as long as the object lives. What is there already is
// never touched: the test fails instead. A file left behind by a run that crashed is known by its first line.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

class ScratchIni {
 public:
  ScratchIni(const std::string& path, const std::string& text) {
    const std::filesystem::path file(path);
    if (exists(file) && FirstLine(file) != kMark)
      throw std::runtime_error("this machine has a file of its own: " + path);
    created_ = file;
    while (!exists(created_.parent_path()))
      created_ = created_.parent_path();
    create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << kMark << "\r\n" << text;
  }
  // Removes the folders that were made for it, too.
  ~ScratchIni() { remove_all(created_); }
  ScratchIni(const ScratchIni&) = delete;
  ScratchIni& operator=(const ScratchIni&) = delete;

 private:
  static constexpr char kMark[] = "; Made by the tests of Kelvanstead Scheme Manager";

  static std::string FirstLine(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
  }

  std::filesystem::path created_;
};
