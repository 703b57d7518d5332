#include "model/scheme_storage.h"

#include <algorithm>
#include <cstddef>

#include "model/field_storage.h"
#include "model/item_storage.h"
#include "model/scheme_layout.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

constexpr char kSchemeName[] = "Scheme Name";

std::string SectionPath(const std::string& name, const char* key) {
  return KeyPath({kSchemesKey, name, key});
}

template <class Item>
std::string ItemPath(const std::string& name, const CountedSectionLayout<Item>& layout, int number) {
  return KeyPath({kSchemesKey, name, layout.Key, ItemName(layout.Items, number)});
}

std::string ToolBarPageKey(int number) {
  return KeyPath({kToolBarsKey, kToolBarPageKey + std::to_string(number)});
}

std::string ToolBarPagePath(const std::string& name, int number) {
  return KeyPath({kSchemesKey, name, ToolBarPageKey(number)});
}

template <class Item>
Outcome LoadCountedSection(const std::string& name, const CountedSectionLayout<Item>& layout,
                           SchemeProperties& scheme) {
  (scheme.*layout.Items.List).clear();
  const std::string path = SectionPath(name, layout.Key);
  RegistryKey key(RegistryKey::kOpen, path);
  if (!key.Open()) return OutcomeOf(key);
  DWORD stated = 0;  // what a missing count stands for
  if (!key.GetDword(layout.CountName, &stated) && OutcomeOf(key) == Outcome::kFailed) return Outcome::kFailed;
  return LoadItems(path, layout.Items, static_cast<std::int32_t>(stated), scheme);
}

template <class Item>
bool SaveCountedSection(HKEY schemeKey, const CountedSectionLayout<Item>& layout,
                        const SchemeProperties& scheme) {
  RegistryKey key(RegistryKey::kCreate, layout.Key, schemeKey);
  const bool counted = key.SetDword(layout.CountName, static_cast<DWORD>((scheme.*layout.Items.List).size()));
  return SaveItems(layout.Key, layout.Items, scheme, schemeKey) && counted;
}

template <class Item>
bool AddMissingToCountedSection(const std::string& name, const CountedSectionLayout<Item>& layout) {
  const std::string path = SectionPath(name, layout.Key);
  RegistryKey key(RegistryKey::kCreate, path);
  DWORD stated = 0;
  if (key.GetDword(layout.CountName, &stated))
    return AddMissingToItems(path, layout.Items, static_cast<std::int32_t>(stated));
  // A count of another type is there, but states nothing.
  if (!IsMissing(static_cast<LSTATUS>(key.LastError()))) return OutcomeOf(key) == Outcome::kIncomplete;
  return key.SetDword(layout.CountName, 0);
}

UniqueKey CreateSchemeKey(const std::string& name) {
  UniqueKey key;
  (void)CreateKey(HKEY_LOCAL_MACHINE, SchemeKeyPath(name), KEY_READ | KEY_WRITE, key);
  return key;
}

// The writers, below the key of a scheme, which spares the system the way there for each key that is written.
// Whoever calls them has tested MaySave, once: everything that they write lies below the guard key, so no
// item needs to ask again. Without a key all of them fail.
bool WriteFolderDisplay(HKEY schemeKey, const SchemeProperties& scheme) {
  return SaveCountedSection(schemeKey, kFolderDisplayLayout, scheme);
}

bool WriteWebLinks(HKEY schemeKey, const SchemeProperties& scheme) {
  return SaveCountedSection(schemeKey, kWebLinksLayout, scheme);
}

bool WriteTabSelection(HKEY schemeKey, const SchemeProperties& scheme) {
  return SaveKey(kTabSelectionKey, scheme.Tabs, kTabSelectionFields, schemeKey);
}

bool WriteToolBars(HKEY schemeKey, const SchemeProperties& scheme) {
  // Creating a page's key together with its parent would cost a call for every level of the path.
  RegistryKey section(RegistryKey::kCreate, kToolBarsKey, schemeKey);
  bool complete = section.Open();
  int number = 0;
  for (const ToolBarPage& page : scheme.ToolBars)
    complete &= SaveKey(ToolBarPageKey(++number), page, kToolBarPageFields, schemeKey);
  return complete;
}

bool WriteDefaults(HKEY schemeKey, const SchemeProperties& scheme) {
  return SaveKey(kDefaultsKey, scheme.Defaults, kDefaultsSaveFields, schemeKey);
}

bool WriteSchemeProperties(const std::string& name, const SchemeProperties& scheme) {
  UniqueKey key = CreateSchemeKey(name);
  if (!key || WriteText(key.Get(), kSchemeName, scheme.Name) != ERROR_SUCCESS) return false;
  if (name != scheme.Name) key = CreateSchemeKey(scheme.Name);
  bool complete = WriteFolderDisplay(key.Get(), scheme);
  complete &= WriteWebLinks(key.Get(), scheme);
  complete &= WriteTabSelection(key.Get(), scheme);
  complete &= WriteToolBars(key.Get(), scheme);
  complete &= WriteDefaults(key.Get(), scheme);
  return complete;
}

bool AddMissingSchemeName(const std::string& name) {
  RegistryKey key(RegistryKey::kCreate, SchemeKeyPath(name));
  if (key.HasValue(kSchemeName)) return true;
  return IsMissing(static_cast<LSTATUS>(key.LastError())) && key.SetString(kSchemeName, name.c_str());
}

// Schemes are written only on a machine where the shell is present.
bool MaySave(const std::string& name) { return IsSchemeName(name) && RegistryKey::KeyExists(kProductKey); }

