// The eight sections of a scheme that configure the shell's own windows, as far as the scheme's editor does
// not show them. Their layout is in configuration_layout.h.
//
// Every section has the same four operations, on the section of the scheme that they are given. A fresh
// section has empty texts, zeros and empty lists. The stated count of a list is a value of the section, kept
// and saved as it is held; no more than kMaxItems items are read.
#pragma once

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "model/scheme_properties.h"
#include "model/settings_caution.h"

template <class Section>
class ConfigurationSection {
 public:
  // Starts from a fresh section and reads what is there. True when the section's key and all its values were
  // there and the list has as many items as stated.
  bool LoadFromRegistry(const std::string& scheme);

  // Writes the section and every item of its list, and deletes nothing. Each level has a guard: a key that
  // must exist. Where it does not, `caution` is told of the level's key, and the level is not written. Where
  // the section may not be written its items are not either. True when everything was written and the list
  // has no fewer items than stated.
  bool SaveToRegistry(const std::string& scheme, const SettingsCaution& caution) const;

  // Appends the section's records to the process's record store.
  void WriteToFile(const std::string& scheme) const;

  // Reads the section from the record store. A missing record yields an empty text or 0. True when the list
  // has as many items as stated.
  bool ReadFromFile(const std::string& scheme);

  bool operator==(const ConfigurationSection&) const = default;

 private:
  Section& Self() { return static_cast<Section&>(*this); }
  const Section& Self() const { return static_cast<const Section&>(*this); }
};

struct ToolButton {
  std::string KeyName;  // "Button" and its number, set by loading and reading; its name in a scheme file
  std::string AgentLongMessage;
  std::string AgentMsg;  // stored by MyWork only
  std::string AgentShortMessage;
  std::string JScript;
  std::string Name;
  std::string SupportedDefault;
  std::string Text;
  std::string ToolTip;
  std::string URL;
  std::string WavFile;
  std::string NotSelected;
  std::string Selected;
  std::string Over;

  bool operator==(const ToolButton&) const = default;
};

struct ExecutablesSection : ConfigurationSection<ExecutablesSection> {
  static constexpr char kKeyName[] = "Executables";
  std::string ClassSelector;
  std::string EndSession;

  bool operator==(const ExecutablesSection&) const = default;
};

struct FolderDisplaySection : ConfigurationSection<FolderDisplaySection> {
  static constexpr char kKeyName[] = "FolderDisplay";
  std::string DateFormat;
  std::string LastSelectedDir;
  std::string LastSelectedFile;
  std::string ViewStyle;
  std::uint32_t RootFoldersCount = 0;
  std::uint32_t UseLargeIcons = 0;
  std::vector<FolderRoot> Roots;

  bool operator==(const FolderDisplaySection&) const = default;
};

struct MyProgramsSection : ConfigurationSection<MyProgramsSection> {
  static constexpr char kKeyName[] = "MyPrograms";
  std::uint32_t Buttons = 0;
  std::uint32_t CheckSupported = 0;
  std::uint32_t Default = 0;
  std::uint32_t LatchButton = 0;
  std::vector<ToolButton> ButtonList;

  bool operator==(const MyProgramsSection&) const = default;
};

// What three of the sections have in common.
struct PaneSettings {
  std::uint32_t Buttons = 0;
  std::uint32_t CheckSupported = 0;
  std::uint32_t Default = 0;
  std::uint32_t LatchButton = 0;
  std::uint32_t LeftMargin = 0;
  std::uint32_t TopMargin = 0;
  std::uint32_t Vertical = 0;
  std::uint32_t VerticalMenu = 0;
  std::uint32_t AlignRight = 0;
  std::string BGColour;
  std::string BGImg;
  std::vector<ToolButton> ButtonList;

  bool operator==(const PaneSettings&) const = default;
};

struct MyWorkSection : PaneSettings, ConfigurationSection<MyWorkSection> {
  static constexpr char kKeyName[] = "MyWork";
  std::string VertDarkImg;
  std::string VertLightImg;

  bool operator==(const MyWorkSection&) const = default;
};

struct PaneSelectionSection : PaneSettings, ConfigurationSection<PaneSelectionSection> {
  static constexpr char kKeyName[] = "PaneSelection";

  bool operator==(const PaneSelectionSection&) const = default;
};

struct ScreenSettingsSection : ConfigurationSection<ScreenSettingsSection> {
  static constexpr char kKeyName[] = "ScreenSettings";
  std::uint32_t Maximised = 0;
  std::uint32_t StartHeight = 0;
  std::uint32_t StartWidth = 0;
  std::uint32_t X_StartPos = 0;
  std::uint32_t Y_StartPos = 0;

  bool operator==(const ScreenSettingsSection&) const = default;
};

struct SystemMenuSection : PaneSettings, ConfigurationSection<SystemMenuSection> {
  static constexpr char kKeyName[] = "SystemMenu";
  std::string BackGroundColour;
  std::string BackGroundImg;

  bool operator==(const SystemMenuSection&) const = default;
};

struct ToolBarSection : ConfigurationSection<ToolBarSection> {
  static constexpr char kKeyName[] = "ToolBar";
  std::uint32_t Buttons = 0;
  std::uint32_t CheckSupported = 0;
  std::uint32_t Default = 0;
  std::uint32_t LatchButton = 0;
  std::uint32_t VerticalMenu = 0;
  std::uint32_t AlignRight = 0;
  std::string BackGroundImg;
  std::vector<ToolButton> ButtonList;

  bool operator==(const ToolBarSection&) const = default;
};

// One of each. The operations run over all sections in the order below, each even if an earlier one failed;
// true when none failed.
class FullConfiguration {
 public:
  bool LoadFromRegistry(const std::string& scheme);
  bool SaveToRegistry(const std::string& scheme, const SettingsCaution& caution) const;
  void WriteToFile(const std::string& scheme) const;
  bool ReadFromFile(const std::string& scheme);

  bool operator==(const FullConfiguration&) const = default;

  std::string Name;
  ExecutablesSection Executables;
  FolderDisplaySection FolderDisplay;
  MyProgramsSection MyPrograms;
  MyWorkSection MyWork;
  PaneSelectionSection PaneSelection;
  ScreenSettingsSection ScreenSettings;
  SystemMenuSection SystemMenu;
  ToolBarSection ToolBar;
  // Two texts more that belong to the configuration; nothing stores them.
  std::string Text1;
  std::string Text2;

 private:
  static auto SectionsOf(auto& self) {
    return std::tie(self.Executables, self.FolderDisplay, self.MyPrograms, self.MyWork, self.PaneSelection,
                    self.ScreenSettings, self.SystemMenu, self.ToolBar);
  }
};
