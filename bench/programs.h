// How soon the program shows its window, and how large the programs are.
#pragma once

#include <string>

#include "report.h"

// Prints how long the program takes to its window with few and with many schemes, beside `notepad`. `manager`
// is its command line.
void ReportStarts(Report& report, const std::string& manager);

// Prints the size of the files: of the program and of ksm, in 32 bits and in 64.
void ReportSizes(Report& report, const char* const (&paths)[4]);
