// The commands "Save to disk" and "Load from disk", with their file dialogs and messages over `owner`.
#pragma once

#include <windows.h>

// Asks for a file name and exports every scheme of the machine into it. Says so when the folder does not
// exist or the file cannot be written.
void SaveToDisk(HWND owner);

// Asks for a file and imports its schemes. False when the user cancelled; otherwise the registry may have
// changed.
bool LoadFromDisk(HWND owner);
