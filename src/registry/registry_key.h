// One registry key: a root, a path below it and whether it may be created.
//
// The key is opened on first use and stays open until the object is pointed elsewhere, closed or destroyed,
// so a row of reads or writes costs one open. Every operation answers success as a boolean and shows nothing;
// a failure leaves the out argument as told below, the registry unchanged, and the Win32 code of the failing
// call in LastError (0 where the call succeeded but the value was of another type). Every operation but Close
// clears LastError first.
//
// A text handed out points into a buffer of the object. It is valid until the next operation of the same kind
// on the object, or its end: copy what you keep.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>

#include "base/unique_handle.h"

class RegistryKey {
 public:
  // A null path is the empty path. `create` false opens an existing key for reading (KEY_READ); true creates
  // the key with every missing parent and opens it for reading and writing (KEY_READ | KEY_WRITE).
  RegistryKey(bool create, const char* path, HKEY root);

  // Each closes the key and clears LastError.
  void SetPath(const char* path);
  void SetRoot(HKEY root);
  void SetCreate(bool create);

  // Opens the key unless it is open (RegOpenKeyExA, RegCreateKeyExA). The first request for an enumeration of
  // either kind closes and reopens it. On failure both kinds of enumeration are off again.
  [[nodiscard]] bool Open(bool wantSubkeys, bool wantValues);
  void Close();

  // Whether the key can be opened (RegOpenKeyA). Touches no object.
  [[nodiscard]] static bool KeyExists(HKEY root, const char* path);

  // RegSetValueExA. SetBool writes a REG_DWORD, 0xFFFFFFFF or 0. SetString writes the text with its NUL, as
  // REG_EXPAND_SZ or REG_SZ; a null text writes a value of zero bytes.
  [[nodiscard]] bool SetDword(const char* name, DWORD value);
  [[nodiscard]] bool SetBool(const char* name, bool value);
  [[nodiscard]] bool SetString(const char* name, const char* text, bool expandable);

  // RegQueryValueExA. False, with *value as it was, when the value is missing, longer than 4 bytes or not a
  // REG_DWORD; false for a null `value`.
  [[nodiscard]] bool GetDword(const char* name, DWORD* value);
  // 1 for any number but 0.
  [[nodiscard]] bool GetBool(const char* name, bool* value);

  // RegQueryValueExA; one call for a text of ordinary length. False, with *text null, when the value is
  // missing or neither REG_SZ nor REG_EXPAND_SZ. A value of zero bytes is true with *text null. The text
  // handed out is always terminated, whatever is stored. `expand` replaces environment variables (see
  // Expand).
  [[nodiscard]] bool GetString(const char* name, const char** text, bool expand);

  // RegEnumKeyA, RegEnumValueA: the names of the subkeys or values, up to 259 characters; a longer one fails.
  // First answers false on a key without any; Next answers true with *name null at the end. Callers must look
  // at both. Next without a First, or after the key was closed, answers false.
  [[nodiscard]] bool FirstSubkey(const char** name);
  [[nodiscard]] bool NextSubkey(const char** name);
  [[nodiscard]] bool FirstValue(const char** name);
  [[nodiscard]] bool NextValue(const char** name);

  // ExpandEnvironmentStringsA.
  [[nodiscard]] bool Expand(const char* text, const char** expanded);
  // GetShortPathNameA, told that the buffer is as long as the text: where the short form is not shorter
  // than the text it fails.
  [[nodiscard]] bool ShortPath(const char* text, const char** shortPath);

  DWORD LastError() const { return lastError_; }

 private:
  using Buffer = std::unique_ptr<char[]>;
  // One enumeration: whether it has been asked for, where it stands and the name that it handed out last.
  struct Walk {
    LSTATUS (*Read)(HKEY key, DWORD index, char* name);
    bool Enabled = false;
    DWORD Index = 0;
    Buffer Name = nullptr;
  };

  bool Set(const char* name, DWORD type, const void* data, std::size_t size);
  bool Query(const char* name, DWORD* type, void* data, DWORD* size);
  bool First(Walk& walk, const char** name);
  bool Next(Walk& walk, const char** name);
  // Keeps `result` as LastError. True when it is 0.
  bool Succeeded(LSTATUS result);

  std::string path_;
  HKEY root_;
  bool create_;
  UniqueKey key_;
  DWORD lastError_ = 0;
  Buffer string_;
  Buffer expanded_;
  Buffer shortPath_;
  Walk subkeys_;
  Walk values_;
};
