// A generated machine: the shell's keys with many schemes, written and read with bare registry calls, which
// is what the program's own speed is compared with.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// A value, or with kKeyOnly a key itself, which stands before its values.
struct RegistryValue {
  std::string Key;  // below HKEY_LOCAL_MACHINE
  std::string Name;
  DWORD Type;
  std::string Data;  // the bytes, with the NUL of a text

  auto operator<=>(const RegistryValue&) const = default;
};
inline constexpr DWORD kKeyOnly = ~DWORD{0};
using RegistryTree = std::vector<RegistryValue>;

// The values of `count` schemes, complete, with two roots and two links each, grouped by key. Every scheme
// has texts of its own.
RegistryTree MakeSchemes(int count);

// The same of one scheme, with the texts and numbers of the `number`-th of them.
RegistryTree MakeScheme(const std::string& name, int number);

// The values of the keys beside the schemes that the program wants in order to start, with `pictures` as the
// folder of its pictures.
RegistryTree MakeShell(const std::string& pictures);

// Creates each key and sets each of its values, and does nothing else.
void WriteTree(const RegistryTree& tree);

// Opens each key below `path`, the key itself included, and enumerates each of its values, and does nothing
// else but keep them. Sorted.
RegistryTree ReadTree(const std::string& path);

// Deletes everything in the key, which stays.
void EmptyKey(const std::string& path);
