#include "cli/text.h"

#include <windows.h>

#include "base/names.h"

namespace {

std::string Narrow(UINT codePage, DWORD flags, const std::wstring& text, BOOL* lossy) {
  const int size = static_cast<int>(text.size());
  std::string narrow(text.size() * 4, '\0');
  narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(
      codePage, flags, text.data(), size, narrow.data(), static_cast<int>(narrow.size()), nullptr, lossy)));
  return narrow;
}

}  // namespace

std::optional<std::string> ToAnsi(const std::wstring& text) {
  if (text.empty()) return std::string();
  BOOL lossy = FALSE;
  std::string ansi = Narrow(CP_ACP, WC_NO_BEST_FIT_CHARS, text, &lossy);
  // What the code page cannot hold may also come back as another character.
  if (lossy || ansi.empty() || Widen(ansi) != text) return std::nullopt;
  return ansi;
}

std::string ToUtf8(const std::wstring& text) { return Narrow(CP_UTF8, 0, text, nullptr); }
std::string ToUtf8(const std::string& ansi) { return ToUtf8(Widen(ansi)); }

std::wstring WidenUtf8(std::string_view utf8) {
  std::wstring wide(utf8.size(), L'\0');
  wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
      CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

std::string OneLine(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ') c = '?';
  }
  return text;
}
