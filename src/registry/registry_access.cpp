#include "registry/registry_access.h"

#include <algorithm>

namespace {

constexpr DWORD kBufferSize = kMaxTextLength + 1;

// Stored texts need not end in a NUL.
std::string TextOf(const char* data, DWORD size) { return {data, std::find(data, data + size, '\0')}; }

LSTATUS ReadValueAt(HKEY key, DWORD index, ListedValue& value) {
  char name[kBufferSize];
  char data[kBufferSize];
  DWORD nameLength = kBufferSize;
  DWORD size = kBufferSize;
  const LSTATUS result = RegEnumValueA(key, index, name, &nameLength, nullptr, &value.Type,
                                       reinterpret_cast<BYTE*>(data), &size);
  if (result != ERROR_SUCCESS) return result;
  value.Name.assign(name, nameLength);
  value.Data.assign(data, size);
  return ERROR_SUCCESS;
}

}  // namespace

LSTATUS OpenKey(HKEY root, const std::string& path, REGSAM access, UniqueKey& key) {
  HKEY opened = nullptr;
  const LSTATUS result = RegOpenKeyExA(root, path.c_str(), 0, access, &opened);
  key.Reset(result == ERROR_SUCCESS ? opened : nullptr);
  return result;
}

UniqueKey OpenKey(HKEY root, const std::string& path, REGSAM access) {
  UniqueKey key;
  (void)OpenKey(root, path, access, key);
  return key;
}

LSTATUS CreateKey(HKEY root, const std::string& path, REGSAM access, UniqueKey& key) {
  HKEY created = nullptr;
  const LSTATUS result = RegCreateKeyExA(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                         nullptr, &created, nullptr);
  key.Reset(result == ERROR_SUCCESS ? created : nullptr);
  return result;
}

std::optional<std::string> ReadText(HKEY key, const std::string& name) {
  char data[kBufferSize];
  DWORD size = kBufferSize;
  const LSTATUS result =
      RegQueryValueExA(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(data), &size);
  if (result != ERROR_SUCCESS) return std::nullopt;
  std::string text = TextOf(data, size);
  if (text.size() > kMaxTextLength) return std::nullopt;
  return text;
}

std::string ReadText(HKEY root, const std::string& path, const std::string& name) {
  const UniqueKey key = OpenKey(root, path, KEY_READ);
  return key ? ReadText(key.Get(), name).value_or("") : "";
}

LSTATUS WriteText(HKEY key, const std::string& name, const std::string& text) {
  return RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                        static_cast<DWORD>(text.size() + 1));
}

LSTATUS ForEachValue(HKEY key, const std::function<bool(const ListedValue& value)>& visit) {
  ListedValue value;
  for (DWORD i = 0;; ++i) {
    const LSTATUS result = ReadValueAt(key, i, value);
    if (result != ERROR_SUCCESS || !visit(value)) return result;
  }
}

LSTATUS ForEachShortValue(HKEY key, const std::function<void(const ListedValue& value)>& visit) {
  ListedValue value;
  for (DWORD i = 0;; ++i) {
    const LSTATUS result = ReadValueAt(key, i, value);
    if (result == ERROR_MORE_DATA) continue;
    if (result != ERROR_SUCCESS) return result;
    visit(value);
  }
}

LSTATUS ForEachSubkey(HKEY key, const std::function<void(const std::string& name)>& visit) {
  char name[kBufferSize];
  for (DWORD i = 0;; ++i) {
    DWORD length = kBufferSize;
    const LSTATUS result = RegEnumKeyExA(key, i, name, &length, nullptr, nullptr, nullptr, nullptr);
    if (result != ERROR_SUCCESS) return result;
    visit(std::string(name, length));
  }
}
