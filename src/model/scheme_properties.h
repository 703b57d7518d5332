// A scheme's editable properties, as plain data.
//
// Fields that mirror a registry value carry the value's name. A fresh object holds empty texts and zeros.
// Nothing here knows of Windows; loading and saving is in scheme_storage.h, the file records in
// property_records.h, and the layout of both as tables in scheme_layout.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A folder that the shell offers for browsing. The two icon indexes exist in the FolderDisplay
// configuration section only, which shares this type; the scheme's own layout has no place for them.
struct FolderRoot {
  std::string RootDisplayName;
  std::string RootPath;
  std::uint32_t FolderLevels = 0;  // folder levels that users may create
  std::string CollapsedIconFile;
  std::string ExpandedIconFile;
  std::string LongToolTip;
  std::string ShortToolTip;
  std::string WavFile;
  std::uint32_t DenyModify = 0;  // non-zero: users may not change the contents
  std::uint32_t CollapsedIconIndex = 0;
  std::uint32_t ExpandedIconIndex = 0;

  bool operator==(const FolderRoot&) const = default;
};

struct WebLink {
  std::string DisplayName;
  std::string URL;
  std::string IconFile;
  std::string LongToolTip;
  std::string ShortToolTip;
  std::string WavFile;

  bool operator==(const WebLink&) const = default;
};

// The buttons of one toolbar page; non-zero shows the button.
struct ToolBarPage {
  std::uint32_t Back = 0;
  std::uint32_t Forward = 0;
  std::uint32_t New = 0;
  std::uint32_t Rename = 0;
  std::uint32_t Cut = 0;
  std::uint32_t Copy = 0;
  std::uint32_t Paste = 0;
  std::uint32_t Delete = 0;
  std::uint32_t Undo = 0;
  std::uint32_t Print = 0;
  std::uint32_t Refresh = 0;
  std::uint32_t Icon = 0;
  std::uint32_t View = 0;
  std::uint32_t Help = 0;
  std::uint32_t Up = 0;
  std::uint32_t Side = 0;

  bool operator==(const ToolBarPage&) const = default;
};

// Which tabs the shell shows, as raw numbers: Page1 is Programs, Page2 My Files, Page3 Links.
struct TabSelection {
  std::uint32_t Page1 = 0;
  std::uint32_t Page2 = 0;
  std::uint32_t Page3 = 0;

  bool operator==(const TabSelection&) const = default;
};

struct SchemeDefaults {
  std::string DefaultView;  // "tree1", "tree2", "icons" or "details"
  std::uint32_t DefaultIconSize = 0;
  std::uint32_t DefaultFirstTab = 0;
  std::uint32_t ShortToolTips = 0;
  std::uint32_t Silent = 0;
  std::uint32_t ContextMenu = 0;
  std::uint32_t OptionsMenu = 0;

  bool operator==(const SchemeDefaults&) const = default;
};

struct SchemeProperties {
  std::string Name;
  std::string Description;  // lives beside the scheme's key, not in it: see registry/catalogue/
  std::vector<FolderRoot> FolderRoots;
  std::vector<WebLink> WebLinks;
  TabSelection Tabs;
  std::array<ToolBarPage, 3> ToolBars;
  SchemeDefaults Defaults;

  bool operator==(const SchemeProperties&) const = default;
};

// Whether `name` can name a scheme's key: not empty, no backslash, no NUL, at most the 255 characters that
// the name of a registry key can have.
inline bool IsSchemeName(std::string_view name) {
  constexpr std::size_t kMaxNameLength = 255;
  return !name.empty() && name.size() <= kMaxNameLength &&
         name.find_first_of(std::string_view("\\\0", 2)) == std::string_view::npos;
}

// The scheme that completely new schemes are copied from.
inline constexpr char kDefaultUserScheme[] = "Default User";
