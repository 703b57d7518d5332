// Other programs, timed from outside.
#pragma once

#include <string>

// Milliseconds from starting the program to its end. Negative when it cannot be started or answers failure.
double TimeProcess(const std::string& commandLine);

// Milliseconds from starting the program until its first window is on the screen; the window is then closed
// and the program's end waited for. Negative when it cannot be started or shows nothing within half a minute.
double TimeToWindow(const std::string& commandLine);
