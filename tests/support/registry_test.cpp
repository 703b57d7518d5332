#include "support/registry_test.h"

#include <iomanip>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

// One key a process below it, named by its number.
constexpr char kScratchKeys[] = "Software\\Kelvanstead Scheme Manager Tests";
constexpr DWORD kNameSize = 16384;  // longer than any name that the registry holds

void Check(LSTATUS result, const std::string& what) {
  if (result != ERROR_SUCCESS) throw std::runtime_error("error " + std::to_string(result) + " at " + what);
}

UniqueKey CreateKey(HKEY root, const std::string& path) {
  UniqueKey key;
  Check(RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Put(), nullptr),
        path);
  return key;
}

// Takes the data of a value off the front of the text and writes it.
void WriteValue(HKEY key, const std::string& name, std::istream& text) {
  DWORD type = REG_SZ;
  std::string data;
  if (text.peek() == '"') {
    text >> std::quoted(data);
    data += '\0';
  } else {
    std::string notation;
    std::getline(text, notation, ':');
    if (notation == "dword") {
      DWORD number = 0;
      text >> std::hex >> number;
      type = REG_DWORD;
      data.assign(reinterpret_cast<const char*>(&number), sizeof(number));
    } else {
      type = notation.starts_with("hex(") ? notation[4] - '0' : throw std::runtime_error("no value: " + name);
      for (unsigned byte; text >> std::hex >> byte;)
        data += static_cast<char>(byte);
      text.clear();  // the last number is followed by something else
    }
  }
  // RegSetKeyValue takes in a NUL that stands right behind the data.
  const auto size = static_cast<DWORD>(data.size());
  data += 'x';
  Check(RegSetKeyValueA(key, nullptr, name.c_str(), type, data.data(), size), name);
}

// Printable characters as they are, every other one as its number. A character has one byte or two.
std::string Readable(const void* data, DWORD bytes, bool isWide) {
  std::ostringstream out;
  for (DWORD i = 0; i < bytes / (isWide ? 2 : 1); ++i) {
    const unsigned c = isWide ? static_cast<const wchar_t*>(data)[i] : static_cast<const BYTE*>(data)[i];
    c >= ' ' && c <= '~' ? out << static_cast<char>(c) : out << '<' << c << '>';
  }
  return out.str();
}

// Data are read by the wide functions, as they are stored: the others would add a missing NUL.
void Dump(HKEY key, const std::string& path, std::set<std::string>& lines) {
  lines.insert("[" + path + "]");
  std::wstring name(kNameSize, L'\0');
  std::vector<BYTE> data(1 << 18);
  for (DWORD i = 0;; ++i) {
    DWORD length = kNameSize, type = REG_NONE, size = static_cast<DWORD>(data.size());
    const LSTATUS result = RegEnumValueW(key, i, name.data(), &length, nullptr, &type, data.data(), &size);
    if (result == ERROR_NO_MORE_ITEMS) break;
    Check(result, path);
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
    lines.insert("[" + path + "] " + Readable(name.data(), length * 2, true) + "=" + std::to_string(type) +
                 " " + Readable(data.data(), size, isText));
  }
  char subkey[256];
  for (DWORD i = 0; RegEnumKeyA(key, i, subkey, sizeof(subkey)) == ERROR_SUCCESS; ++i) {
    Dump(CreateKey(key, subkey).Get(), path.empty() ? subkey : path + "\\" + subkey, lines);
  }
}

std::string ScratchKey() { return kScratchKeys + ("\\" + std::to_string(GetCurrentProcessId())); }

}  // namespace

void RegistryTest::SetUp() {
  const std::string scratchKey = ScratchKey();
  RegDeleteTreeA(HKEY_CURRENT_USER, scratchKey.c_str());
  localMachine_ = CreateKey(HKEY_CURRENT_USER, scratchKey + "\\Local Machine");
  currentUser_ = CreateKey(HKEY_CURRENT_USER, scratchKey + "\\Current User");
  Check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, localMachine_.Get()), "HKEY_LOCAL_MACHINE");
  Check(RegOverridePredefKey(HKEY_CURRENT_USER, currentUser_.Get()), "HKEY_CURRENT_USER");
}

void RegistryTest::TearDown() {
  RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  RegDeleteTreeA(HKEY_CURRENT_USER, ScratchKey().c_str());
}

void WriteTree(HKEY root, const std::string& path, const std::string& text) {
  const UniqueKey top = CreateKey(root, path);
  UniqueKey key = CreateKey(root, path);
  std::istringstream rest(text);
  for (char first; rest >> first;) {
    std::string name;
    if (first == '[') {
      std::getline(rest, name, ']');
      key = CreateKey(top.Get(), name);
      continue;
    }
    if (first == '"') rest.unget() >> std::quoted(name);
    if (rest.get() != '=') throw std::runtime_error("neither key nor value: " + std::string(1, first) + name);
    WriteValue(key.Get(), name, rest);
  }
}

std::string DumpTree(HKEY root, const std::string& path) {
  UniqueKey key;
  if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, key.Put()) != ERROR_SUCCESS) return "";
  std::set<std::string> lines;
  Dump(key.Get(), "", lines);
  std::string dump;
  for (const std::string& line : lines)
    dump += line + '\n';
  return dump;
}

void ExpectTree(HKEY root, const std::string& path, const std::string& text) {
  constexpr char kExpected[] = "What the test expects";
  const std::string actual = DumpTree(root, path);
  if (actual == text) return;
  WriteTree(HKEY_CURRENT_USER, kExpected, text);
  EXPECT_EQ(actual, DumpTree(HKEY_CURRENT_USER, kExpected));
  RegDeleteTreeA(HKEY_CURRENT_USER, kExpected);
}
