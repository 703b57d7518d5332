#include "model/configuration_sections.h"

#include <windows.h>

#include <algorithm>

#include "model/configuration_layout.h"
#include "model/field_records.h"
#include "model/field_storage.h"
#include "model/scheme_storage.h"
#include "model/settings_caution.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

template <class Section>
std::string SectionPath(const std::string& scheme) {
  return KeyPath({kSchemesKey, scheme, Section::kKeyName});
}

bool IsGuardMissing(const char* guard) { return !RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, guard); }

// Replaces the list by as many records as the section states, each filled by `read` (name, record), whether
// or not all of it could be read.
template <class Section, class Item, class Read>
bool ReadItems(const ItemsLayout<Section, Item>& layout, Section& section, const Read& read) {
  std::vector<Item>& list = section.*layout.List;
  const auto count = static_cast<std::int32_t>(section.*layout.Count);
  for (int n = 1; n <= std::min(count, kMaxRecords); ++n) {
    const std::string name = layout.Word + std::to_string(n);
    Item& item = list.emplace_back();
    if (layout.KeyName) item.*layout.KeyName = name;
    for (const ItemPart<Item>& part : layout.Parts)
      read(name, part, item);
  }
  return std::ssize(list) == count;
}

template <class Section, class Item>
bool LoadItems(const std::string& path, const ItemsLayout<Section, Item>& layout, Section& section) {
  return ReadItems(layout, section, [&](const std::string& name, const ItemPart<Item>& part, Item& item) {
    (void)LoadKey(path + "\\" + name + part.SubKey, item, part.Fields);
  });
}

// The guards are asked once a section, not once a record: nothing that is written could remove them.
template <class Section, class Item>
bool SaveItems(const std::string& path, const ItemsLayout<Section, Item>& layout, const Section& section,
               bool sectionSaved) {
  const std::vector<Item>& list = section.*layout.List;
  const bool guardMissing = !list.empty() && IsGuardMissing(layout.Guard);
  bool complete = static_cast<std::int32_t>(section.*layout.Count) <= std::ssize(list);
  int number = 0;
  for (const Item& item : list) {
    const std::string itemPath = path + "\\" + layout.Word + std::to_string(++number);
    for (const ItemPart<Item>& part : layout.Parts) {
      if (guardMissing) {
        ShowSettingsCaution(itemPath + part.SubKey);
      } else if (sectionSaved) {
        complete &= SaveKey(itemPath + part.SubKey, item, part.Fields);
      }
    }
  }
  return complete && !guardMissing;
}

template <class Section, class Item>
std::string ItemOwner(const std::string& scheme, const ItemsLayout<Section, Item>& layout,
                      const std::string& name, const ItemPart<Item>& part) {
  return scheme + layout.FileLabel + " - " + name + part.FileSuffix;
}

template <class Section, class Item>
void WriteItems(const std::string& scheme, const ItemsLayout<Section, Item>& layout, const Section& section) {
  int number = 0;
  for (const Item& item : section.*layout.List) {
    ++number;
    const std::string name = layout.KeyName ? item.*layout.KeyName : layout.Word + std::to_string(number);
    for (const ItemPart<Item>& part : layout.Parts) {
      WriteFields(TheRecordStore(), ItemOwner(scheme, layout, name, part), item, part.Fields);
    }
  }
}

template <class Section, class Item>
bool ReadFileItems(const std::string& scheme, const ItemsLayout<Section, Item>& layout, Section& section) {
  return ReadItems(layout, section, [&](const std::string& name, const ItemPart<Item>& part, Item& item) {
    ReadFields(TheRecordStore(), ItemOwner(scheme, layout, name, part), item, part.ReadFields);
  });
}

// Sections without a list.
template <class Section>
bool LoadItems(const std::string&, const NoItems&, Section&) {
  return true;
}
template <class Section>
bool SaveItems(const std::string&, const NoItems&, const Section&, bool) {
  return true;
}
template <class Section>
void WriteItems(const std::string&, const NoItems&, const Section&) {}
template <class Section>
bool ReadFileItems(const std::string&, const NoItems&, Section&) {
  return true;
}

}  // namespace

template <class Section>
bool ConfigurationSection<Section>::LoadFromRegistry(const std::string& scheme) {
  Self() = Section();
  if (!IsSchemeName(scheme)) return false;
  const auto& layout = kLayout<Section>;
  const std::string path = SectionPath<Section>(scheme);
  const bool complete = LoadKey(path, Self(), layout.Fields);
  return LoadItems(path, layout.List, Self()) && complete;
}

template <class Section>
bool ConfigurationSection<Section>::SaveToRegistry(const std::string& scheme) const {
  if (!IsSchemeName(scheme)) return false;
  const auto& layout = kLayout<Section>;
  const std::string path = SectionPath<Section>(scheme);
  const bool guardMissing = IsGuardMissing(layout.Guard);
  if (guardMissing) ShowSettingsCaution(path);
  const bool complete = !guardMissing && SaveKey(path, Self(), layout.SaveFields);
  return SaveItems(path, layout.List, Self(), !guardMissing) && complete;
}

template <class Section>
void ConfigurationSection<Section>::WriteToFile(const std::string& scheme) const {
  const auto& layout = kLayout<Section>;
  WriteFields(TheRecordStore(), scheme + layout.FileLabel, Self(), layout.FileFields);
  WriteItems(scheme, layout.List, Self());
}

template <class Section>
bool ConfigurationSection<Section>::ReadFromFile(const std::string& scheme) {
  Self() = Section();
  const auto& layout = kLayout<Section>;
  ReadFields(TheRecordStore(), scheme + layout.FileLabel, Self(), layout.FileFields);
  return ReadFileItems(scheme, layout.List, Self());
}

template class ConfigurationSection<ExecutablesSection>;
template class ConfigurationSection<FolderDisplaySection>;
template class ConfigurationSection<MyProgramsSection>;
template class ConfigurationSection<MyWorkSection>;
template class ConfigurationSection<PaneSelectionSection>;
template class ConfigurationSection<ScreenSettingsSection>;
template class ConfigurationSection<SystemMenuSection>;
template class ConfigurationSection<ToolBarSection>;

bool FullConfiguration::LoadFromRegistry(const std::string& scheme) {
  bool complete = true;
  std::apply([&](auto&... section) { ((complete &= section.LoadFromRegistry(scheme)), ...); },
             SectionsOf(*this));
  return complete;
}

bool FullConfiguration::SaveToRegistry(const std::string& scheme) const {
  bool complete = true;
  std::apply([&](const auto&... section) { ((complete &= section.SaveToRegistry(scheme)), ...); },
             SectionsOf(*this));
  return complete;
}

void FullConfiguration::WriteToFile(const std::string& scheme) const {
  std::apply([&](const auto&... section) { (section.WriteToFile(scheme), ...); }, SectionsOf(*this));
}

bool FullConfiguration::ReadFromFile(const std::string& scheme) {
  bool complete = true;
  std::apply([&](auto&... section) { ((complete &= section.ReadFromFile(scheme)), ...); }, SectionsOf(*this));
  return complete;
}
