#pragma once

#include "allocation/allocations.h"

// "class", "user" or "group", as the options of `allocate` are called.
constexpr const char* KindWord(AllocationKind kind) {
  switch (kind) {
    case AllocationKind::kClass:
      return "class";
    case AllocationKind::kUser:
      return "user";
    default:
      return "group";
  }
}
