// Processes under the name of the program. They never begin to run, so nothing is needed to end them by.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "base/unique_handle.h"

class ProgramCopies {
 public:
  // Puts another program under that name into the folder.
  explicit ProgramCopies(const std::string& folder) : program_(folder + "\\Kelvanstead Scheme Manager.exe") {
    char system[MAX_PATH] = "";
    GetSystemDirectoryA(system, sizeof(system));
    std::filesystem::copy_file(std::filesystem::path(system) / "cmd.exe", program_);
  }
  ~ProgramCopies() {
    for (const UniqueProcess& process : processes_) {
      TerminateProcess(process.Get(), 0);
      WaitForSingleObject(process.Get(), INFINITE);
    }
  }
  ProgramCopies(const ProgramCopies&) = delete;
  ProgramCopies& operator=(const ProgramCopies&) = delete;

  // Returns the process's id, 0 where it could not be started.
  DWORD Start() {
    STARTUPINFOA start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    CreateProcessA(program_.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr,
                   &start, &process);
    CloseHandle(process.hThread);
    processes_.emplace_back(process.hProcess);
    return process.dwProcessId;
  }

 private:
  const std::string program_;
  std::vector<UniqueProcess> processes_;
};
