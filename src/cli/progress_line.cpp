#include "cli/progress_line.h"

#include "base/names.h"

namespace {

constexpr ULONGLONG kPatience = 1000;
constexpr ULONGLONG kInterval = 100;

HANDLE ConsoleOfProblems() {
  const HANDLE handle = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) ? handle : nullptr;
}

}  // namespace

ProgressLine::ProgressLine(const char* work, bool quiet)
    : work_(work), console_(quiet ? nullptr : ConsoleOfProblems()), due_(GetTickCount64() + kPatience) {}

ProgressLine::~ProgressLine() {
  if (shown_ > 0) Write(L"\r" + std::wstring(shown_, L' ') + L"\r");
}

Progress ProgressLine::Callback() {
  if (!console_) return {};
  return [this](int done, int steps) { Show(done, steps); };
}

void ProgressLine::Show(int done, int steps) {
  const ULONGLONG now = GetTickCount64();
  if (now < due_) return;
  due_ = now + kInterval;
  std::wstring line = Widen(work_ + std::string(" ") + std::to_string(done) + " of " + std::to_string(steps));
  const std::size_t length = line.size();
  if (length < shown_) line.append(shown_ - length, L' ');
  shown_ = length;
  Write(L"\r" + line);
}

void ProgressLine::Write(const std::wstring& text) {
  DWORD written = 0;
  WriteConsoleW(console_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}
