// The registry keys of the shell and of this program, and how the path of a scheme is built. Knows nothing of
// Windows.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

// Below HKEY_LOCAL_MACHINE; the first also below HKEY_CURRENT_USER, for the user's own choice of scheme.
inline constexpr char kProductKey[] = "Software\\Tessaly\\Kelvanstead";
inline constexpr char kSchemesKey[] = "Software\\Tessaly\\Kelvanstead\\Schemes";
inline constexpr char kProtectedSchemesKey[] = "Software\\Tessaly\\Kelvanstead\\Protected Schemes";
inline constexpr char kSettingsKey[] = "Software\\Tessaly\\Kelvanstead\\Settings";

// The names of the allocation keys below the product's key; they are also what the allocation dialog shows.
inline constexpr char kClassSchemes[] = "Class Schemes";
inline constexpr char kUserSchemes[] = "User Schemes";
inline constexpr char kUserGroupSchemes[] = "User Group Schemes";

// The longest text of a value, in characters; a longer one ends the walk over the schemes.
inline constexpr std::size_t kMaxTextLength = 259;

// The path of the last part below the others, with a backslash between each two.
inline std::string KeyPath(std::initializer_list<std::string_view> parts) {
  std::size_t size = 0;
  for (const std::string_view part : parts)
    size += part.size() + 1;
  std::string path;
  path.reserve(size);  // every key that a scheme has goes through here
  for (const std::string_view part : parts) {
    if (!path.empty()) path += '\\';
    path += part;
  }
  return path;
}

inline std::string AllocationKeyPath(std::string_view kind) { return KeyPath({kProductKey, kind}); }
inline std::string SchemeKeyPath(std::string_view scheme) { return KeyPath({kSchemesKey, scheme}); }
