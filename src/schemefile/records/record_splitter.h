// Splits the bytes of a scheme file into records. Knows nothing of Windows.
//
// A file is the signature and its terminator, then records back to back, each of three terminated texts.
// There are no line breaks, no lengths, no count and no trailer.
#pragma once

#include <string>
#include <string_view>

#include "schemefile/records/record_list.h"

// The signature text with its terminator: the first 28 bytes of every scheme file.
inline constexpr std::string_view kSignature = "Kelvanstead Scheme Manager!\xAC";

// Whether `file` begins with the signature, byte for byte. False when it is shorter.
bool HasSignature(std::string_view file);

// The complete records behind the signature of `file` (which must have it), in the file's own bytes: move it
// in, and nothing is copied. An incomplete tail is dropped.
// The search for the first record's first terminator starts one byte into the record, so a first record with
// an empty Key1 is joined with the field behind it; kept for files of earlier versions.
RecordList SplitRecords(std::string file);
