// Export and import of many schemes by the program and by ksm, beside `reg` and a bare walk over the
// registry.
#pragma once

#include <string>

#include "report.h"

// Prints how long they take. Each is a process of its own; `ksm` is the command line of
// that program.
void ReportExchange(Report& report, const std::string& ksm);

// What the program's processes do, started with the command and a path: the work of "Save to disk" and "Load
// from disk" behind the choice of the file, with its progress windows. Their exit code is 0 when it is done.
inline constexpr char kExportCommand[] = "export";
inline constexpr char kImportCommand[] = "import";
int ExportOnce(const char* path);
int ImportOnce(const char* path);
