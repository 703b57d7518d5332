// What Create and Edit cost on a machine of many schemes.
#pragma once

#include "report.h"

// Prints how long they take, without their windows, beside a bare walk over what each has to read and write.
void ReportChanges(Report& report);
