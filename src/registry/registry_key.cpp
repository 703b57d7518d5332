#include "registry/registry_key.h"

#include <algorithm>
#include <cstring>
#include <new>

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

RegistryKey::RegistryKey(bool create, const char* path, HKEY root)
    : path_(path ? path : ""),
      root_(root),
      create_(create),
      subkeys_{&ReadSubkeyName},
      values_{&ReadValueName} {}

void RegistryKey::SetPath(const char* path) {
  lastError_ = 0;
  Close();
  path_ = path ? path : "";
}

void RegistryKey::SetRoot(HKEY root) {
  lastError_ = 0;
  Close();
  root_ = root;
}

void RegistryKey::SetCreate(bool create) {
  lastError_ = 0;
  Close();
  create_ = create;
}

bool RegistryKey::Open(bool wantSubkeys, bool wantValues) {
  lastError_ = 0;
  if ((wantSubkeys && !subkeys_.Enabled) || (wantValues && !values_.Enabled)) Close();
  subkeys_.Enabled |= wantSubkeys;
  values_.Enabled |= wantValues;
  if (key_) return true;

  // KEY_READ holds the rights to enumerate subkeys and values already.
  const LSTATUS result = create_ ? RegCreateKeyExA(root_, path_.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                   KEY_READ | KEY_WRITE, nullptr, key_.Put(), nullptr)
                                 : RegOpenKeyExA(root_, path_.c_str(), 0, KEY_READ, key_.Put());
  if (Succeeded(result)) return true;
  subkeys_.Enabled = false;
  values_.Enabled = false;
  return false;
}

void RegistryKey::Close() { key_.Reset(); }

bool RegistryKey::KeyExists(HKEY root, const char* path) {
  UniqueKey key;
  return RegOpenKeyA(root, path, key.Put()) == ERROR_SUCCESS;
}

bool RegistryKey::SetDword(const char* name, DWORD value) {
  return Set(name, REG_DWORD, &value, sizeof(value));
}

bool RegistryKey::SetBool(const char* name, bool value) { return SetDword(name, value ? 0xFFFFFFFF : 0); }

bool RegistryKey::SetString(const char* name, const char* text, bool expandable) {
  return Set(name, expandable ? REG_EXPAND_SZ : REG_SZ, text, text ? std::strlen(text) + 1 : 0);
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

bool RegistryKey::GetString(const char* name, const char** text, bool expand) {
  lastError_ = 0;
  string_.reset();
  if (!text) return false;
  *text = nullptr;

  DWORD type = REG_NONE;
  DWORD size = 0;
  for (DWORD room = kOrdinarySize;; room = std::max(size, room * 2)) {
    string_ = Allocate(std::size_t{room} + 1);
    if (!string_) return false;
    size = room;
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
  if (expand) return Expand(string_.get(), text);
  *text = string_.get();
  return true;
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
  if (!expanded_ || ExpandEnvironmentStringsA(text, expanded_.get(), size) == 0) return false;
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
  if (!shortPath_) return false;
  const DWORD shortLength = GetShortPathNameA(text, shortPath_.get(), static_cast<DWORD>(length));
  if (shortLength == 0 || shortLength >= length) return false;  // failed, or did not fit
  *shortPath = shortPath_.get();
  return true;
}

bool RegistryKey::Set(const char* name, DWORD type, const void* data, std::size_t size) {
  return Open(false, false) &&
         Succeeded(RegSetValueExA(key_.Get(), name, 0, type, static_cast<const BYTE*>(data),
                                  static_cast<DWORD>(size)));
}

bool RegistryKey::Query(const char* name, DWORD* type, void* data, DWORD* size) {
  return Open(false, false) &&
         Succeeded(RegQueryValueExA(key_.Get(), name, nullptr, type, static_cast<BYTE*>(data), size));
}

bool RegistryKey::First(Walk& walk, const char** name) {
  lastError_ = 0;
  if (!name) return false;
  *name = nullptr;
  if (!walk.Name) walk.Name = Allocate(kNameSize + 1);
  walk.Index = 0;
  if (!walk.Name || !Open(&walk == &subkeys_, &walk == &values_) ||
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
