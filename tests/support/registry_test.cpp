#include "support/registry_test.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

constexpr char kScratchKey[] = "Kelvanstead Scheme Manager Tests";
constexpr DWORD kNameSize = 16384;  // longer than any name that the registry holds

struct Value {
  DWORD Type = REG_NONE;
  std::string Data;
};
using Values = std::map<std::string, Value>;
using Tree = std::map<std::string, Values>;

bool IsText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

bool IsRunning(DWORD processId) {
  UniqueProcess process(OpenProcess(SYNCHRONIZE, FALSE, processId));
  if (!process) return GetLastError() == ERROR_ACCESS_DENIED;
  return WaitForSingleObject(process.Get(), 0) == WAIT_TIMEOUT;
}

UniqueKey CreateKey(HKEY root, const std::string& path) {
  UniqueKey key;
  if (RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Put(), nullptr) != 0) {
    throw std::runtime_error("cannot create the key " + path);
  }
  return key;
}

std::vector<std::string> SubkeyNames(HKEY key) {
  std::vector<std::string> names;
  std::string name(kNameSize, '\0');
  for (DWORD i = 0;; ++i) {
    DWORD size = kNameSize;
    if (RegEnumKeyExA(key, i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) != 0) return names;
    names.push_back(name.substr(0, size));
  }
}

std::string Narrow(const std::wstring& wide) {
  const int length = static_cast<int>(wide.size());
  std::string text(wide.size() * 2, '\0');
  text.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(),
                                                           static_cast<int>(text.size()), nullptr, nullptr)));
  return text;
}

// Texts are read as they are stored: the ANSI functions would add a missing NUL.
Values ReadValues(HKEY key) {
  Values values;
  std::wstring name(kNameSize, L'\0');
  for (DWORD i = 0;; ++i) {
    DWORD nameSize = kNameSize;
    DWORD size = 0;
    Value value;
    if (RegEnumValueW(key, i, name.data(), &nameSize, nullptr, &value.Type, nullptr, &size) != 0)
      return values;
    value.Data.resize(size);
    nameSize = kNameSize;
    RegEnumValueW(key, i, name.data(), &nameSize, nullptr, &value.Type,
                  reinterpret_cast<BYTE*>(value.Data.data()), &size);
    if (IsText(value.Type)) {
      value.Data = Narrow(std::wstring(reinterpret_cast<const wchar_t*>(value.Data.data()), size / 2));
    }
    values[Narrow(name.substr(0, nameSize))] = value;
  }
}

void ReadTree(HKEY key, const std::string& path, Tree& tree) {
  tree[path] = ReadValues(key);
  for (const std::string& name : SubkeyNames(key)) {
    UniqueKey subkey;
    if (RegOpenKeyExA(key, name.c_str(), 0, KEY_READ, subkey.Put()) != 0) continue;
    ReadTree(subkey.Get(), path.empty() ? name : path + "\\" + name, tree);
  }
}

std::string Escape(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\\' || c == '"') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string FormatData(const Value& value) {
  std::ostringstream out;
  out << std::hex;
  if (value.Type == REG_SZ && !value.Data.empty() && value.Data.find('\0') == value.Data.size() - 1) {
    out << '"' << Escape(value.Data.substr(0, value.Data.size() - 1)) << '"';
  } else if (value.Type == REG_DWORD && value.Data.size() == sizeof(DWORD)) {
    out << "dword:" << *reinterpret_cast<const DWORD*>(value.Data.data());
  } else {
    out << "hex(" << value.Type << "):";
    for (const char c : value.Data)
      out << (static_cast<unsigned>(c) & 0xFF) << ' ';
  }
  return out.str();
}

// A key without values is listed only where no subkey implies it.
std::string Format(const Tree& tree) {
  std::string text;
  for (const auto& [path, values] : tree) {
    const std::string prefix = path.empty() ? "" : path + "\\";
    const auto below = tree.upper_bound(prefix);
    if (values.empty() && below != tree.end() && below->first.starts_with(prefix)) continue;
    text += "[" + path + "]\n";
    for (const auto& [name, value] : values) {
      text += name.empty() ? std::string(1, '@') : '"' + Escape(name) + '"';
      text += '=' + FormatData(value) + '\n';
    }
  }
  return text;
}

// The parsers take what they answer off the front of the text.
std::string ParseQuoted(const char*& at) {
  std::string text;
  for (++at; *at != '"'; ++at) {
    if (*at == '\\') ++at;
    if (*at == '\0') throw std::runtime_error("no closing quote after " + text);
    text += *at;
  }
  ++at;
  return text;
}

