// The commands "Save to disk" and "Load from disk", with their file dialogs, progress windows and messages.
// From the choice of a file to the end of the command `owner` is disabled, and keys and clicks made meanwhile
// are dropped.
#pragma once

#include <windows.h>

#include <functional>

// Asks for a file name and exports every scheme of the machine into it. Says so, and leaves the file that was
// there alone, when the folder does not exist, when the machine could not be read whole, or when the file
// cannot be written. Where the Schemes key is missing, ends the program.
void SaveToDisk(HWND owner);

// Asks for a file, imports its schemes and, once the registry may have changed, calls `reload`, which may end
// the program. Says so when the file cannot be read or is no scheme file, with nothing changed, and when
// memory ended after the first change ("Import Problem"). What the registry refuses to take is not told: the
// list shows it.
void LoadFromDisk(HWND owner, const std::function<void()>& reload);
