#include "model/scheme_storage.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>

#include "model/field_storage.h"
#include "model/scheme_layout.h"
#include "registry/registry_access.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

constexpr std::size_t kMaxNameLength = 255;  // of a registry key

std::string SectionPath(const std::string& name, const char* key) {
  return KeyPath({kSchemesKey, name, key});
}

// `word` ends in the blank that stands before the number.
std::string RecordPath(const std::string& name, const char* key, const char* word, int number) {
  return KeyPath({kSchemesKey, name, key, word + std::to_string(number)});
}

template <class Record, class Fields>
bool LoadRecord(const std::string& name, const CountedSectionLayout<Record>& layout, int number,
                Record& record, const Fields& fields) {
  return LoadKey(RecordPath(name, layout.Key, layout.RecordKey, number), record, fields);
}

template <class Record, class Fields>
bool SaveRecord(const std::string& name, const CountedSectionLayout<Record>& layout, int number,
                const Record& record, const Fields& fields) {
  return SaveKey(RecordPath(name, layout.Key, layout.RecordKey, number), record, fields);
}

template <class Record, class Fields>
bool LoadCountedSection(const std::string& name, const CountedSectionLayout<Record>& layout,
                        SchemeProperties& scheme, const Fields& fields) {
  CountedList<Record>& section = scheme.*layout.Section;
  section = {};
  RegistryKey key(false, SectionPath(name, layout.Key).c_str(), HKEY_LOCAL_MACHINE);
  if (!key.Open(false, false)) return false;
  DWORD count = 0;  // what a missing count stands for
  (void)key.GetDword(layout.CountName, &count);
  section.Count = static_cast<std::int32_t>(count);
  for (int n = 1; n <= std::min(section.Count, kMaxRecords); ++n) {
    // A record that could not be read whole, or at all, counts all the same.
    (void)LoadRecord(name, layout, n, section.Records.emplace_back(), fields);
  }
  if (section.Count > kMaxRecords) DropEmptyTail(section.Records);
  return std::ssize(section.Records) == section.Count;
}

template <class Record, class Fields>
bool SaveCountedSection(const std::string& name, const CountedSectionLayout<Record>& layout,
                        const SchemeProperties& scheme, const Fields& fields) {
  const CountedList<Record>& section = scheme.*layout.Section;
  RegistryKey key(true, SectionPath(name, layout.Key).c_str(), HKEY_LOCAL_MACHINE);
  bool complete = key.SetDword(layout.CountName, static_cast<DWORD>(section.Count));
  const int held = static_cast<int>(section.Records.size());
  for (int n = 1; n <= std::min(section.Count, held); ++n) {
    complete &= SaveRecord(name, layout, n, section.Records[static_cast<std::size_t>(n) - 1], fields);
  }
  return complete && section.Count <= held;
}

std::string ToolBarPagePath(const std::string& name, int number) {
  return RecordPath(name, kToolBarsKey, kToolBarPageKey, number);
}

// The writers. Whoever calls them has tested MaySave, once: everything that they write lies below the guard
// key, so no record needs to ask again.
bool WriteFolderDisplay(const std::string& name, const SchemeProperties& scheme) {
  return SaveCountedSection(name, kFolderDisplayLayout, scheme, kFolderRootFields);
}

bool WriteWebLinks(const std::string& name, const SchemeProperties& scheme) {
  return SaveCountedSection(name, kWebLinksLayout, scheme, kWebLinkFields);
}

bool WriteTabSelection(const std::string& name, const SchemeProperties& scheme) {
  return SaveKey(SectionPath(name, kTabSelectionKey), scheme.Tabs, kTabSelectionFields);
}

bool WriteToolBars(const std::string& name, const SchemeProperties& scheme) {
  // Creating a page's key together with its parent would cost a call for every level of the path.
  RegistryKey section(true, SectionPath(name, kToolBarsKey).c_str(), HKEY_LOCAL_MACHINE);
  bool complete = section.Open(false, false);
  int number = 0;
  for (const ToolBarPage& page : scheme.ToolBars) {
    complete &= SaveKey(ToolBarPagePath(name, ++number), page, kToolBarPageFields);
  }
  return complete;
}

bool WriteDefaults(const std::string& name, const SchemeProperties& scheme) {
  return SaveKey(SectionPath(name, kDefaultsKey), scheme.Defaults, kDefaultsSaveFields);
}

bool WriteSchemeProperties(const std::string& name, const SchemeProperties& scheme) {
  RegistryKey key(true, SchemeKeyPath(name).c_str(), HKEY_LOCAL_MACHINE);
  if (!key.SetString("Scheme Name", scheme.Name.c_str(), false)) return false;
  bool complete = WriteFolderDisplay(scheme.Name, scheme);
  complete &= WriteWebLinks(scheme.Name, scheme);
  complete &= WriteTabSelection(scheme.Name, scheme);
  complete &= WriteToolBars(scheme.Name, scheme);
  complete &= WriteDefaults(scheme.Name, scheme);
  return complete;
}