DWORD ParseNumber(const char*& at) {
  char* end = nullptr;
  const DWORD number = std::strtoul(at, &end, 16);
  at = end;
  return number;
}

Value ParseData(const char*& at) {
  const std::string_view data(at);
  if (data.starts_with('"')) return {REG_SZ, ParseQuoted(at) + '\0'};
  if (data.starts_with("dword:")) {
    const DWORD stored = ParseNumber(at += std::strlen("dword:"));
    return {REG_DWORD, std::string(reinterpret_cast<const char*>(&stored), sizeof(stored))};
  }
  if (!data.starts_with("hex(")) throw std::runtime_error("not a value: " + std::string(data));
  Value value{ParseNumber(at += std::strlen("hex(")), ""};
  at += std::strlen("):");
  for (char* end = nullptr;; at = end) {
    const DWORD byte = std::strtoul(at, &end, 16);
    if (end == at) break;
    value.Data += static_cast<char>(byte);
  }
  return value;
}

Tree Parse(const std::string& text) {
  Tree tree;
  std::string key;
  const char* at = text.c_str();
  const auto next = [&at] { return *(at += std::strspn(at, " \n")); };
  while (next() != '\0') {
    if (*at == '[') {
      const char* const end = std::strchr(at, ']');
      if (!end) throw std::runtime_error("not a key: " + std::string(at));
      key.assign(at + 1, end);
      tree[key];
      at = end + 1;
      continue;
    }
    const std::string name = *at == '"' ? ParseQuoted(at) : std::string();
    at += name.empty() && *at == '@';
    if (*at++ != '=') throw std::runtime_error("not a value of " + key + ": " + at);
    tree[key][name] = ParseData(at);
  }
  return tree;
}

}  // namespace

void RegistryTest::SetUp() {
  ASSERT_EQ(0, RegOpenKeyExA(HKEY_CURRENT_USER, "Software", 0, KEY_ALL_ACCESS, software_.Put()));
  RemoveScratch();
  const std::string scratch = std::string(kScratchKey) + "\\" + std::to_string(GetCurrentProcessId());
  localMachine_ = CreateKey(software_.Get(), scratch + "\\Local Machine");
  currentUser_ = CreateKey(software_.Get(), scratch + "\\Current User");
  ASSERT_EQ(0, RegOverridePredefKey(HKEY_LOCAL_MACHINE, localMachine_.Get()));
  ASSERT_EQ(0, RegOverridePredefKey(HKEY_CURRENT_USER, currentUser_.Get()));
}

void RegistryTest::TearDown() {
  RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  currentUser_.Reset();
  localMachine_.Reset();
  if (software_) RemoveScratch();
}

// Every process has a scratch key named by its id. Removes this one's and those of processes that have ended.
void RegistryTest::RemoveScratch() {
  UniqueKey scratch;
  if (RegOpenKeyExA(software_.Get(), kScratchKey, 0, KEY_ALL_ACCESS, scratch.Put()) != 0) return;
  for (const std::string& name : SubkeyNames(scratch.Get())) {
    const DWORD processId = static_cast<DWORD>(std::strtoul(name.c_str(), nullptr, 10));
    if (processId == GetCurrentProcessId() || !IsRunning(processId))
      RegDeleteTreeA(scratch.Get(), name.c_str());
  }
  scratch.Reset();
  RegDeleteKeyA(software_.Get(), kScratchKey);  // fails while another process has its key there
}

void WriteTree(HKEY root, const std::string& path, const std::string& text) {
  const UniqueKey top = CreateKey(root, path);
  for (const auto& [keyPath, values] : Parse(text)) {
    const UniqueKey key = CreateKey(top.Get(), keyPath);
    for (const auto& [name, value] : values) {
      // RegSetValueEx takes in a NUL that stands right behind the data.
      const std::string data = value.Data + "x";
      if (RegSetValueExA(key.Get(), name.c_str(), 0, value.Type, reinterpret_cast<const BYTE*>(data.data()),
                         static_cast<DWORD>(value.Data.size())) != 0) {
        throw std::runtime_error("cannot write the value " + name);
      }
    }
  }
}

std::string DumpTree(HKEY root, const std::string& path) {
  UniqueKey key;
  if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, key.Put()) != 0) return "";
  Tree tree;
  ReadTree(key.Get(), "", tree);
  return Format(tree);
}

void ExpectTree(HKEY root, const std::string& path, const std::string& text) {
  EXPECT_EQ(DumpTree(root, path), Format(Parse(text)));
}
