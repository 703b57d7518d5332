// The command that opens a scheme file: the dialog "Load Schemes" with its file, and what it was told to do.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// Reads and checks the file, asks which of its schemes to load, keeps a copy of those that are there, loads
// them and calls `reload` once the registry may have changed. Says so, with nothing changed, when the file
// cannot be read, is no scheme file or has a path outside the code page, and when the copy cannot be written;
// then it asks again. Says what could not be loaded. Where the Schemes key is missing, ends the program.
// While it works, `owner` is disabled, and keys and clicks are dropped.
void OpenSchemeFile(HWND owner, const std::wstring& path, const std::function<void()>& reload);
