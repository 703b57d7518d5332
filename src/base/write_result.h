// What became of a write to the registry.
#pragma once

#include <windows.h>

enum class WriteResult { kDone, kNoRights, kFailed };

// The result that a registry call's code stands for.
inline WriteResult ResultOf(LSTATUS status) {
  if (status == ERROR_SUCCESS) return WriteResult::kDone;
  return status == ERROR_ACCESS_DENIED ? WriteResult::kNoRights : WriteResult::kFailed;
}
