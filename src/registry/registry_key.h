// One registry key: a root, a path below it and whether it may be created.
//
// The key is opened on first use and stays open until the object is pointed elsewhere, closed or destroyed,
// so a row of reads or writes costs one open. Every operation returns success as a boolean and shows nothing;
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
  enum Mode {
    kOpen,    // an existing key, for reading (KEY_READ)
    kCreate,  // made with every missing parent, for reading and writing (KEY_READ | KEY_WRITE)
  };

  RegistryKey(Mode mode, std::string path, HKEY root = HKEY_LOCAL_MACHINE);

  // Each closes the key and clears LastError.
  void SetPath(std::string path);
  void SetRoot(HKEY root);
  void SetCreate(Mode mode);

  // Opens the key unless it is open (RegOpenKeyExA, RegCreateKeyExA).
  [[nodiscard]] bool Open() { return OpenFor({}); }
  void Close();

  // Whether the key can be opened (RegOpenKeyA). Touches no object.
  [[nodiscard]] static bool KeyExists(const std::string& path, HKEY root = HKEY_LOCAL_MACHINE);

  // RegSetValueExA. SetBool writes a REG_DWORD, 0xFFFFFFFF or 0. SetString writes the text with its NUL, as
  // REG_SZ; a null text writes a value of zero bytes. SetExpandString writes a REG_EXPAND_SZ likewise.
  [[nodiscard]] bool SetDword(const char* name, DWORD value);
  [[nodiscard]] bool SetBool(const char* name, bool value);
  [[nodiscard]] bool SetString(const char* name, const char* text);
  [[nodiscard]] bool SetExpandString(const char* name, const char* text);

  // Whether the value is there, whatever its type (RegQueryValueExA). False with LastError
  // ERROR_FILE_NOT_FOUND when it is not.
  [[nodiscard]] bool HasValue(const char* name);

  // RegQueryValueExA. False, with *value as it was, when the value is missing, longer than 4 bytes or not a
  // REG_DWORD; false for a null `value`.
  [[nodiscard]] bool GetDword(const char* name, DWORD* value);
  // 1 for any number but 0.
  [[nodiscard]] bool GetBool(const char* name, bool* value);

  // RegQueryValueExA; one call for a text of ordinary length. False, with *text null, when the value is
  // missing or neither REG_SZ nor REG_EXPAND_SZ. A value of zero bytes is true with *text null. The text
  // handed out is always terminated, whatever is stored. GetExpandedString replaces environment variables
  // (see Expand).
  [[nodiscard]] bool GetString(const char* name, const char** text);
  [[nodiscard]] bool GetExpandedString(const char* name, const char** text);

  // RegEnumKeyA, RegEnumValueA: the names of the subkeys or values, up to 259 characters; a longer one fails.
  // First returns false on a key without any; Next returns true with *name null at the end. Callers must look
  // at both. Next without a First, or after the key was closed, returns false. The first request for an
  // enumeration of either kind closes and reopens the key; where it cannot be opened both kinds are off
  // again.
  [[nodiscard]] bool FirstSubkey(const char** name);
  [[nodiscard]] bool NextSubkey(const char** name);
  [[nodiscard]] bool FirstValue(const char** name);
  [[nodiscard]] bool NextValue(const char** name);

  // ExpandEnvironmentStringsA.
  [[nodiscard]] bool Expand(const char* text, const char** expanded);
  // GetShortPathNameA, told that the buffer is as long as the text. True for any result of it but 0: where
  // the short form is no shorter than the text, what is handed out is not the path but what the call left in
  // the buffer, terminated all the same.
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

  // What an enumeration needs the key to be opened for.
  struct Wanted {
    bool Subkeys = false;
    bool Values = false;
  };

  bool OpenFor(Wanted wanted);
  bool Set(const char* name, DWORD type, const void* data, std::size_t size);
  bool SetText(const char* name, DWORD type, const char* text);
  bool Query(const char* name, DWORD* type, void* data, DWORD* size);
  bool First(Walk& walk, const char** name);
  bool Next(Walk& walk, const char** name);
  // Keeps `result` as LastError. True when it is 0.
  bool Succeeded(LSTATUS result);

  std::string path_;
  HKEY root_;
  Mode mode_;
  UniqueKey key_;
  DWORD lastError_ = 0;
  Buffer string_;
  Buffer expanded_;
  Buffer shortPath_;
  Walk subkeys_;
  Walk values_;
};
