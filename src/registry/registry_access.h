// Direct registry calls in the two shapes that the program needs beside RegistryKey: one text, and a walk.
//
// Both use buffers of 260 bytes and take a value's data whatever its type; what does not fit is not read.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "base/unique_handle.h"

// The longest text that a walk over values gets past.
inline constexpr std::size_t kMaxTextLength = 259;

// RegOpenKeyExA. Empty when the key cannot be opened so.
UniqueKey OpenKey(HKEY root, const std::string& path, REGSAM access);

// The text of one value, up to its first NUL (RegQueryValueExA). Nothing when the value is missing or has
// more than 260 bytes.
std::optional<std::string> ReadText(HKEY key, const std::string& name);
// Opens the key for reading and reads one text. "" when there is no key or ReadText answers nothing.
std::string ReadText(HKEY root, const std::string& path, const std::string& name);

// Name and text of the value at `index` (RegEnumValueA), counted from 0. Answers its result:
// ERROR_NO_MORE_ITEMS at the end, ERROR_MORE_DATA where the name has more than 259 characters or the data
// more than 260 bytes.
LSTATUS ReadValueAt(HKEY key, DWORD index, std::string& name, std::string& text);

// Calls `visit` with name and text of every value, in the registry's order, and stops at the first error of
// any kind: the end, or a value that ReadValueAt cannot read. `visit` must not change the key.
void ForEachValue(HKEY key,
                  const std::function<void(const std::string& name, const std::string& text)>& visit);
// Calls `visit` with the name of every subkey (RegEnumKeyExA), and stops at the first error likewise.
void ForEachSubkey(HKEY key, const std::function<void(const std::string& name)>& visit);
