// Schemes as records of a scheme file: the number of schemes, then of each scheme its name and its five
// property sections. Knows nothing of Windows.
//
// Writing and reading walk the same tables in the same order, so that every look-up of a file in its original
// order finds its record at the read cursor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "model/scheme_properties.h"
#include "schemefile/records/record_store.h"

// Appends the records of FolderDisplay, WebLinks, TabSelection, ToolBars and Defaults, in that order. Tab
// flags are written as 0 or 1, everything else as it stands.
void WritePropertyRecords(RecordStore& store, const SchemeProperties& scheme);

// Reads the five sections of `scheme.Name` into `scheme`. A missing record yields an empty text or 0. A
// stated count that is negative is damage and stands for no items, one beyond kMaxItems for those of the
// first kMaxItems that are there.
void ReadPropertyRecords(RecordStore& store, SchemeProperties& scheme);

// Appends the record "Scheme Count".
void WriteSchemeCount(RecordStore& store, std::size_t count);
// The same record: at least 0, and at most the number of the store's records.
std::int32_t ReadSchemeCount(RecordStore& store);

// Appends the records of every scheme in turn: its name, under its number counted from 0, and its properties.
// Calls `afterEach` after each.
void WriteSchemes(RecordStore& store, const std::vector<SchemeProperties>& schemes,
                  const std::function<void()>& afterEach);

// A file takes about one look-up a record to read. One that is so damaged that it has taken this many more is
// not read to its end: a few bytes can state a thousand records that do not exist.
inline constexpr std::uint32_t kMaxMissingRecords = 1'000'000;

// Reads `count` schemes, nameless and doubtful ones included, and calls `afterEach` after each. Ends early
// when the look-ups since the last ResetReadCursor exceed the number of records by more than
// kMaxMissingRecords.
std::vector<SchemeProperties> ReadSchemes(RecordStore& store, std::int32_t count,
                                          const std::function<void()>& afterEach);
