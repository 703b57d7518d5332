// How far a reading got. Knows nothing of Windows.
#pragma once

#include <algorithm>

enum class Outcome {
  kComplete,    // everything was there
  kIncomplete,  // values are missing or damaged; their fields are empty or 0
  kFailed,      // the system refused to read something that may well be there
};

// The worse of the two, so that results can be gathered.
constexpr Outcome& operator|=(Outcome& left, Outcome right) { return left = std::max(left, right); }
