#include "registry/catalogue/scheme_catalogue.h"

#include <windows.h>

#include "controls/message.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

[[noreturn]] void EndWithoutSchemes() {
  ShowWarning(nullptr,
              "There has been a problem reading Kelvanstead Settings.\n"
              "This is due to Kelvanstead not being installed or the settings have become damaged.\n"
              "It is recommended that Kelvanstead is reinstalled.\n\n"
              "Kelvanstead Scheme Manager can not run so will now exit",
              "Serious Problem");
  ExitProcess(0);
}

void ReportUnreadable(const std::string& names) {
  ShowWarning(nullptr,
              "The following scheme/s could not be read:\n" + names +
                  ".\n\nIt's recommended that they are reloaded from a valid\n"
                  "Kelvanstead Scheme Manager configuration file.",
              "Schemes Problem");
}

UniqueKey OpenWithAllAccess(const std::string& path) {
  return OpenKey(HKEY_LOCAL_MACHINE, path, KEY_ALL_ACCESS);
}

// Deletes every value whose text is the scheme's name in any case. A value too long to read cannot be one.
// The names are collected first: deleting while enumerating would skip the neighbour.
void DeleteAllocations(const char* kind, const std::string& scheme) {
  const UniqueKey key = OpenWithAllAccess(AllocationKeyPath(kind));
  if (!key) return;
  std::vector<std::string> allocated;
  std::string name;
  std::string text;
  for (DWORD i = 0;; ++i) {
    const LSTATUS result = ReadValueAt(key.Get(), i, name, text);
    if (result == ERROR_MORE_DATA) continue;
    if (result != ERROR_SUCCESS) break;
    if (lstrcmpiA(text.c_str(), scheme.c_str()) == 0) allocated.push_back(name);
  }
  for (const std::string& each : allocated)
    RegDeleteValueA(key.Get(), each.c_str());
}

// Always works on the first subkey that remains, and goes into it only if it cannot be deleted as it is.
void DeleteSubkeys(HKEY key) {
  char name[260];
  // At first only shorter names are taken, so a longer one in the first place ends the deletion; kept as it
  // is.
  DWORD length = 128;
  while (RegEnumKeyExA(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
    if (RegDeleteKeyA(key, name) != ERROR_SUCCESS) {
      UniqueKey subkey = OpenKey(key, name, KEY_ALL_ACCESS);
      if (subkey) DeleteSubkeys(subkey.Get());
      subkey.Reset();
      if (RegDeleteKeyA(key, name) != ERROR_SUCCESS) return;
    }
    length = sizeof(name);
  }
}

}  // namespace

void SchemeCatalogue::LoadCatalogue(bool reportUnreadable) {
  Schemes.clear();
  Config.Entries.clear();
  if (!RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, kSchemesKey)) EndWithoutSchemes();
  UniqueKey key = OpenWithAllAccess(kSchemesKey);
  if (!key) return;
  std::string unreadable;
  ForEachValue(key.Get(), [&](const std::string& name, const std::string& text) {
    if (!HasSchemeKey(name)) {
      if (!unreadable.empty()) unreadable += ", ";
      unreadable += name;
      return;
    }
    SchemeProperties& scheme = Schemes.emplace_back();
    scheme.Name = name;
    scheme.Description = text;
    // A scheme of which some section could not be read is still a scheme.
    (void)LoadSchemeProperties(name, scheme);
    Config.Entries.push_back({name, text});
  });
  key.Reset();
  if (reportUnreadable && !unreadable.empty()) ReportUnreadable(unreadable);
}

bool SchemeCatalogue::SaveCatalogue() const { return SaveSchemes(Schemes); }

void SchemeCatalogue::LoadProtectedSchemes() {
  protectedSchemes_.clear();
  const UniqueKey key = OpenWithAllAccess(kProtectedSchemesKey);
  if (!key) return;
  ForEachValue(key.Get(),
               [this](const std::string& name, const std::string&) { protectedSchemes_.insert(name); });
}

void SchemeCatalogue::DeleteScheme(const std::string& name) {
  if (!IsSchemeName(name)) return;
  DeleteAllocations(kClassSchemes, name);
  DeleteAllocations(kUserSchemes, name);
  if (const UniqueKey key = OpenWithAllAccess(kSchemesKey)) {
    RegDeleteValueA(key.Get(), name.c_str());
    DeleteSchemeKeyTree(name);
    RegDeleteKeyA(key.Get(), name.c_str());
  }
  std::erase_if(Schemes, [&](const SchemeProperties& scheme) { return scheme.Name == name; });
  std::erase_if(Config.Entries, [&](const ConfigHiveEntry& entry) { return entry.SchemeName == name; });
}

void SchemeCatalogue::DeleteSchemeKeyTree(const std::string& name) {
  if (!IsSchemeName(name)) return;
  const UniqueKey key = OpenWithAllAccess(SchemeKeyPath(name));
  if (key) DeleteSubkeys(key.Get());
}
