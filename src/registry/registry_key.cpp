#include "registry/registry_key.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace {

constexpr DWORD kNameSize = 260;

// The size of text that is read with one call.
constexpr DWORD kOrdinarySize = 512;

std::unique_ptr<char[]> Allocate(std::size_t size) {
  return std::unique_ptr<char[]>(new (std::nothrow) char[size]);
}

LSTATUS ReadSubkeyName(HKEY key, DWORD index, char* name) { return RegEnumKeyA(key, index, name, kNameSize); }

LSTATUS ReadValueName(HKEY key, DWORD index, char* name) {
  DWORD length = kNameSize;
  return RegEnumValueA(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
}

bool IsText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ; }

}  // namespace

RegistryKey::RegistryKey(Mode mode, std::string path, HKEY root)
    : path_(std::move(path)), root_(root), mode_(mode), subkeys_{&ReadSubkeyName}, values_{&ReadValueName} {}

void RegistryKey::SetPath(std::string path) {
  lastError_ = 0;
  Close();
  path_ = std::move(path);
}

void RegistryKey::SetRoot(HKEY root) {
  lastError_ = 0;
  Close();
  root_ = root;
}

void RegistryKey::SetCreate(Mode mode) {
  lastError_ = 0;
  Close();
  mode_ = mode;
}

bool RegistryKey::OpenFor(Wanted wanted) {
  lastError_ = 0;
  if ((wanted.Subkeys && !subkeys_.Enabled) || (wanted.Values && !values_.Enabled)) Close();
  subkeys_.Enabled |= wanted.Subkeys;
  values_.Enabled |= wanted.Values;
  if (key_) return true;

  // KEY_READ holds the rights to enumerate subkeys and values already.
  const LSTATUS result = mode_ == kCreate
                             ? RegCreateKeyExA(root_, path_.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                               KEY_READ | KEY_WRITE, nullptr, key_.Put(), nullptr)
                             : RegOpenKeyExA(root_, path_.c_str(), 0, KEY_READ, key_.Put());
  if (Succeeded(result)) return true;
  key_.Release();  // not a key, whatever the call left there
  subkeys_.Enabled = false;
  values_.Enabled = false;
  return false;
}

void RegistryKey::Close() { key_.Reset(); }

