// What an import of a scheme file would not read whole, found without importing it. Knows nothing of Windows.
//
// The check looks up what an import looks up, in the same order and in a store of the same kind. Where it
// finds nothing, the import reads every scheme that the file states, with every value as it stands, and
// leaves no record over.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "schemefile/records/record_list.h"

enum class FindingKind {
  kMissing,  // a record that the import asks for
  kDoubled,  // a record whose keys another has, too
  kStray,    // a record that the import does not ask for
  kNumber,   // a number that is none, or does not fit into 32 bits
  kCount,    // a count that does not fit what is there
  kText,     // a text that would be cut
  kName,     // a name that no scheme can have, or that an earlier one has
  kTornEnd,  // bytes behind the last record
};

struct Finding {
  FindingKind Kind;
  std::string Scheme;  // "" for what concerns no scheme in particular
  std::string Record;  // the two keys, "Staff - Tabs, Page2"; shortened where they are long
  std::size_t Offset;  // of the record's first byte in the file; of a missing one, where it was looked for
  std::string Text;    // what is wrong, to be read behind the record
};

// The check ends with this many findings.
inline constexpr std::size_t kMaxFindings = 1000;

struct CheckResult {
  std::size_t Schemes = 0;        // that the file states and that have a name
  std::vector<Finding> Findings;  // in the order of their bytes

  bool IsWhole() const { return Findings.empty(); }
};

// `records` as SplitRecords made them. Takes time in proportion to the number of records, and the memory of
// their places and one index over them.
[[nodiscard]] CheckResult CheckRecords(RecordList records);
