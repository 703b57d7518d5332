// What ksm costs beside its exports and imports (exchange.h).
#pragma once

#include <string>

#include "report.h"

// Prints its start beside that of `reg`, its check of a large file beside the import of it, and its memory.
// `ksm` is its command line.
void ReportCommandLine(Report& report, const std::string& ksm);
