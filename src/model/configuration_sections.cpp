#include "model/configuration_sections.h"

#include <algorithm>

#include "model/configuration_layout.h"
#include "model/field_records.h"
#include "model/field_storage.h"
#include "model/item_storage.h"
#include "model/scheme_storage.h"
#include "registry/registry_key.h"
#include "registry/registry_paths.h"

namespace {

template <class Section>
std::string SectionPath(const std::string& scheme) {
  return KeyPath({kSchemesKey, scheme, Section::kKeyName});
}

bool IsGuardMissing(const char* guard) { return !RegistryKey::KeyExists(guard); }

// What a section's operations do with its list; below, nothing for a section without one. A caution is due
// for each part that may not be written; the guard is asked once a list, since nothing that is written
// removes it.
template <class Section, class Item>
bool LoadItemsOf(const std::string& path, const SectionItems<Section, Item>& items, Section& section) {
  return LoadItems(path, items.Items, static_cast<std::int32_t>(section.*items.Count), section) ==
         Outcome::kComplete;
}

template <class Section, class Item>
bool SaveItemsOf(const std::string& path, const SectionItems<Section, Item>& items, const Section& section,
                 bool sectionSaved, const SettingsCaution& caution) {
  const std::vector<Item>& list = section.*items.Items.List;
  const bool whole = static_cast<std::int32_t>(section.*items.Count) <= std::ssize(list);
  if (list.empty()) return whole;
  if (!IsGuardMissing(items.Guard)) return !sectionSaved || (SaveItems(path, items.Items, section) && whole);
  ForEachItemPart(items.Items, section,
                  [&](const std::string& name, const ItemPart<Item>& part, const Item&) {
                    if (caution) caution(path + "\\" + name + part.SubKey);
                  });
  return false;
}

template <class Section, class Item>
void WriteItemsOf(const std::string& scheme, const SectionItems<Section, Item>& items,
                  const Section& section) {
  WriteItems(TheRecordStore(), scheme, items.Items, section);
}

template <class Section, class Item>
bool ReadItemsOf(const std::string& scheme, const SectionItems<Section, Item>& items, Section& section) {
  return ReadItems(TheRecordStore(), scheme, items.Items, static_cast<std::int32_t>(section.*items.Count),
                   section);
}

template <class Section>
bool LoadItemsOf(const std::string&, const NoItems&, Section&) {
  return true;
}
template <class Section>
bool SaveItemsOf(const std::string&, const NoItems&, const Section&, bool, const SettingsCaution&) {
  return true;
}
template <class Section>
void WriteItemsOf(const std::string&, const NoItems&, const Section&) {}
template <class Section>
bool ReadItemsOf(const std::string&, const NoItems&, Section&) {
  return true;
}

}  // namespace

template <class Section>
bool ConfigurationSection<Section>::LoadFromRegistry(const std::string& scheme) {
  Self() = Section();
  if (!IsSchemeName(scheme)) return false;
  const auto& layout = kLayout<Section>;
  const std::string path = SectionPath<Section>(scheme);
  const bool complete = LoadKey(path, Self(), layout.Fields) == Outcome::kComplete;
  return LoadItemsOf(path, layout.Items, Self()) && complete;
}

template <class Section>
bool ConfigurationSection<Section>::SaveToRegistry(const std::string& scheme,
                                                   const SettingsCaution& caution) const {
  if (!IsSchemeName(scheme)) return false;
  const auto& layout = kLayout<Section>;
  const std::string path = SectionPath<Section>(scheme);
  const bool guardMissing = IsGuardMissing(layout.Guard);
  if (guardMissing && caution) caution(path);
  const bool complete = !guardMissing && SaveKey(path, Self(), layout.SaveFields);
  return SaveItemsOf(path, layout.Items, Self(), !guardMissing, caution) && complete;
}

template <class Section>
void ConfigurationSection<Section>::WriteToFile(const std::string& scheme) const {
  const auto& layout = kLayout<Section>;
  WriteFields(TheRecordStore(), scheme + layout.FileLabel, Self(), layout.FileFields);
  WriteItemsOf(scheme, layout.Items, Self());
}

template <class Section>
bool ConfigurationSection<Section>::ReadFromFile(const std::string& scheme) {
  Self() = Section();
  const auto& layout = kLayout<Section>;
  ReadFields(TheRecordStore(), scheme + layout.FileLabel, Self(), layout.FileFields);
  return ReadItemsOf(scheme, layout.Items, Self());
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

bool FullConfiguration::SaveToRegistry(const std::string& scheme, const SettingsCaution& caution) const {
  bool complete = true;
  std::apply([&](const auto&... section) { ((complete &= section.SaveToRegistry(scheme, caution)), ...); },
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
