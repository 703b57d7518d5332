#include "model/property_records.h"

#include <algorithm>
#include <string>
#include <variant>

#include "model/field_records.h"
#include "model/scheme_layout.h"

namespace {

template <class Item>
void WriteCountedSection(RecordStore& store, const SchemeProperties& scheme,
                         const CountedSectionLayout<Item>& layout) {
  const auto count = static_cast<std::int32_t>((scheme.*layout.Items.List).size());
  store.WriteIntRecord(scheme.Name + layout.FileCountLabel, layout.FileCountName, count);
  WriteItems(store, scheme.Name, layout.Items, scheme);
}

template <class Item>
void ReadCountedSection(RecordStore& store, SchemeProperties& scheme,
                        const CountedSectionLayout<Item>& layout) {
  const std::int32_t stated = store.ReadIntRecord(scheme.Name + layout.FileCountLabel, layout.FileCountName);
  // Damage to the count costs no more than it hit: the list is what could be read.
  (void)ReadItems(store, scheme.Name, layout.Items, stated, scheme);
}

std::string ToolBarPageLabel(const SchemeProperties& scheme, std::size_t page) {
  return scheme.Name + kToolBarPageFileLabel + std::to_string(page + 1);
}

}  // namespace

void WritePropertyRecords(RecordStore& store, const SchemeProperties& scheme) {
  WriteCountedSection(store, scheme, kFolderDisplayLayout);
  WriteCountedSection(store, scheme, kWebLinksLayout);
  for (const auto& field : kTabSelectionFields) {
    const bool flag = scheme.Tabs.*std::get<Field<TabSelection>::Number>(field.Member) != 0;
    store.WriteIntRecord(scheme.Name + kTabsFileLabel, field.Label, flag);
  }
  for (std::size_t page = 0; page < scheme.ToolBars.size(); ++page) {
    WriteFields(store, ToolBarPageLabel(scheme, page), scheme.ToolBars[page], kToolBarPageFileFields);
  }
  WriteFields(store, scheme.Name + kDefaultsFileLabel, scheme.Defaults, kDefaultsFields);
}

void ReadPropertyRecords(RecordStore& store, SchemeProperties& scheme) {
  ReadCountedSection(store, scheme, kFolderDisplayLayout);
  ReadCountedSection(store, scheme, kWebLinksLayout);
  ReadFields(store, scheme.Name + kTabsFileLabel, scheme.Tabs, kTabSelectionFields);
  for (std::size_t page = 0; page < scheme.ToolBars.size(); ++page) {
    ReadFields(store, ToolBarPageLabel(scheme, page), scheme.ToolBars[page], kToolBarPageFileFields);
  }
  ReadFields(store, scheme.Name + kDefaultsFileLabel, scheme.Defaults, kDefaultsFields);
}

void WriteSchemeCount(RecordStore& store, std::size_t count) {
  store.WriteIntRecord(kSchemeCountLabel, kSchemeCountName, static_cast<std::int32_t>(count));
}

std::int32_t ReadSchemeCount(RecordStore& store) {
  const std::int32_t count = store.ReadIntRecord(kSchemeCountLabel, kSchemeCountName);
  return std::clamp<std::int32_t>(count, 0, static_cast<std::int32_t>(store.Count()));
}

void WriteSchemes(RecordStore& store, const std::vector<SchemeProperties>& schemes,
                  const std::function<void()>& afterEach) {
  for (std::size_t i = 0; i < schemes.size(); ++i) {
    store.WriteStringRecord(SchemeKey(i), kSchemeNameName, schemes[i].Name);
    WritePropertyRecords(store, schemes[i]);
    afterEach();
  }
}

std::vector<SchemeProperties> ReadSchemes(RecordStore& store, std::int32_t count,
                                          const std::function<void()>& afterEach) {
  std::vector<SchemeProperties> schemes;
  for (std::int32_t i = 0; i < count; ++i) {
    if (store.ReadCursor() > store.Count() + kMaxMissingRecords) break;
    SchemeProperties& scheme = schemes.emplace_back();
    scheme.Name = store.ReadStringRecord(SchemeKey(i), kSchemeNameName);
    ReadPropertyRecords(store, scheme);
    afterEach();
  }
  return schemes;
}
