#include "allocation/dialog/scheme_choice.h"

#include <windows.h>

#include <algorithm>

#include "base/names.h"

void SortNames(std::vector<std::string>& names) {
  std::stable_sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
    return lstrcmpiA(left.c_str(), right.c_str()) < 0;
  });
}

std::optional<std::size_t> FindName(const std::vector<std::string>& names, const std::string& name) {
  const auto found = std::find_if(names.begin(), names.end(),
                                  [&](const std::string& each) { return IsSameName(each, name); });
  if (found == names.end()) return std::nullopt;
  return static_cast<std::size_t>(found - names.begin());
}
