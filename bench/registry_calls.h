// How many registry calls the program makes.
#pragma once

#include "report.h"

// Prints them for one scheme and for a start of the program. Fails where this program imports a registry
// function that goes uncounted. Leaves this process in another working folder.
void ReportRegistryCalls(Report& report);
