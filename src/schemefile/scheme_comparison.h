// The schemes of a machine against those of a scheme file, found by their names as the registry compares
// them.
#pragma once

#include <string>
#include <vector>

#include "model/scheme_properties.h"
#include "schemefile/compare.h"

enum class SchemeState { kNew, kChanged, kSame, kOnlyHere };

struct SchemeComparison {
  std::string Name;  // the file's; of a scheme that is only here, that of the registry
  SchemeState State;
  std::vector<Difference> Differences;  // of a changed scheme
};

// First those of the file in its order, then those that are only here in theirs. Of several schemes of one
// name in the file the last counts, as in an import.
[[nodiscard]] std::vector<SchemeComparison> CompareSchemes(const std::vector<SchemeProperties>& here,
                                                           const std::vector<SchemeProperties>& inFile);
