#include "base/names.h"

#include <windows.h>

std::wstring Widen(const std::string& text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

int CompareNames(const std::string& left, const std::string& right) {
  const std::wstring wideLeft = Widen(left);
  const std::wstring wideRight = Widen(right);
  return CompareStringOrdinal(wideLeft.data(), static_cast<int>(wideLeft.size()), wideRight.data(),
                              static_cast<int>(wideRight.size()), TRUE) -
         CSTR_EQUAL;
}
