// Names of registry keys and values, compared as the registry compares them: character by character, without
// regard to case, whatever the user's language (CompareStringOrdinal). Texts are in the ANSI code page.
#pragma once

#include <string>

// MultiByteToWideChar. The text in UTF-16, "" for "".
std::wstring Widen(const std::string& text);

// Below 0, 0 or above 0, as `left` comes before, is the same as, or comes behind `right`.
int CompareNames(const std::string& left, const std::string& right);

inline bool IsSameName(const std::string& left, const std::string& right) {
  return CompareNames(left, right) == 0;
}

// The order of a set of names.
struct NameLess {
  bool operator()(const std::string& left, const std::string& right) const {
    return CompareNames(left, right) < 0;
  }
};
