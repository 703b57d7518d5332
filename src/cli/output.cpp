#include "cli/output.h"

#include <algorithm>
#include <cstddef>

#include "cli/text.h"

namespace {

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

bool WriteToConsole(HANDLE console, const std::wstring& text) {
  constexpr std::size_t kMaxWritten = 8192;  // what a console takes at once
  for (std::size_t start = 0; start < text.size(); start += kMaxWritten) {
    const auto size = static_cast<DWORD>(std::min(kMaxWritten, text.size() - start));
    DWORD written = 0;
    if (!WriteConsoleW(console, text.data() + start, size, &written, nullptr)) return false;
  }
  return true;
}

bool WriteToFile(HANDLE file, const std::string& text) {
  for (std::size_t start = 0; start < text.size();) {
    DWORD written = 0;
    if (!WriteFile(file, text.data() + start, static_cast<DWORD>(text.size() - start), &written, nullptr) ||
        written == 0) {
      return false;
    }
    start += written;
  }
  return true;
}

bool Write(HANDLE handle, const std::string& utf8) {
  if (utf8.empty()) return true;
  return IsConsole(handle) ? WriteToConsole(handle, WidenUtf8(utf8)) : WriteToFile(handle, utf8);
}

std::vector<std::size_t> ColumnWidths(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], row[i].size());
  }
  return widths;
}

}  // namespace

Output::Output() : results_(GetStdHandle(STD_OUTPUT_HANDLE)), problems_(GetStdHandle(STD_ERROR_HANDLE)) {}

void Output::Print(const std::string& line) { PrintUtf8(ToUtf8(OneLine(line)) + "\n"); }

void Output::PrintUtf8(const std::string& lines) {
  for (const char c : lines) {
    if (c == '\n') pending_ += '\r';
    pending_ += c;
  }
}

void Output::PrintTable(const std::vector<std::vector<std::string>>& rows) {
  const std::vector<std::size_t> widths = ColumnWidths(rows);
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      line.append(widths[i] + 2 - row[i].size(), ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    Print(line);
  }
}

void Output::Problem(const std::string& concern, const std::string& text) {
  // A console or a log shows problems behind the results that came before them.
  (void)Flush();
  const std::string subject = concern.empty() ? "\"\"" : concern;
  (void)Write(problems_, ToUtf8(OneLine(subject + ": " + text)) + "\r\n");
}

bool Output::Flush() {
  const std::string text = std::move(pending_);
  pending_.clear();
  isWhole_ &= Write(results_, text);
  return isWhole_;
}
