// The processes of the program with the windows, known by the name of their executable file.
#pragma once

#include <windows.h>

#include <vector>

// The ids of the processes of the program that run (CreateToolhelp32Snapshot), this one included if it is
// one. Those that cannot be opened do not count; without a snapshot nothing does.
std::vector<DWORD> ProgramProcesses();
