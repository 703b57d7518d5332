#include "app/command_line.h"

#include <windows.h>

#include <shellapi.h>

#include "base/unique_handle.h"

namespace {

using UniqueArguments = UniqueHandle<LPWSTR*, &LocalFree>;

std::wstring FullPath(const wchar_t* path) {
  std::wstring full(GetFullPathNameW(path, 0, nullptr, nullptr), L'\0');
  // Without the NUL, unlike the size that is asked for.
  full.resize(GetFullPathNameW(path, static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

}  // namespace

std::wstring FileToOpen(const wchar_t* commandLine) {
  int count = 0;
  const UniqueArguments arguments(CommandLineToArgvW(commandLine, &count));
  return arguments && count > 1 ? FullPath(arguments.Get()[1]) : std::wstring();
}
