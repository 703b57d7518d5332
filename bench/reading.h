// Splitting scheme files and reading their records.
#pragma once

#include <cstddef>
#include <string>

#include "report.h"

// A scheme file of so many schemes, with two roots and two links each, in kFolder.
struct RecordFile {
  RecordFile(int schemes, bool shuffled);

  int Schemes;
  std::string Path;
  std::size_t Records;
};

// Prints how long it takes for files in order and shuffled, small and large. Each file is read by a process
// of its own, as a user loads one: in a process that has read it before, a small file finds its memory made
// already.
void ReportReading(Report& report);

// What that process does, started with kReadCommand, the path and the number of schemes. Its exit code is the
// time in microseconds; 0 when the schemes read are not those that were written.
inline constexpr char kReadCommand[] = "read";
int ReadOnce(const char* path, int schemes);
