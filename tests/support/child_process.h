// Runs what ends the process in a process of its own.
#pragma once

#include <windows.h>

#include <string>

struct ChildResult {
  DWORD ExitCode = 0;
  std::string Output;  // standard output and standard error
};

// Runs one test of this program, by its full name, which may carry DISABLED_ so that it runs nowhere else,
// and waits for its end. What ExitProcess ends has said only what was flushed.
ChildResult RunTestInChildProcess(const std::string& test);
