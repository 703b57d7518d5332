// Where results and problems go. Texts are in the ANSI code page; a console is given UTF-16, a file or a pipe
// UTF-8. Lines end in CR LF.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class Output {
 public:
  Output();

  // Appends one line to the results. They are written by Flush, all at once.
  void Print(const std::string& line);
  void PrintUtf8(const std::string& lines);
  // Lines of columns, each as wide as its widest cell.
  void PrintTable(const std::vector<std::vector<std::string>>& rows);

  // Writes one line to standard error, at once: what it concerns, and what is the matter with it.
  void Problem(const std::string& concern, const std::string& text);

  // Writes the results (WriteConsoleW or WriteFile). False when not all of them so far could be written.
  [[nodiscard]] bool Flush();

 private:
  const HANDLE results_;
  const HANDLE problems_;
  std::string pending_;  // in UTF-8
  bool isWhole_ = true;  // what was written
};
