// The shell's setting for the character that helps the users of this machine: a path of its file.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "base/write_result.h"

// The helpers that can be chosen. An index into this list stands for one of them.
inline constexpr std::array kHelperNames = {"Peedy", "Merlin", "Robby", "Genie"};

// The path that the setting holds, up to 259 characters of any type (RegQueryValueExA). "" when there is
// none.
std::string ReadHelperPath();

// The helper that a path names: case matters, the folder and the extension do not. Nothing when it is none of
// the list.
std::optional<std::size_t> HelperOfPath(const std::string& path);

// The path of a helper's file below the Windows folder.
std::string HelperPath(const std::string& windowsFolder, std::size_t helper);

// Stores the helper's path (RegOpenKeyExA, RegSetValueExA); the setting's key is not created. On failure the
// setting stays as it was.
[[nodiscard]] WriteResult WriteHelper(const std::string& windowsFolder, std::size_t helper);
