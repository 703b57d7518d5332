// The layout of the eight configuration sections, in the registry and in a scheme file, on one page.
//
// Each lies in a key of its own below the scheme's key. Rows stand in the order in which the registry values
// are read, with the label of their record in a file. Where another order is used, or a guard or a label is
// uneven, that is how existing installations and files have it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "model/configuration_sections.h"
#include "model/field.h"
#include "model/item_list.h"
#include "registry/registry_paths.h"

// What a section's list of items adds to its layout.
template <class Section, class Item>
struct SectionItems {
  std::uint32_t Section::*Count;  // the number of items, a value of the section
  const char* Guard;              // no item is written unless this key exists
  ItemListLayout<Section, Item> Items;
};

struct NoItems {};

template <class Section, class List = NoItems>
struct SectionLayout {
  const char* FileLabel;  // follows the scheme's name
  const char* Guard;      // nothing is written unless this key exists
  std::span<const Field<Section>> Fields;
  List Items = {};
  std::span<const Field<Section>> SaveFields = Fields;
  std::span<const Field<Section>> FileFields = Fields;
};

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
    Without(kMyWorkButtonFields, std::to_array<std::string_view>({"AgentMsg"}));
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
    {"", "", kButtonFields, kToolBarButtonFields, kToolBarButtonReadFields}, kButtonImages};

// `fileLabel` stands between the scheme's name and the button's.
template <class Section>
consteval SectionItems<Section, ToolButton> ButtonsOf(const char* fileLabel,
                                                      std::span<const ItemPart<ToolButton>> parts) {
  return {&Section::Buttons,
          kProductKey,
          {&Section::ButtonList, "Button", &ToolButton::KeyName, fileLabel, parts}};
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
inline constexpr SectionLayout<FolderDisplaySection, SectionItems<FolderDisplaySection, FolderRoot>>
    kLayout<FolderDisplaySection>{
        " - Folder Display",
        kSettingsKey,
        kFolderDisplayFields,
        {&FolderDisplaySection::RootFoldersCount,
         kSettingsKey,
         {&FolderDisplaySection::Roots, "Root", nullptr, " - Folder Display - ", kConfiguredRootParts}}};

template <class Section>
using ButtonSectionLayout = SectionLayout<Section, SectionItems<Section, ToolButton>>;

inline constexpr FieldTable<MyProgramsSection, 4> kMyProgramsFields{{
    {"Buttons", &MyProgramsSection::Buttons},
    {"CheckSupported", &MyProgramsSection::CheckSupported, "Check Supported"},
    {"Default", &MyProgramsSection::Default},
    {"LatchButton", &MyProgramsSection::LatchButton, "Latch Button"},
}};
template <>
inline constexpr ButtonSectionLayout<MyProgramsSection> kLayout<MyProgramsSection>{
    " - My Programs", kProductKey, kMyProgramsFields,
    ButtonsOf<MyProgramsSection>(" - My Programs - ", kButtonParts)};

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
    " - My Work", kSchemesKey, kMyWorkFields, ButtonsOf<MyWorkSection>(" - My Work - ", kMyWorkButtonParts)};

// The section and its buttons spell the label differently.
template <>
inline constexpr ButtonSectionLayout<PaneSelectionSection> kLayout<PaneSelectionSection>{
    " - PaneSelection", kProductKey, kPaneFields<PaneSelectionSection>,
    ButtonsOf<PaneSelectionSection>(" - Pane Selection - ", kButtonParts)};

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
    kSystemMenuFields,     ButtonsOf<SystemMenuSection>(" - System Menu - ", kButtonParts),
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
    " - Tool Bar", kProductKey, kToolBarFields,
    ButtonsOf<ToolBarSection>(" - Tool Bar - ", kToolBarButtonParts), kToolBarSaveFields};
