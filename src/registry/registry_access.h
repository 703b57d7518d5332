// Direct registry calls in the shapes that the program needs beside RegistryKey: one text, and a walk.
//
// Reading uses buffers of 260 bytes and takes a value's data whatever its type. A single text of more than
// 259 characters is not read; a walk hands out up to 260 bytes. Calls return the system's error codes where
// it matters why they failed.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "base/unique_handle.h"
#include "registry/registry_paths.h"

// Whether an error says that a key or a value is not there, and not that it could not be read.
constexpr bool IsMissing(LSTATUS error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// RegOpenKeyExA. Returns its error code, with `key` empty unless it is 0.
[[nodiscard]] LSTATUS OpenKey(HKEY root, const std::string& path, REGSAM access, UniqueKey& key);
// The same for callers to whom all errors are one: empty when the key cannot be opened so.
UniqueKey OpenKey(HKEY root, const std::string& path, REGSAM access);
// RegCreateKeyExA: opens the key, made with every missing parent. Returns its error code, with `key` empty
// unless it is 0.
[[nodiscard]] LSTATUS CreateKey(HKEY root, const std::string& path, REGSAM access, UniqueKey& key);

// The text of one value, up to its first NUL (RegQueryValueExA). Nothing when the value is missing, too long
// or refused.
std::optional<std::string> ReadText(HKEY key, const std::string& name);
// Opens the key for reading and reads one text. "" when there is no key or ReadText returns nothing.
std::string ReadText(HKEY root, const std::string& path, const std::string& name);

// Writes a REG_SZ with its NUL (RegSetValueExA). Returns the error code; a failure changes nothing.
[[nodiscard]] LSTATUS WriteText(HKEY key, const std::string& name, const std::string& text);

// A value as a walk finds it.
struct ListedValue {
  std::string Name;
  DWORD Type = REG_NONE;
  std::string Data;  // at most 260 bytes; texts in the code page, with the NULs that are stored

  // The data up to its first NUL, whatever its type.
  std::string Text() const { return Data.substr(0, Data.find('\0')); }
};

// Calls `visit` with every value, in the registry's order, until it returns false (RegEnumValueA). Stops at
// the first error of any kind and returns it: ERROR_NO_MORE_ITEMS at the end, ERROR_MORE_DATA at a name of
// more than 259 characters or data of more than 260 bytes; 0 when `visit` ended the walk. `visit` must not
// change the key.
LSTATUS ForEachValue(HKEY key, const std::function<bool(const ListedValue& value)>& visit);
// The same, but passes over what is too long.
LSTATUS ForEachShortValue(HKEY key, const std::function<void(const ListedValue& value)>& visit);
// Calls `visit` with the name of every subkey (RegEnumKeyExA). Stops at the first error and returns it.
LSTATUS ForEachSubkey(HKEY key, const std::function<void(const std::string& name)>& visit);
