// The registry keys of the shell and of this program, and how the path of a scheme is built.
#pragma once

#include <string>

// Below HKEY_LOCAL_MACHINE; the first also below HKEY_CURRENT_USER, for the user's own choice of scheme.
inline constexpr char kProductKey[] = "Software\\Tessaly\\Kelvanstead";
inline constexpr char kSchemesKey[] = "Software\\Tessaly\\Kelvanstead\\Schemes";
inline constexpr char kProtectedSchemesKey[] = "Software\\Tessaly\\Kelvanstead\\Protected Schemes";
inline constexpr char kSettingsKey[] = "Software\\Tessaly\\Kelvanstead\\Settings";

// The names of the allocation keys below the product's key; they are also what the allocation dialog shows.
inline constexpr char kClassSchemes[] = "Class Schemes";
inline constexpr char kUserSchemes[] = "User Schemes";
inline constexpr char kUserGroupSchemes[] = "User Group Schemes";

inline std::string AllocationKeyPath(const std::string& kind) {
  return std::string(kProductKey) + "\\" + kind;
}
inline std::string SchemeKeyPath(const std::string& scheme) {
  return std::string(kSchemesKey) + "\\" + scheme;
}
