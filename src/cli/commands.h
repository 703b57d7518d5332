// The commands of `ksm`. Each prints its results and problems and returns what the program ends with. None
// shows a window, asks or waits, but for another ksm that is changing this machine.
#pragma once

#include "cli/options.h"

ExitCode ListSchemes(const Options& options, Output& output);
ExitCode ShowScheme(const Options& options, Output& output);
ExitCode DeleteSchemes(const Options& options, Output& output);

ExitCode ExportFile(const Options& options, Output& output);
ExitCode CheckFile(const Options& options, Output& output);
ExitCode DiffFile(const Options& options, Output& output);
ExitCode ImportFile(const Options& options, Output& output);

ExitCode ListAllocations(const Options& options, Output& output);
ExitCode AllocateScheme(const Options& options, Output& output);
ExitCode ExplainScheme(const Options& options, Output& output);

ExitCode ShowOrChooseHelper(const Options& options, Output& output);
