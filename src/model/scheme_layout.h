// The layout of a scheme, in the registry and in a scheme file, on one page.
//
// Below, S is the scheme's key: the Schemes key, a backslash, and the scheme's name. Rows stand in the order
// in which the registry values are read. Where another order is used, it has a list of its own below its
// table.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "model/field.h"
#include "model/item_list.h"
#include "model/scheme_properties.h"

// What a file holds beside the properties: how many schemes there are, the name of each under its number
// counted from 0, and the descriptions: under their numbers, counted from 1, the names, and under each name
// its description.
inline constexpr char kSchemeCountLabel[] = "Scheme Count";
inline constexpr char kSchemeCountName[] = "The number of schemes";
inline constexpr char kSchemeNameName[] = "Name of scheme";
inline constexpr char kConfigHiveLabel[] = "Config Hive";
inline std::string SchemeKey(std::size_t index) { return "Scheme" + std::to_string(index); }
inline std::string ConfigKey(std::size_t number) { return "Config" + std::to_string(number); }

inline constexpr FieldTable<FolderRoot, 9> kFolderRootFields{{
    {"RootDisplayName", &FolderRoot::RootDisplayName},
    {"RootPath", &FolderRoot::RootPath},
    {"FolderLevels", &FolderRoot::FolderLevels},
    {"CollapsedIconFile", &FolderRoot::CollapsedIconFile},
    {"ExpandedIconFile", &FolderRoot::ExpandedIconFile},
    {"LongToolTip", &FolderRoot::LongToolTip},
    {"ShortToolTip", &FolderRoot::ShortToolTip},
    {"Wav File", &FolderRoot::WavFile},
    {"DenyModify", &FolderRoot::DenyModify},
}};
inline constexpr auto kFolderRootFileFields = InOrder(
    kFolderRootFields, std::to_array<std::string_view>(
                           {"CollapsedIconFile", "ExpandedIconFile", "RootDisplayName", "RootPath",
                            "DenyModify", "FolderLevels", "LongToolTip", "ShortToolTip", "Wav File"}));

inline constexpr FieldTable<WebLink, 6> kWebLinkFields{{
    {"DisplayName", &WebLink::DisplayName},
    {"URL", &WebLink::URL},
    {"IconFile", &WebLink::IconFile},
    {"LongToolTip", &WebLink::LongToolTip},
    {"ShortToolTip", &WebLink::ShortToolTip},
    {"Wav File", &WebLink::WavFile},
}};

// A section that is a count and a list. The registry and the file spell the same things differently, and the
// links' count stands under a label of its own in the file; both are what existing installations and files
// hold.
template <class Item>
struct CountedSectionLayout {
  const char* Key;             // S\Key holds the count, S\Key\Word n item n
  const char* CountName;       // a REG_DWORD
  const char* FileCountLabel;  // follows the scheme's name
  const char* FileCountName;
  ItemListLayout<SchemeProperties, Item> Items;
};

inline constexpr ItemPart<FolderRoot> kFolderRootParts[] = {
    {"", "", kFolderRootFields, kFolderRootFileFields}};
inline constexpr CountedSectionLayout<FolderRoot> kFolderDisplayLayout{
    "FolderDisplay",
    "RootFolderCount",
    " - FolderDisplay",
    "RootFoldersCount",
    {&SchemeProperties::FolderRoots, "Root ", nullptr, " - FolderDisplay - ", kFolderRootParts},
};

inline constexpr ItemPart<WebLink> kWebLinkParts[] = {{"", "", kWebLinkFields}};
inline constexpr CountedSectionLayout<WebLink> kWebLinksLayout{
    "WebLinks",
    "WebLinksCount",
    " - Folder Display",
    "WeblinksCount",
    {&SchemeProperties::WebLinks, "WebLink ", nullptr, " - Weblinks - ", kWebLinkParts},
};

inline constexpr char kTabSelectionKey[] = "TabSelection";
inline constexpr char kTabsFileLabel[] = " - Tabs";
inline constexpr FieldTable<TabSelection, 3> kTabSelectionFields{{
    {"Page1", &TabSelection::Page1},
    {"Page2", &TabSelection::Page2},
    {"Page3", &TabSelection::Page3},
}};

inline constexpr char kToolBarsKey[] = "ToolBars";
inline constexpr char kToolBarPageKey[] = "Page ";
inline constexpr char kToolBarPageFileLabel[] = " - ToolBars - Page ";
inline constexpr FieldTable<ToolBarPage, 16> kToolBarPageFields{{
    {"Back", &ToolBarPage::Back},
    {"Forward", &ToolBarPage::Forward},
    {"Up", &ToolBarPage::Up},
    {"Rename", &ToolBarPage::Rename},
    {"New", &ToolBarPage::New},
    {"Cut", &ToolBarPage::Cut},
    {"Copy", &ToolBarPage::Copy},
    {"Paste", &ToolBarPage::Paste},
    {"Delete", &ToolBarPage::Delete},
    {"Undo", &ToolBarPage::Undo},
    {"Print", &ToolBarPage::Print},
    {"Refresh", &ToolBarPage::Refresh},
    {"Icon", &ToolBarPage::Icon},
    {"View", &ToolBarPage::View},
    {"Help", &ToolBarPage::Help},
    {"Side", &ToolBarPage::Side},
}};
inline constexpr auto kToolBarPageFileFields = InOrder(
    kToolBarPageFields,
    std::to_array<std::string_view>({"Back", "Copy", "Cut", "Delete", "Forward", "Help", "Icon", "New",
                                     "Paste", "Print", "Refresh", "Rename", "Side", "Undo", "Up", "View"}));

inline constexpr char kDefaultsKey[] = "Defaults";
inline constexpr char kDefaultsFileLabel[] = " - Defaults";
inline constexpr FieldTable<SchemeDefaults, 7> kDefaultsFields{{
    {"DefaultView", &SchemeDefaults::DefaultView},
    {"DefaultIconSize", &SchemeDefaults::DefaultIconSize},
    {"DefaultFirstTab", &SchemeDefaults::DefaultFirstTab},
    {"ShortToolTips", &SchemeDefaults::ShortToolTips},
    {"Silent", &SchemeDefaults::Silent},
    {"Context Menu", &SchemeDefaults::ContextMenu},
    {"Options Menu", &SchemeDefaults::OptionsMenu},
}};
inline constexpr auto kDefaultsSaveFields =
    InOrder(kDefaultsFields,
            std::to_array<std::string_view>({"DefaultView", "DefaultIconSize", "DefaultFirstTab",
                                             "ShortToolTips", "Context Menu", "Silent", "Options Menu"}));
