// Tests against the real registry that leave no trace in it.
//
// The fixture points HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER of this process at empty scratch keys of its
// own below the user's HKEY_CURRENT_USER\Software (RegOverridePredefKey), and removes them afterwards.
//
// The helpers state a whole subtree as text, in the notation of .reg files with paths below a given key:
//
//   []                          the given key itself
//   @="For everybody"           REG_SZ: the text and its one NUL; @ is the unnamed value
//   [Staff\Root 1]              parents are made and need not be listed
//   "RootPath"="C:\\Work"       backslash and quote are escaped
//   "FolderLevels"=dword:1f
//   "Zero bytes"=hex(1):        any other type or data: the type and every stored byte
//   "No NUL"=hex(1):61 62
//
// Blanks and line breaks between them do not count, nor does the order of keys and values.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "base/unique_handle.h"

class RegistryTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

 private:
  UniqueKey localMachine_;
  UniqueKey currentUser_;
};

// Adds what `text` states to the key `path` of `root`, which is created if missing.
void WriteTree(HKEY root, const std::string& path, const std::string& text);

// The key with everything below it, for comparing: sorted, a line for each key, "[Staff\Root 1]", and each
// value, "[Staff\Root 1] RootPath=1 C:\Work<0>" with its type and all stored data. "" when there is no key.
std::string DumpTree(HKEY root, const std::string& path);

// Fails unless the key and everything below it is what `text` states, byte for byte. "" stands for no key,
// and what DumpTree answered for itself.
void ExpectTree(HKEY root, const std::string& path, const std::string& text);
