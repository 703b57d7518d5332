#include "support/child_process.h"

#include <stdexcept>

#include "base/unique_handle.h"

ChildResult RunTestInChildProcess(const std::string& test) {
  SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
  UniqueFile readEnd;
  UniqueFile writeEnd;
  if (!CreatePipe(readEnd.Put(), writeEnd.Put(), &inheritable, 0)) throw std::runtime_error("no pipe");
  SetHandleInformation(readEnd.Get(), HANDLE_FLAG_INHERIT, 0);

  char program[MAX_PATH];
  GetModuleFileNameA(nullptr, program, MAX_PATH);
  std::string command =
      std::string("\"") + program + "\" --gtest_also_run_disabled_tests --gtest_filter=" + test;
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = writeEnd.Get();
  PROCESS_INFORMATION started{};
  if (!CreateProcessA(program, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                      &started)) {
    throw std::runtime_error("cannot start " + command);
  }
  const UniqueProcess process(started.hProcess);
  CloseHandle(started.hThread);
  writeEnd.Reset();  // so that reading ends with the child

  ChildResult result;
  char buffer[4096];
  for (DWORD read = 0; ReadFile(readEnd.Get(), buffer, sizeof(buffer), &read, nullptr) && read > 0;) {
    result.Output.append(buffer, read);
  }
  WaitForSingleObject(process.Get(), INFINITE);
  GetExitCodeProcess(process.Get(), &result.ExitCode);
  return result;
}
