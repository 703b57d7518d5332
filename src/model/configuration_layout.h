// The layout of the eight configuration sections, in the registry and in a scheme file, on one page.
//
// Each lies in a key of its own below the scheme's key. Rows stand in the order in which the registry values
// are read, with the label of their record in a file. Where another order is used, or a guard or a label is
// uneven, that is how existing installations and files have it.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/configuration_sections.h"
#include "model/field.h"
#include "registry/registry_paths.h"

// A record of a list may have values in more than one key.
template <class Item>
struct ItemPart {
  const char* SubKey;                                // follows the path of the record's key
  const char* FileSuffix;                            // follows the record's owner in a file
  std::span<const Field<Item>> Fields;               // as they are loaded, saved and written to a file
  std::span<const Field<Item>> ReadFields = Fields;  // as they are read from a file
};

template <class Section, class Item>
struct ItemsLayout {
  std::vector<Item> Section::*List;
  std::uint32_t Section::*Count;
  const char* Word;            // with a number behind it, the record's key and its name in a file
  std::string Item::*KeyName;  // member that holds that name, or null
  const char* FileLabel;       // follows the scheme's name
  const char* Guard;
  std::span<const ItemPart<Item>> Parts;
};

struct NoItems {};

template <class Section, class Items = NoItems>
struct SectionLayout {
  const char* FileLabel;  // follows the scheme's name
  const char* Guard;      // nothing is written unless this key exists
  std::span<const Field<Section>> Fields;
  Items List = {};
  std::span<const Field<Section>> SaveFields = Fields;
  std::span<const Field<Section>> FileFields = Fields;
};

template <class Record, std::size_t First, std::size_t Second>
consteval FieldTable<Record, First + Second> Joined(const FieldTable<Record, First>& first,
                                                    const FieldTable<Record, Second>& second) {
  return [&]<std::size_t... I, std::size_t... J>(std::index_sequence<I...>, std::index_sequence<J...>) {
    return FieldTable<Record, First + Second>{first[I]..., second[J]...};
  }
  (std::make_index_sequence<First>{}, std::make_index_sequence<Second>{});
}

// The table with another label in each of the named rows.
template <class Record, std::size_t Size, std::size_t Count>
consteval FieldTable<Record, Size> Relabelled(
    FieldTable<Record, Size> table, const std::pair<std::string_view, const char*> (&labels)[Count]) {
  for (const auto& [name, label] : labels) {
    const auto field = std::ranges::find(table, name, &Field<Record>::Name);
    if (field == table.end()) throw "no such field";
    field->Label = label;
  }
  return table;
}

// Buttons. The blanks at the ends of labels belong to them.

inline constexpr FieldTable<ToolButton, 10> kMyWorkButtonFields{{
    {"AgentLongMessage", &ToolButton::AgentLongMessage, "Agent Long Message "},
    {"AgentShortMessage", &ToolButton::AgentShortMessage, "Agent Short Message "},
    {"AgentMsg", &ToolButton::AgentMsg, "Agent Msg "},
    {"JScript", &ToolButton::JScript},
    {"Name", &ToolButton::Name},
    {"SupportedDefault", &ToolButton::SupportedDefault, "Supported Default "},
    {"Text", &ToolButton::Text, "Text "},
    {"ToolTip", &ToolButton::ToolTip, "Tooltip "},
    {"URL", &ToolButton::URL, "URL "},
    {"WavFile", &ToolButton::WavFile, "Wave File "},
}};
// Only MyWork has AgentMsg.
inline constexpr auto kButtonFields =
    InOrder(kMyWorkButtonFields,
            std::to_array<std::string_view>({"AgentLongMessage", "AgentShortMessage", "JScript", "Name",
                                             "SupportedDefault", "Text", "ToolTip", "URL", "WavFile"}));
// The tool bar writes two labels without the blank with which it looks them up, so that a button's address
// and sound never come back from a file. Its "Text" has no blank on either side.
inline constexpr auto kToolBarButtonFields =
    Relabelled(kButtonFields, {{"Text", "Text"}, {"URL", "URL"}, {"WavFile", "Wave File"}});
inline constexpr auto kToolBarButtonReadFields = Relabelled(kButtonFields, {{"Text", "Text"}});

inline constexpr FieldTable<ToolButton, 3> kButtonImageFields{{
    {"Selected", &ToolButton::Selected},
    {"Over", &ToolButton::Over},
    {"NotSelected", &ToolButton::NotSelected, "Not Selected"},
}};
inline constexpr ItemPart<ToolButton> kButtonImages{"\\Images", "Images", kButtonImageFields};