bool SaveSection(const std::string& name, const SchemeProperties& scheme,
                 bool (*write)(HKEY schemeKey, const SchemeProperties& scheme)) {
  return MaySave(name) && write(CreateSchemeKey(name).Get(), scheme);
}

}  // namespace

Outcome FindSchemeKey(const std::string& name) {
  if (name.empty()) return Outcome::kComplete;
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  RegistryKey key(RegistryKey::kOpen, SchemeKeyPath(name));
  return key.Open() ? Outcome::kComplete : OutcomeOf(key);
}

Outcome LoadSchemeProperties(const std::string& name, SchemeProperties& scheme) {
  Outcome outcome = LoadFolderDisplay(name, scheme);
  outcome |= LoadWebLinks(name, scheme);
  outcome |= LoadTabSelection(name, scheme);
  outcome |= LoadToolBars(name, scheme);
  outcome |= LoadDefaults(name, scheme);
  return outcome;
}

bool SaveSchemeProperties(const std::string& name, const SchemeProperties& scheme) {
  return IsSchemeName(scheme.Name) && MaySave(name) && WriteSchemeProperties(name, scheme);
}

bool SaveSchemeOfMany(const SchemeProperties& scheme) {
  return IsSchemeName(scheme.Name) && WriteSchemeProperties(scheme.Name, scheme);
}

bool AddMissingProperties(const std::string& name) {
  if (!IsSchemeName(name)) return false;
  bool complete = AddMissingSchemeName(name);
  complete &= AddMissingToCountedSection(name, kFolderDisplayLayout);
  complete &= AddMissingToCountedSection(name, kWebLinksLayout);
  complete &= AddMissingFields<TabSelection>(SectionPath(name, kTabSelectionKey), kTabSelectionFields,
                                             MissingKey::kAdd);
  for (int page = 1; page <= 3; ++page)
    complete &=
        AddMissingFields<ToolBarPage>(ToolBarPagePath(name, page), kToolBarPageFields, MissingKey::kAdd);
  complete &= AddMissingFields<SchemeDefaults>(SectionPath(name, kDefaultsKey), kDefaultsSaveFields,
                                               MissingKey::kAdd);
  return complete;
}

Outcome LoadFolderDisplay(const std::string& name, SchemeProperties& scheme) {
  return IsSchemeName(name) ? LoadCountedSection(name, kFolderDisplayLayout, scheme) : Outcome::kIncomplete;
}

Outcome LoadWebLinks(const std::string& name, SchemeProperties& scheme) {
  return IsSchemeName(name) ? LoadCountedSection(name, kWebLinksLayout, scheme) : Outcome::kIncomplete;
}

// Unlike the other sections, stops at the first page that cannot be read.
Outcome LoadTabSelection(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  scheme.Tabs = {};
  RegistryKey key(RegistryKey::kOpen, SectionPath(name, kTabSelectionKey));
  if (!key.Open()) return OutcomeOf(key);
  Outcome outcome = Outcome::kComplete;
  for (const Field<TabSelection>& field : kTabSelectionFields) {
    if (outcome == Outcome::kComplete) outcome = LoadField(key, scheme.Tabs, field);
  }
  return outcome;
}

Outcome LoadToolBars(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  scheme.ToolBars = {};
  // Where the section's key is missing, so are its pages: they need no test of it.
  Outcome outcome = Outcome::kComplete;
  int number = 0;
  for (ToolBarPage& page : scheme.ToolBars)
    outcome |= LoadToolBarPage(name, ++number, page);
  return outcome;
}

Outcome LoadDefaults(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  scheme.Defaults = {};
  return LoadKey(SectionPath(name, kDefaultsKey), scheme.Defaults, kDefaultsFields);
}

bool SaveFolderDisplay(const std::string& name, const SchemeProperties& scheme) {
  return SaveSection(name, scheme, WriteFolderDisplay);
}

bool SaveWebLinks(const std::string& name, const SchemeProperties& scheme) {
  return SaveSection(name, scheme, WriteWebLinks);
}

bool SaveTabSelection(const std::string& name, const SchemeProperties& scheme) {
  return SaveSection(name, scheme, WriteTabSelection);
}

bool SaveToolBars(const std::string& name, const SchemeProperties& scheme) {
  return SaveSection(name, scheme, WriteToolBars);
}

bool SaveDefaults(const std::string& name, const SchemeProperties& scheme) {
  return SaveSection(name, scheme, WriteDefaults);
}

Outcome LoadFolderRoot(const std::string& name, int number, FolderRoot& root) {
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  return LoadKey(ItemPath(name, kFolderDisplayLayout, number), root, kFolderRootFields);
}

Outcome LoadWebLink(const std::string& name, int number, WebLink& link) {
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  return LoadKey(ItemPath(name, kWebLinksLayout, number), link, kWebLinkFields);
}

Outcome LoadToolBarPage(const std::string& name, int number, ToolBarPage& page) {
  if (!IsSchemeName(name)) return Outcome::kIncomplete;
  return LoadKey(ToolBarPagePath(name, number), page, kToolBarPageFields);
}

bool SaveFolderRoot(const std::string& name, int number, const FolderRoot& root) {
  return MaySave(name) && SaveKey(ItemPath(name, kFolderDisplayLayout, number), root, kFolderRootFields);
}

bool SaveWebLink(const std::string& name, int number, const WebLink& link) {
  return MaySave(name) && SaveKey(ItemPath(name, kWebLinksLayout, number), link, kWebLinkFields);
}

bool SaveToolBarPage(const std::string& name, int number, const ToolBarPage& page) {
  return MaySave(name) && SaveKey(ToolBarPagePath(name, number), page, kToolBarPageFields);
}
