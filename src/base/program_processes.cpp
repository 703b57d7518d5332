#include "base/program_processes.h"

#include <tlhelp32.h>

#include <algorithm>
#include <iterator>

#include "base/unique_handle.h"

namespace {

// The executable names under which snapshots of the various Windows versions list the program.
constexpr const char* kProcessNames[] = {
    "Kelvanstead Scheme Manager",
    "Kelvanstead Scheme Manager.",
    "Kelvanstead Scheme Manager.exe",
    "C:\\Program Files\\Tessaly\\Kelvanstead Scheme Manager\\Kelvanstead Scheme Manager.exe",
};

bool IsProgram(const PROCESSENTRY32& process) {
  const UniqueProcess opened(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process.th32ProcessID));
  return opened &&
         std::any_of(std::begin(kProcessNames), std::end(kProcessNames),
                     [&process](const char* name) { return lstrcmpiA(process.szExeFile, name) == 0; });
}

}  // namespace

std::vector<DWORD> ProgramProcesses() {
  std::vector<DWORD> ids;
  const UniqueSnapshot snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snapshot) return ids;
  PROCESSENTRY32 process{};
  process.dwSize = sizeof(process);
  for (BOOL more = Process32First(snapshot.Get(), &process); more;
       more = Process32Next(snapshot.Get(), &process)) {
    if (IsProgram(process)) ids.push_back(process.th32ProcessID);
  }
  return ids;
}