inline constexpr ItemPart<ToolButton> kButtonParts[] = {{"", "", kButtonFields}, kButtonImages};
inline constexpr ItemPart<ToolButton> kMyWorkButtonParts[] = {{"", "", kMyWorkButtonFields}, kButtonImages};
inline constexpr ItemPart<ToolButton> kToolBarButtonParts[] = {
    {"", "", kToolBarButtonFields, kToolBarButtonReadFields}, kButtonImages};

template <class Section>
consteval ItemsLayout<Section, ToolButton> ButtonsOf(const char* fileLabel,
                                                     std::span<const ItemPart<ToolButton>> parts) {
  return {
      &Section::ButtonList, &Section::Buttons, "Button", &ToolButton::KeyName, fileLabel, kProductKey, parts};
}

// Sections.

template <class Section>
inline constexpr SectionLayout<Section> kLayout{};

inline constexpr FieldTable<ExecutablesSection, 2> kExecutablesFields{{
    {"Class Selector", &ExecutablesSection::ClassSelector},
    {"End Session", &ExecutablesSection::EndSession},
}};
template <>
inline constexpr SectionLayout<ExecutablesSection> kLayout<ExecutablesSection>{" - Executables", kProductKey,
                                                                               kExecutablesFields};

inline constexpr FieldTable<FolderRoot, 8> kConfiguredRootFields{{
    {"CollapsedIconFile", &FolderRoot::CollapsedIconFile},
    {"ExpandedIconFile", &FolderRoot::ExpandedIconFile},
    {"RootDisplayName", &FolderRoot::RootDisplayName},
    {"RootPath", &FolderRoot::RootPath},
    {"CollapsedIconIndex", &FolderRoot::CollapsedIconIndex},
    {"DenyModify", &FolderRoot::DenyModify},
    {"ExpandedIconIndex", &FolderRoot::ExpandedIconIndex},
    {"FolderLevels", &FolderRoot::FolderLevels},
}};
inline constexpr ItemPart<FolderRoot> kConfiguredRootParts[] = {{"", "", kConfiguredRootFields}};
inline constexpr FieldTable<FolderDisplaySection, 6> kFolderDisplayFields{{
    {"DateFormat", &FolderDisplaySection::DateFormat},
    {"LastSelectedDir", &FolderDisplaySection::LastSelectedDir},
    {"LastSelectedFile", &FolderDisplaySection::LastSelectedFile},
    {"ViewStyle", &FolderDisplaySection::ViewStyle},
    {"RootFoldersCount", &FolderDisplaySection::RootFoldersCount},
    {"UseLargeIcons", &FolderDisplaySection::UseLargeIcons},
}};
template <>
inline constexpr SectionLayout<FolderDisplaySection, ItemsLayout<FolderDisplaySection, FolderRoot>>
    kLayout<FolderDisplaySection>{" - Folder Display",
                                  kSettingsKey,
                                  kFolderDisplayFields,
                                  {&FolderDisplaySection::Roots, &FolderDisplaySection::RootFoldersCount,
                                   "Root", nullptr, " - Folder Display", kSettingsKey, kConfiguredRootParts}};

template <class Section>
using ButtonSectionLayout = SectionLayout<Section, ItemsLayout<Section, ToolButton>>;

inline constexpr FieldTable<MyProgramsSection, 4> kMyProgramsFields{{
    {"Buttons", &MyProgramsSection::Buttons},
    {"CheckSupported", &MyProgramsSection::CheckSupported, "Check Supported"},
    {"Default", &MyProgramsSection::Default},
    {"LatchButton", &MyProgramsSection::LatchButton, "Latch Button"},
}};
template <>
inline constexpr ButtonSectionLayout<MyProgramsSection> kLayout<MyProgramsSection>{
    " - My Programs", kProductKey, kMyProgramsFields,
    ButtonsOf<MyProgramsSection>(" - My Programs", kButtonParts)};

// The rows that MyWork, PaneSelection and SystemMenu begin with.
template <class Section>
inline constexpr FieldTable<Section, 11> kPaneFields{{
    {"Buttons", &Section::Buttons},
    {"CheckSupported", &Section::CheckSupported, "Check Supported"},
    {"Default", &Section::Default},
    {"LatchButton", &Section::LatchButton, "Latch Button"},
    {"LeftMargin", &Section::LeftMargin, "Left Margin"},
    {"TopMargin", &Section::TopMargin, "Top Margin"},
    {"Vertical", &Section::Vertical},
    {"VerticalMenu", &Section::VerticalMenu, "Vertical Menu"},
    {"AlignRight", &Section::AlignRight, "Align Right"},
    {"BGColour", &Section::BGColour, "BG Colour"},
    {"BGImg", &Section::BGImg, "BG Img"},
}};

