#include "registry/registry_access.h"

#include <algorithm>

namespace {

constexpr DWORD kBufferSize = kMaxTextLength + 1;

// Stored texts need not end in a NUL.
std::string TextOf(const char* data, DWORD size) { return {data, std::find(data, data + size, '\0')}; }

}  // namespace

UniqueKey OpenKey(HKEY root, const std::string& path, REGSAM access) {
  UniqueKey key;
  if (RegOpenKeyExA(root, path.c_str(), 0, access, key.Put()) != ERROR_SUCCESS) return {};
  return key;
}

std::optional<std::string> ReadText(HKEY key, const std::string& name) {
  char data[kBufferSize];
  DWORD size = kBufferSize;
  const LSTATUS result =
      RegQueryValueExA(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(data), &size);
  if (result != ERROR_SUCCESS) return std::nullopt;
  return TextOf(data, size);
}

std::string ReadText(HKEY root, const std::string& path, const std::string& name) {
  const UniqueKey key = OpenKey(root, path, KEY_READ);
  return key ? ReadText(key.Get(), name).value_or("") : "";
}

LSTATUS ReadValueAt(HKEY key, DWORD index, std::string& name, std::string& text) {
  char nameBuffer[kBufferSize];
  char data[kBufferSize];
  DWORD nameLength = kBufferSize;
  DWORD size = kBufferSize;
  const LSTATUS result = RegEnumValueA(key, index, nameBuffer, &nameLength, nullptr, nullptr,
                                       reinterpret_cast<BYTE*>(data), &size);
  if (result == ERROR_SUCCESS) {
    name.assign(nameBuffer, nameLength);
    text = TextOf(data, size);
  }
  return result;
}

void ForEachValue(HKEY key,
                  const std::function<void(const std::string& name, const std::string& text)>& visit) {
  std::string name;
  std::string text;
  for (DWORD i = 0; ReadValueAt(key, i, name, text) == ERROR_SUCCESS; ++i)
    visit(name, text);
}

void ForEachSubkey(HKEY key, const std::function<void(const std::string& name)>& visit) {
  char name[kBufferSize];
  for (DWORD i = 0;; ++i) {
    DWORD length = kBufferSize;
    if (RegEnumKeyExA(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return;
    visit(std::string(name, length));
  }
}