// Schemes are written only on a machine where the shell is present.
bool MaySave(const std::string& name) {
  return IsSchemeName(name) && RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, kProductKey);
}

}  // namespace

bool IsSchemeName(const std::string& name) {
  return !name.empty() && name.size() <= kMaxNameLength &&
         name.find_first_of(std::string("\\\0", 2)) == std::string::npos;
}

bool HasSchemeKey(const std::string& name) {
  return name.empty() ||
         (IsSchemeName(name) && RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, SchemeKeyPath(name).c_str()));
}

bool LoadSchemeProperties(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return false;
  bool complete = LoadFolderDisplay(name, scheme);
  complete &= LoadWebLinks(name, scheme);
  complete &= LoadTabSelection(name, scheme);
  complete &= LoadToolBars(name, scheme);
  complete &= LoadDefaults(name, scheme);
  return complete;
}

bool SaveSchemeProperties(const std::string& name, const SchemeProperties& scheme) {
  return IsSchemeName(scheme.Name) && MaySave(name) && WriteSchemeProperties(name, scheme);
}

bool SaveSchemes(const std::vector<SchemeProperties>& schemes) {
  // This key lies below the one that MaySave asks for: where it opens, the shell is present.
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS);
  if (!key) return false;
  bool complete = true;
  for (const SchemeProperties& scheme : schemes)
    complete &= IsSchemeName(scheme.Name) && WriteSchemeProperties(scheme.Name, scheme);
  return complete;
}

bool LoadFolderDisplay(const std::string& name, SchemeProperties& scheme) {
  return IsSchemeName(name) && LoadCountedSection(name, kFolderDisplayLayout, scheme, kFolderRootFields);
}

bool LoadWebLinks(const std::string& name, SchemeProperties& scheme) {
  return IsSchemeName(name) && LoadCountedSection(name, kWebLinksLayout, scheme, kWebLinkFields);
}

// Unlike the other sections, stops at the first page that cannot be read.
bool LoadTabSelection(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return false;
  scheme.Tabs = {};
  RegistryKey key(false, SectionPath(name, kTabSelectionKey).c_str(), HKEY_LOCAL_MACHINE);
  return key.Open(false, false) &&
         std::all_of(kTabSelectionFields.begin(), kTabSelectionFields.end(),
                     [&](const Field<TabSelection>& field) { return LoadField(key, scheme.Tabs, field); });
}

bool LoadToolBars(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return false;
  scheme.ToolBars = {};
  // Where the section's key is missing, so are its pages: they need no test of it.
  bool complete = true;
  int number = 0;
  for (ToolBarPage& page : scheme.ToolBars)
    complete &= LoadToolBarPage(name, ++number, page);
  return complete;
}

bool LoadDefaults(const std::string& name, SchemeProperties& scheme) {
  if (!IsSchemeName(name)) return false;
  scheme.Defaults = {};
  return LoadKey(SectionPath(name, kDefaultsKey), scheme.Defaults, kDefaultsFields);
}

bool SaveFolderDisplay(const std::string& name, const SchemeProperties& scheme) {
  return MaySave(name) && WriteFolderDisplay(name, scheme);
}

bool SaveWebLinks(const std::string& name, const SchemeProperties& scheme) {
  return MaySave(name) && WriteWebLinks(name, scheme);
}

bool SaveTabSelection(const std::string& name, const SchemeProperties& scheme) {
  return MaySave(name) && WriteTabSelection(name, scheme);
}

bool SaveToolBars(const std::string& name, const SchemeProperties& scheme) {
  return MaySave(name) && WriteToolBars(name, scheme);
}

bool SaveDefaults(const std::string& name, const SchemeProperties& scheme) {
  return MaySave(name) && WriteDefaults(name, scheme);
}

bool LoadFolderRoot(const std::string& name, int number, FolderRoot& root) {
  return IsSchemeName(name) && LoadRecord(name, kFolderDisplayLayout, number, root, kFolderRootFields);
}

bool SaveFolderRoot(const std::string& name, int number, const FolderRoot& root) {
  return MaySave(name) && SaveRecord(name, kFolderDisplayLayout, number, root, kFolderRootFields);
}

bool LoadWebLink(const std::string& name, int number, WebLink& link) {
  return IsSchemeName(name) && LoadRecord(name, kWebLinksLayout, number, link, kWebLinkFields);
}

bool SaveWebLink(const std::string& name, int number, const WebLink& link) {
  return MaySave(name) && SaveRecord(name, kWebLinksLayout, number, link, kWebLinkFields);
}

bool LoadToolBarPage(const std::string& name, int number, ToolBarPage& page) {
  return IsSchemeName(name) && LoadKey(ToolBarPagePath(name, number), page, kToolBarPageFields);
}

bool SaveToolBarPage(const std::string& name, int number, const ToolBarPage& page) {
  return MaySave(name) && SaveKey(ToolBarPagePath(name, number), page, kToolBarPageFields);
}
