// Where Windows is installed.
#pragma once

#include <windows.h>

#include <string>

// As <shlobj.h> has it, which brings the headers of windows and controls.
using GetFolderPathFunction = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, LPSTR);

// SHGetFolderPathA, loaded at run time: the first call of the process returns that of Shell32.dll if it has
// one, every other that of SHFolder.dll, which older systems have instead. Null when there is none. Valid
// until the next call, which unloads the library of this one.
GetFolderPathFunction GetFolderPathProc();

// The Windows folder, without a backslash at its end (CSIDL_WINDOWS). "C:\Windows" where the function above
// fails, "" where there is none.
std::string WindowsFolder();
