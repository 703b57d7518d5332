#include "processes.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>

#include "base/unique_handle.h"
#include "stopwatch.h"

namespace {

constexpr DWORD kPatience = 30000;
constexpr DWORD kSettling = 200;

struct Process {
  UniqueProcess Handle;
  DWORD Id = 0;
};

// The program shares this one's console: the host of a console of its own would run beside what is measured.
// What it prints goes nowhere.
Process Start(std::string commandLine) {
  SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
  const UniqueFile nowhere(CreateFileA("NUL", GENERIC_READ | GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0,
                                       nullptr));
  STARTUPINFOA startup = {};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = startup.hStdOutput = startup.hStdError = nowhere.Get();
  PROCESS_INFORMATION started = {};
  if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                      &started)) {
    return {};
  }
  CloseHandle(started.hThread);
  return {UniqueProcess(started.hProcess), started.dwProcessId};
}

struct Search {
  DWORD Process;
  HWND Found;
};

BOOL CALLBACK FindVisible(HWND window, LPARAM parameter) {
  auto* search = reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search->Process || !IsWindowVisible(window)) return TRUE;
  search->Found = window;
  return FALSE;
}

HWND VisibleWindow(DWORD process) {
  Search search{process, nullptr};
  EnumWindows(&FindVisible, reinterpret_cast<LPARAM>(&search));
  return search.Found;
}

}  // namespace

std::string ThisProgram(const std::string& arguments) {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, sizeof(path));
  return std::string("\"") + path + "\" " + arguments;
}

DWORD RunProcess(const std::string& commandLine) {
  DWORD exitCode = STILL_ACTIVE;
  const Process process = Start(commandLine);
  if (!process.Handle) return exitCode;
  WaitForSingleObject(process.Handle.Get(), INFINITE);
  GetExitCodeProcess(process.Handle.Get(), &exitCode);
  return exitCode;
}

double TimeProcess(const std::string& commandLine) {
  Sleep(kSettling);
  const Stopwatch watch;
  return RunProcess(commandLine) == 0 ? watch.Elapsed() : -1;
}

double PeakMemory(const std::string& commandLine) {
  const Process process = Start(commandLine);
  if (!process.Handle) return -1;
  PROCESS_MEMORY_COUNTERS counters = {};
  SIZE_T peak = 0;
  while (WaitForSingleObject(process.Handle.Get(), 1) == WAIT_TIMEOUT) {
    if (K32GetProcessMemoryInfo(process.Handle.Get(), &counters, sizeof(counters)))
      peak = std::max(peak, counters.PeakWorkingSetSize);
  }
  return static_cast<double>(peak);
}

double TimeToWindow(const std::string& commandLine) {
  const Stopwatch watch;
  const Process process = Start(commandLine);
  if (!process.Handle) return -1;
  HWND window = VisibleWindow(process.Id);
  while (!window && watch.Elapsed() < kPatience &&
         WaitForSingleObject(process.Handle.Get(), 1) == WAIT_TIMEOUT)
    window = VisibleWindow(process.Id);
  const double elapsed = watch.Elapsed();
  if (window) PostMessageA(window, WM_CLOSE, 0, 0);
  if (WaitForSingleObject(process.Handle.Get(), kPatience) != WAIT_OBJECT_0) {
    TerminateProcess(process.Handle.Get(), 1);
  }
  return window ? elapsed : -1;
}
