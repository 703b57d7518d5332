// From arguments to a command.
#pragma once

#include <string>
#include <vector>

#include "cli/options.h"

// Runs the command that the arguments (without the program's name) ask for. Help and the version go to the
// results, what is wrong with the arguments to the problems.
[[nodiscard]] ExitCode RunCommandLine(const std::vector<std::string>& arguments, Output& output);
