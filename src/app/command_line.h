#pragma once

#include <string>

// The full path of the file that a command line names behind the program (CommandLineToArgvW,
// GetFullPathNameW); a relative one counts from the working folder. "" where there is none.
std::wstring FileToOpen(const wchar_t* commandLine);
