// The names of schemes as a user chooses among them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// Sorts as the user's language does, ignoring case (lstrcmpiA).
void SortNames(std::vector<std::string>& names);

// Where a name stands in the list, as the registry compares names. Nothing where it does not.
std::optional<std::size_t> FindName(const std::vector<std::string>& names, const std::string& name);
