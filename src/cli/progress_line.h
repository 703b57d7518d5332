// A line that tells somebody at a console how far long work is. There is none in a pipe or a file, where
// `quiet` is set, and for the first second. It is gone when the work is done.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

#include "base/progress.h"

class ProgressLine {
 public:
  // `work` is what the line says is being done: "Reading schemes".
  ProgressLine(const char* work, bool quiet);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  // To be handed to the work; valid as long as this object.
  Progress Callback();

 private:
  void Show(int done, int steps);
  void Write(const std::wstring& text);

  const char* const work_;
  const HANDLE console_;   // null for no line
  ULONGLONG due_;          // when the next picture of the line is
  std::size_t shown_ = 0;  // its length
};