bool RegistryKey::KeyExists(const std::string& path, HKEY root) {
  HKEY key = nullptr;
  if (RegOpenKeyA(root, path.c_str(), &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

bool RegistryKey::SetDword(const char* name, DWORD value) {
  return Set(name, REG_DWORD, &value, sizeof(value));
}

bool RegistryKey::SetBool(const char* name, bool value) { return SetDword(name, value ? 0xFFFFFFFF : 0); }

bool RegistryKey::SetString(const char* name, const char* text) { return SetText(name, REG_SZ, text); }

bool RegistryKey::SetExpandString(const char* name, const char* text) {
  return SetText(name, REG_EXPAND_SZ, text);
}

bool RegistryKey::HasValue(const char* name) {
  lastError_ = 0;
  return Query(name, nullptr, nullptr, nullptr);
}

bool RegistryKey::GetDword(const char* name, DWORD* value) {
  lastError_ = 0;
  if (!value) return false;
  DWORD type = REG_NONE;
  DWORD data = 0;
  DWORD size = sizeof(data);
  if (!Query(name, &type, &data, &size) || type != REG_DWORD) return false;
  *value = data;
  return true;
}

bool RegistryKey::GetBool(const char* name, bool* value) {
  lastError_ = 0;
  DWORD data = 0;
  if (!value || !GetDword(name, &data)) return false;
  *value = data != 0;
  return true;
}

bool RegistryKey::GetString(const char* name, const char** text) {
  lastError_ = 0;
  string_.reset();
  if (!text) return false;
  *text = nullptr;

  DWORD type = REG_NONE;
  DWORD size = 0;
  for (DWORD capacity = kOrdinarySize;; capacity = std::max(size, capacity * 2)) {
    string_ = Allocate(std::size_t{capacity} + 1);
    if (!string_) return Succeeded(ERROR_NOT_ENOUGH_MEMORY);
    size = capacity;
    const bool fits = Query(name, &type, string_.get(), &size);
    if (!fits && lastError_ != ERROR_MORE_DATA) return false;
    if (!IsText(type)) {
      lastError_ = 0;
      return false;
    }
    if (fits) break;
  }
  if (size == 0) return true;
  string_[size] = '\0';  // the stored text need not end in one
  *text = string_.get();
  return true;
}

bool RegistryKey::GetExpandedString(const char* name, const char** text) {
  return GetString(name, text) && (!*text || Expand(*text, text));
}

bool RegistryKey::FirstSubkey(const char** name) { return First(subkeys_, name); }
bool RegistryKey::NextSubkey(const char** name) { return Next(subkeys_, name); }
bool RegistryKey::FirstValue(const char** name) { return First(values_, name); }
bool RegistryKey::NextValue(const char** name) { return Next(values_, name); }

bool RegistryKey::Expand(const char* text, const char** expanded) {
  lastError_ = 0;
  expanded_.reset();
  if (!text || !expanded) return false;
  *expanded = nullptr;
  const DWORD size = ExpandEnvironmentStringsA(text, nullptr, 0);
  if (size == 0) return false;
  expanded_ = Allocate(size);
  if (!expanded_) return Succeeded(ERROR_NOT_ENOUGH_MEMORY);
  if (ExpandEnvironmentStringsA(text, expanded_.get(), size) == 0) return false;
  *expanded = expanded_.get();
  return true;
}

bool RegistryKey::ShortPath(const char* text, const char** shortPath) {
  lastError_ = 0;
  shortPath_.reset();
  if (!text || !shortPath) return false;
  *shortPath = nullptr;
  const std::size_t length = std::strlen(text);
  if (length == 0) return false;
  shortPath_ = Allocate(length + 5);
  if (!shortPath_) return Succeeded(ERROR_NOT_ENOUGH_MEMORY);
  std::memset(shortPath_.get(), 0, length + 5);
  // The call is told of a smaller buffer than there is, and a result that did not fit counts all the same.
  if (GetShortPathNameA(text, shortPath_.get(), static_cast<DWORD>(length)) == 0) return false;
  *shortPath = shortPath_.get();
  return true;
}

bool RegistryKey::Set(const char* name, DWORD type, const void* data, std::size_t size) {
  return Open() && Succeeded(RegSetValueExA(key_.Get(), name, 0, type, static_cast<const BYTE*>(data),
                                            static_cast<DWORD>(size)));
}

bool RegistryKey::SetText(const char* name, DWORD type, const char* text) {
  return Set(name, type, text, text ? std::strlen(text) + 1 : 0);
}

bool RegistryKey::Query(const char* name, DWORD* type, void* data, DWORD* size) {
  return Open() &&
         Succeeded(RegQueryValueExA(key_.Get(), name, nullptr, type, static_cast<BYTE*>(data), size));
}

bool RegistryKey::First(Walk& walk, const char** name) {
  lastError_ = 0;
  if (!name) return false;
  *name = nullptr;
  if (!walk.Name) walk.Name = Allocate(kNameSize + 1);
  walk.Index = 0;
  if (!walk.Name) return Succeeded(ERROR_NOT_ENOUGH_MEMORY);
  if (!OpenFor({&walk == &subkeys_, &walk == &values_}) ||
      !Succeeded(walk.Read(key_.Get(), walk.Index, walk.Name.get())))
    return false;
  *name = walk.Name.get();
  return true;
}

bool RegistryKey::Next(Walk& walk, const char** name) {
  lastError_ = 0;
  if (!name) return false;
  *name = nullptr;
  if (!walk.Enabled || !key_ || !walk.Name) return false;
  ++walk.Index;
  const LSTATUS result = walk.Read(key_.Get(), walk.Index, walk.Name.get());
  if (result == ERROR_NO_MORE_ITEMS) {
    --walk.Index;
    return true;
  }
  if (!Succeeded(result)) return false;
  *name = walk.Name.get();
  return true;
}

bool RegistryKey::Succeeded(LSTATUS result) {
  lastError_ = static_cast<DWORD>(result);
  return result == ERROR_SUCCESS;
}
