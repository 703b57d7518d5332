// One `ksm` at a time changes this machine: a named mutex for all sessions and users.
#pragma once

#include "base/unique_handle.h"

class WriteLock {
 public:
  // Waits for another one's end, `seconds` at most (CreateMutexExW, WaitForSingleObject). One that crashed
  // counts as ended.
  explicit WriteLock(unsigned seconds);
  ~WriteLock();
  WriteLock(const WriteLock&) = delete;
  WriteLock& operator=(const WriteLock&) = delete;

  bool IsHeld() const { return isHeld_; }

 private:
  UniqueFile mutex_;
  bool isHeld_ = false;
};
