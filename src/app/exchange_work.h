// What the commands on scheme files are made of: pieces of work, each behind a progress window of its own,
// and what the user is told of it. What takes more than memory holds throws, unless a function says
// otherwise.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "controls/file_dialog.h"
#include "schemefile/exchange.h"
#include "schemefile/scheme_file.h"

// What a file dialog for scheme files asks for; `flags` are OFN_ flags.
FileRequest SchemeFileRequest(HWND owner, DWORD flags);

enum class Ending { kDone, kFolderMissing, kExportProblem, kReadProblem, kFileLoadProblem, kImportProblem };

// How a command ends that read its file so.
Ending EndingOf(FileResult result);

// Tells the user; nothing of kDone.
void ShowEnding(HWND owner, Ending ending);

// Exports every scheme of the machine into the file. Leaves what was there alone unless kDone; the other
// endings are the folder's and the export's. Where the Schemes key is missing, ends the program.
[[nodiscard]] Ending SaveMachine(HWND owner, const ChosenFile& chosen);

// ReadMachine behind a window of that text. Where the Schemes key is missing, ends the program.
CatalogueResult ReadMachineOrEnd(HWND owner, SchemeHive& hive, const char* text);

// Fills the hive from its records (ImportSchemes).
void ReadRecords(HWND owner, SchemeHive& hive);

// Writes the hive to the registry (ApplyImport), warns where the key that guards the config list is missing,
// and calls `reload` in any case, as from here on something may have changed. Whatever throws on the way ends
// in kImportProblem; else kDone, with `problems` telling what the registry refused.
[[nodiscard]] Ending WriteAndReload(HWND owner, const SchemeHive& hive, const std::function<void()>& reload,
                                    ImportProblems& problems);