inline constexpr auto kMyWorkFields =
    Joined(kPaneFields<MyWorkSection>, FieldTable<MyWorkSection, 2>{{
                                           {"VertDarkImg", &MyWorkSection::VertDarkImg, "Vert Dark Image"},
                                           {"VertLightImg", &MyWorkSection::VertLightImg, "Vert Light Image"},
                                       }});
// The only section that is guarded by the Schemes key; its buttons are not.
template <>
inline constexpr ButtonSectionLayout<MyWorkSection> kLayout<MyWorkSection>{
    " - My Work", kSchemesKey, kMyWorkFields, ButtonsOf<MyWorkSection>(" - My Work", kMyWorkButtonParts)};

// The section and its buttons spell the label differently.
template <>
inline constexpr ButtonSectionLayout<PaneSelectionSection> kLayout<PaneSelectionSection>{
    " - PaneSelection", kProductKey, kPaneFields<PaneSelectionSection>,
    ButtonsOf<PaneSelectionSection>(" - Pane Selection", kButtonParts)};

inline constexpr FieldTable<ScreenSettingsSection, 5> kScreenSettingsFields{{
    {"Maximised", &ScreenSettingsSection::Maximised},
    {"StartHeight", &ScreenSettingsSection::StartHeight},
    {"StartWidth", &ScreenSettingsSection::StartWidth},
    {"X_StartPos", &ScreenSettingsSection::X_StartPos, "X Start Position"},
    {"Y_StartPos", &ScreenSettingsSection::Y_StartPos, "Y Start Position"},
}};
template <>
inline constexpr SectionLayout<ScreenSettingsSection> kLayout<ScreenSettingsSection>{
    " - Screen Settings", kProductKey, kScreenSettingsFields};

inline constexpr auto kSystemMenuFields =
    Joined(kPaneFields<SystemMenuSection>,
           FieldTable<SystemMenuSection, 2>{{
               {"BackGroundColour", &SystemMenuSection::BackGroundColour, "Background Colour"},
               {"BackGroundImg", &SystemMenuSection::BackGroundImg, "Background Image"},
           }});
inline constexpr auto kSystemMenuSaveFields =
    InOrder(kSystemMenuFields,
            std::to_array<std::string_view>({"AlignRight", "BackGroundColour", "BackGroundImg", "BGColour",
                                             "BGImg", "Buttons", "CheckSupported", "Default", "LatchButton",
                                             "LeftMargin", "TopMargin", "Vertical", "VerticalMenu"}));
inline constexpr auto kSystemMenuFileFields =
    InOrder(kSystemMenuFields,
            std::to_array<std::string_view>(
                {"Buttons", "CheckSupported", "Default", "LatchButton", "LeftMargin", "TopMargin", "Vertical",
                 "VerticalMenu", "AlignRight", "BGColour", "BGImg", "BackGroundImg", "BackGroundColour"}));
template <>
inline constexpr ButtonSectionLayout<SystemMenuSection> kLayout<SystemMenuSection>{
    " - System Menu",      kProductKey,
    kSystemMenuFields,     ButtonsOf<SystemMenuSection>(" - System Menu", kButtonParts),
    kSystemMenuSaveFields, kSystemMenuFileFields};

inline constexpr FieldTable<ToolBarSection, 7> kToolBarFields{{
    {"Buttons", &ToolBarSection::Buttons},
    {"CheckSupported", &ToolBarSection::CheckSupported, "Check Supported"},
    {"Default", &ToolBarSection::Default},
    {"LatchButton", &ToolBarSection::LatchButton, "Latch Button"},
    {"VerticalMenu", &ToolBarSection::VerticalMenu, "Vertical Menu"},
    {"AlignRight", &ToolBarSection::AlignRight, "Align Right"},
    {"BackGroundImg", &ToolBarSection::BackGroundImg, "Background Image"},
}};
inline constexpr auto kToolBarSaveFields =
    InOrder(kToolBarFields,
            std::to_array<std::string_view>({"AlignRight", "BackGroundImg", "Buttons", "CheckSupported",
                                             "Default", "LatchButton", "VerticalMenu"}));
template <>
inline constexpr ButtonSectionLayout<ToolBarSection> kLayout<ToolBarSection>{
    " - Tool Bar", kProductKey, kToolBarFields, ButtonsOf<ToolBarSection>(" - Tool Bar", kToolBarButtonParts),
    kToolBarSaveFields};
