#include "allocation/allocations.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string_view>

#include "allocation/account_detection.h"
#include "base/names.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"

namespace {

constexpr DWORD kBufferSize = 260;
constexpr DWORD kIniBufferSize = 1024;
constexpr char kLogonPasswordsKey[] = "Software\\Tessaly\\Tallowby\\Logon\\Passwords";
constexpr char kTallowbyIniFolder[] = "C:\\Program Files\\Tessaly\\Tallowby\\Benchspace\\Config\\";
constexpr char kCratelingIniFolder[] = "C:\\Program Files\\Tessaly\\Crateling\\Benchspace\\Config\\";
constexpr char kIniSection[] = "Benchspace";
constexpr char kNotInIni[] = "No string read";

// Names in the order in which they come, none twice as the registry compares them.
class NameList {
 public:
  void Add(std::string name) {
    if (name.empty() || name.size() >= kBufferSize || !seen_.insert(name).second) return;
    names_.push_back(std::move(name));
  }
  std::vector<std::string> Take() { return std::move(names_); }

 private:
  std::set<std::string, NameLess> seen_;
  std::vector<std::string> names_;
};

std::vector<std::string> SubkeyNames(const char* path) {
  NameList names;
  if (const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, path, KEY_READ))
    ForEachSubkey(key.Get(), [&](const std::string& name) { names.Add(name); });
  return names.Take();
}

// The names only: no data is read, so a damaged value costs nothing, and a password stays where it is.
std::vector<std::string> ValueNames(const char* path) {
  NameList names;
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, path, KEY_READ);
  if (!key) return {};
  for (DWORD index = 0;; ++index) {
    char name[kBufferSize] = "";
    DWORD size = sizeof(name);
    const LSTATUS status = RegEnumValueA(key.Get(), index, name, &size, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_MORE_DATA) continue;
    if (status != ERROR_SUCCESS) return names.Take();
    names.Add(name);
  }
}

// One account may have any type; most share a few.
std::vector<std::string> AccountTypes(const std::vector<std::string>& accounts) {
  NameList types;
  for (const std::string& account : accounts) {
    types.Add(ReadText(HKEY_LOCAL_MACHINE, KeyPath({kTallowbyAccountsKey, account}), kAccountType));
  }
  return types.Take();
}

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

// The names between the commas of one entry of the INI file, without the blanks around them.
void AddIniNames(const std::string& file, const char* entry, NameList& names) {
  char buffer[kIniBufferSize] = "";
  const DWORD length =
      GetPrivateProfileStringA(kIniSection, entry, kNotInIni, buffer, sizeof(buffer), file.c_str());
  std::string_view text(buffer, length);
  if (text == kNotInIni) return;
  // A text that fills the buffer is cut, and its last name with it.
  if (length == sizeof(buffer) - 1) text = text.substr(0, text.rfind(',') + 1);
  while (!text.empty()) {
    const std::size_t comma = std::min(text.find(','), text.size());
    names.Add(Trimmed(text.substr(0, comma)));
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
}

std::vector<std::string> ReadClasses(const std::string& iniFolder) {
  std::string file = iniFolder + "LocalBenchspace.ini";
  if (GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES) file = iniFolder + "Benchspace.ini";
  NameList classes;
  AddIniNames(file, "Default Class", classes);
  AddIniNames(file, "Available Classes", classes);
  return classes.Take();
}

Allocation ReadAllocation(AllocationKind kind, const std::string& path, const std::string& name) {
  Allocation allocation{kind, name, ""};
  char text[kBufferSize] = "";
  DWORD type = REG_NONE;
  DWORD size = sizeof(text);
  const LSTATUS status = SHRegGetUSValueA(path.c_str(), name.c_str(), &type, text, &size, TRUE, nullptr, 0);
  if (IsMissing(status)) return allocation;
  const std::size_t length = strnlen(text, sizeof(text));
  const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
  allocation.Known = status == ERROR_SUCCESS && isText && length < sizeof(text);
  if (allocation.Known) allocation.Scheme.assign(text, length);
  return allocation;
}

LSTATUS CreateAllocationKey(AllocationKind kind) {
  UniqueKey product;
  const LSTATUS status = OpenKey(HKEY_LOCAL_MACHINE, kProductKey, KEY_CREATE_SUB_KEY, product);
  if (status != ERROR_SUCCESS) return status;
  UniqueKey created;
  return CreateKey(product.Get(), KindText(kind), KEY_WRITE, created);
}

}  // namespace

const char* KindText(AllocationKind kind) {
  switch (kind) {
    case AllocationKind::kClass:
      return kClassSchemes;
    case AllocationKind::kUser:
      return kUserSchemes;
    default:
      return kUserGroupSchemes;
  }
}

bool IsNtFamily() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof(version);
  return GetVersionExA(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

std::vector<Allocation> ReadAllocations(bool ntFamily) {
  std::vector<Allocation> allocations;
  const auto add = [&](AllocationKind kind, const std::vector<std::string>& names) {
    const std::string path = AllocationKeyPath(KindText(kind));
    for (const std::string& name : names)
      allocations.push_back(ReadAllocation(kind, path, name));
  };
  add(AllocationKind::kClass, ReadClasses(ntFamily ? kTallowbyIniFolder : kCratelingIniFolder));
  const std::vector<std::string> users =
      ntFamily ? SubkeyNames(kTallowbyAccountsKey) : ValueNames(kLogonPasswordsKey);
  add(AllocationKind::kUser, users);
  if (ntFamily) add(AllocationKind::kUserGroup, AccountTypes(users));
  return allocations;
}

WriteResult WriteAllocation(AllocationKind kind, const std::string& name, const std::string& scheme) {
  if (name.empty() || name.size() >= kBufferSize || scheme.size() >= kBufferSize) return WriteResult::kFailed;
  // The ANSI form stores bytes in place of characters on some systems.
  const std::wstring path = Widen(AllocationKeyPath(KindText(kind)));
  const std::wstring valueName = Widen(name);
  const std::wstring text = Widen(scheme);
  const auto write = [&] {
    return SHRegSetUSValueW(path.c_str(), valueName.c_str(), REG_SZ, text.c_str(),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)), SHREGSET_FORCE_HKLM);
  };
  const LSTATUS status = write();
  if (!IsMissing(status)) return ResultOf(status);
  // It writes into an existing key only.
  const LSTATUS created = CreateAllocationKey(kind);
  return ResultOf(created == ERROR_SUCCESS ? write() : created);
}

std::vector<std::string> SchemeNames() { return ValueNames(kSchemesKey); }

WriteResult WriteConfigToUse(const std::string& scheme) {
  UniqueKey key;
  const LSTATUS status = CreateKey(HKEY_CURRENT_USER, kProductKey, KEY_ALL_ACCESS, key);
  return ResultOf(status == ERROR_SUCCESS ? WriteText(key.Get(), kConfigToUse, scheme) : status);
}
