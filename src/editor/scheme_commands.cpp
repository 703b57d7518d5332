#include "editor/scheme_commands.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "controls/message.h"
#include "editor/my_property_sheet.h"
#include "editor/scheme_creation_dialog.h"
#include "editor/scheme_name_dialog.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"

namespace {

bool IsBlank(const std::string& name) { return name.find_first_not_of(' ') == name.npos; }

// As the registry compares the names of values and keys.
bool IsSameName(const std::string& a, const std::string& b) { return lstrcmpiA(a.c_str(), b.c_str()) == 0; }

// Whether a scheme of the catalogue other than `own` has the name.
bool IsTaken(const SchemeCatalogue& catalogue, const std::string& name, const SchemeProperties* own) {
  return std::ranges::any_of(catalogue.Schemes, [&](const SchemeProperties& scheme) {
    return &scheme != own && IsSameName(scheme.Name, name);
  });
}

// Asks for another name until it is neither blank nor taken. `own` is the scheme that is edited, null for a
// new one. False when it could not be asked.
bool SettleName(HWND owner, const SchemeCatalogue& catalogue, const SchemeProperties* own,
                std::string& name) {
  while (IsBlank(name) || IsTaken(catalogue, name, own)) {
    CSchemeNameDialog dialog(name);
    if (dialog.DoModal(owner) != IDOK) return false;
    name = dialog.Name();
  }
  return true;
}

UniqueKey OpenSchemes() { return OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS); }

bool WriteDescription(HKEY schemes, const SchemeProperties& scheme) {
  return RegSetValueExA(schemes, scheme.Name.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(scheme.Description.c_str()),
                        static_cast<DWORD>(scheme.Description.size() + 1)) == ERROR_SUCCESS;
}

bool ReplaceDescription(const std::string& oldName, const SchemeProperties& scheme) {
  const UniqueKey schemes = OpenSchemes();
  return schemes && RegDeleteValueA(schemes.Get(), oldName.c_str()) == ERROR_SUCCESS &&
         WriteDescription(schemes.Get(), scheme);
}

bool SaveEdited(SchemeCatalogue& catalogue, std::size_t index, SchemeProperties edited) {
  const std::string oldName = std::exchange(catalogue.Schemes[index], std::move(edited)).Name;
  const SchemeProperties& scheme = catalogue.Schemes[index];
  const bool replaced = ReplaceDescription(oldName, scheme);
  // The hive must not bring the old name or description back when it is saved.
  const auto entry = std::ranges::find(catalogue.Config.Entries, oldName, &ConfigHiveEntry::SchemeName);
  if (entry != catalogue.Config.Entries.end()) *entry = {scheme.Name, scheme.Description};
  return SaveSchemeProperties(scheme.Name, scheme) && replaced;
}

bool SaveCreated(SchemeCatalogue& catalogue, SchemeProperties created) {
  const UniqueKey schemes = OpenSchemes();
  const bool described = schemes && WriteDescription(schemes.Get(), created);
  catalogue.Config.Entries.push_back({created.Name, created.Description});
  catalogue.Schemes.push_back(std::move(created));
  const bool saved = catalogue.SaveCatalogue();
  return catalogue.Config.SaveToRegistry() && saved && described;
}

// What a new scheme starts from: the last scheme of that name, or, on a machine without, an empty one with
// all three tabs.
SchemeProperties FindSource(const SchemeCatalogue& catalogue, const std::string& name) {
  const auto found = std::find_if(catalogue.Schemes.rbegin(), catalogue.Schemes.rend(),
                                  [&](const SchemeProperties& scheme) { return scheme.Name == name; });
  if (found != catalogue.Schemes.rend()) return *found;
  SchemeProperties empty;
  empty.Tabs = {1, 1, 1};
  return empty;
}

std::vector<std::string> SchemeNames(const SchemeCatalogue& catalogue) {
  std::vector<std::string> names;
  for (const SchemeProperties& scheme : catalogue.Schemes)
    names.push_back(scheme.Name);
  return names;
}

}  // namespace

bool EditScheme(HWND owner, SchemeCatalogue& catalogue, std::size_t index, const PictureFolders& folders) {
  SchemeProperties edited = catalogue.Schemes[index];
  if (catalogue.IsProtected(edited.Name)) {
    ShowWarning(owner, edited.Name + " is a built in scheme and cannot be edited", "Error");
    return false;
  }
  CMyPropertySheet sheet("Existing Scheme Properties", edited, folders);
  if (!sheet.Run(owner)) return false;
  sheet.CopyTo(edited);
  if (!SettleName(owner, catalogue, &catalogue.Schemes[index], edited.Name)) return false;
  if (!SaveEdited(catalogue, index, std::move(edited))) catalogue.LoadCatalogue(false);
  return true;
}

std::optional<std::string> CreateScheme(HWND owner, SchemeCatalogue& catalogue,
                                        const std::string& selectedScheme, const PictureFolders& folders) {
  CSchemeCreationDialog creation(SchemeNames(catalogue), selectedScheme);
  if (creation.DoModal(owner) != IDOK) return std::nullopt;
  SchemeProperties created = FindSource(catalogue, creation.Source());
  CMyPropertySheet sheet("New Scheme Properties", created, folders);
  if (!sheet.Run(owner)) return std::nullopt;
  sheet.CopyTo(created);
  if (!SettleName(owner, catalogue, nullptr, created.Name)) return std::nullopt;
  std::string name = created.Name;
  if (!SaveCreated(catalogue, std::move(created))) catalogue.LoadCatalogue(false);
  return name;
}
