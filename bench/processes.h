// Other programs, timed from outside.
#pragma once

#include <string>

// The command line that starts this program once more.
std::string ThisProgram(const std::string& arguments);

// Runs the program to its end. Returns its exit code, or STILL_ACTIVE when it cannot be started.
unsigned long RunProcess(const std::string& commandLine);

// Milliseconds from starting the program to its end, once the system has cleared up after the one before.
// Negative when it cannot be started or returns failure.
double TimeProcess(const std::string& commandLine);

// The most memory in bytes that the program has at any time until its end (PeakWorkingSetSize), the system's
// libraries included. Negative when it cannot be started.
double PeakMemory(const std::string& commandLine);

// Milliseconds from starting the program until its first window is on the screen; the window is then closed
// and the program's end waited for. Negative when it cannot be started or shows nothing within half a minute.
double TimeToWindow(const std::string& commandLine);
