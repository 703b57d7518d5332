// A file at a place that the program looks at, for as long as the object lives. What a machine has there of
// its own is never touched: the test fails instead. What a run that crashed left behind is known by its mark.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "support/scratch_folder.h"

class ScratchIni {
 public:
  ScratchIni(const std::string& path, const std::string& text) : created_(path) {
    const std::string mark = "; made by a test of the scheme manager\r\n";
    if (exists(created_) && !ReadFileBytes(path).starts_with(mark))
      throw std::runtime_error("this machine has its own " + path);
    while (!exists(created_.parent_path()))
      created_ = created_.parent_path();
    create_directories(std::filesystem::path(path).parent_path());
    WriteFileBytes(path, mark + text);
  }
  ~ScratchIni() { remove_all(created_); }  // with the folders that were made for it
  ScratchIni(const ScratchIni&) = delete;
  ScratchIni& operator=(const ScratchIni&) = delete;

 private:
  std::filesystem::path created_;
};
