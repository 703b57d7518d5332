// A scheme's five property sections as records of a scheme file. Knows nothing of Windows.
//
// Writing and reading walk the same tables in the same order, so that every look-up of a file in its original
// order finds its record at the read cursor.
#pragma once

#include "model/scheme_properties.h"
#include "schemefile/record_store.h"

// Appends the records of FolderDisplay, WebLinks, TabSelection, ToolBars and Defaults, in that order. Tab
// flags are written as 0 or 1, everything else as it stands. Records beyond the end of a list are not
// written, even if its count states more of them.
void WritePropertyRecords(RecordStore& store, const SchemeProperties& scheme);

// Reads the five sections of `scheme.Name` into `scheme`. A missing record yields an empty text or 0. A count
// beyond kMaxRecords is damage: kMaxRecords records are read and `scheme` keeps the count; the answer is then
// false, else true.
bool ReadPropertyRecords(RecordStore& store, SchemeProperties& scheme);
