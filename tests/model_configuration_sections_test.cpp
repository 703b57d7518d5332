#include "model/configuration_sections.h"

#include <gtest/gtest.h>

#include <sstream>

#include "registry/registry_paths.h"
#include "schemefile/record_splitter.h"
#include "schemefile/record_store.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/scheme_file_bytes.h"

namespace {

// Every value of a section, in the order of its records: "registry name:file label", numbers marked with #.
// Where the two are the same, one.
struct SectionCase {
  std::string Key;
  std::string Label;
  std::string Rows;
  std::string RecordLabel;  // of the section's list, if it has one
};

const std::string kCommonRows = "#Buttons,#CheckSupported:Check Supported,#Default,#LatchButton:Latch Button";
const std::string kPaneRows =
    kCommonRows +
    ",#LeftMargin:Left Margin,#TopMargin:Top Margin,#Vertical,#VerticalMenu:Vertical "
    "Menu,#AlignRight:Align Right,BGColour:BG Colour,BGImg:BG Img";
const SectionCase kSections[] = {
    {"Executables", " - Executables", "Class Selector,End Session", ""},
    {"FolderDisplay", " - Folder Display",
     "DateFormat,LastSelectedDir,LastSelectedFile,ViewStyle,#RootFoldersCount,#UseLargeIcons",
     " - Folder Display - "},
    {"MyPrograms", " - My Programs", kCommonRows, " - My Programs - "},
    {"MyWork", " - My Work", kPaneRows + ",VertDarkImg:Vert Dark Image,VertLightImg:Vert Light Image",
     " - My Work - "},
    {"PaneSelection", " - PaneSelection", kPaneRows, " - Pane Selection - "},
    {"ScreenSettings", " - Screen Settings",
     "#Maximised,#StartHeight,#StartWidth,#X_StartPos:X Start Position,#Y_StartPos:Y Start Position", ""},
    {"SystemMenu", " - System Menu",
     kPaneRows + ",BackGroundImg:Background Image,BackGroundColour:Background Colour", " - System Menu - "},
    {"ToolBar", " - Tool Bar",
     kCommonRows + ",#VerticalMenu:Vertical Menu,#AlignRight:Align Right,BackGroundImg:Background Image",
     " - Tool Bar - "},
};

const std::string kRootRows =
    "CollapsedIconFile,ExpandedIconFile,RootDisplayName,RootPath,#CollapsedIconIndex,#DenyModify,"
    "#ExpandedIconIndex,#FolderLevels";
std::string ButtonRows(const std::string& section) {
  const bool toolBar = section == "ToolBar";
  return std::string("AgentLongMessage:Agent Long Message ,AgentShortMessage:Agent Short Message ,") +
         (section == "MyWork" ? "AgentMsg:Agent Msg ," : "") +
         "JScript,Name,SupportedDefault:Supported Default ," +
         (toolBar ? "Text,ToolTip:Tooltip ,URL,WavFile:Wave File"
                  : "Text:Text ,ToolTip:Tooltip ,URL:URL ,WavFile:Wave File ");
}

// A configuration in which every value is another, as the registry and as a file hold it.
struct Golden {
  std::string Tree;
  std::string File = Bytes("Kelvanstead Scheme Manager!|");

  Golden() {
    for (const SectionCase& section : kSections) {
      Add(section.Key, "S" + section.Label, section.Rows);
      if (section.RecordLabel.empty()) continue;
      const bool hasRoots = section.Key == "FolderDisplay";
      for (const std::string n : {"1", "2"}) {
        const std::string name = (hasRoots ? "Root" : "Button") + n;
        const std::string key = section.Key + "\\" + name, owner = "S" + section.RecordLabel + name;
        Add(key, owner, hasRoots ? kRootRows : ButtonRows(section.Key));
        if (!hasRoots) Add(key + "\\Images", owner + "Images", "Selected,Over,NotSelected:Not Selected");
      }
    }
  }

 private:
  void Add(const std::string& key, const std::string& owner, const std::string& rows) {
    Tree += "[" + key + "]";
    std::istringstream list(rows);
    for (std::string row; std::getline(list, row, ',');) {
      const bool isNumber = row[0] == '#';
      if (isNumber) row.erase(0, 1);
      const std::string name = row.substr(0, row.find(':')), label = row.substr(row.find(':') + 1);
      const int number = name == "Buttons" || name == "RootFoldersCount" ? 2 : ++number_;
      std::ostringstream hex;
      hex << std::hex << number;
      const std::string text = (isNumber ? "" : "text ") + std::to_string(number);
      Tree += '"' + name + (isNumber ? "\"=dword:" + hex.str() : "\"=\"" + text + '"');
      File += Bytes(owner + "|" + label + "|" + text + "|");
    }
  }

  int number_ = 100;
};

class ConfigurationSectionsTest : public RegistryTest {
 protected:
  ConfigurationSectionsTest() { TheRecordStore().ClearRecordStore(); }

  void ExpectCaution(const std::string& path) {
    script_.ExpectMessage("Settings Problem",
                          "Caution: There has been a problem setting " + SchemeKeyPath("S") + "\\" + path);
  }

  Golden golden_;
  FullConfiguration config_;
  DialogScript script_;
};

TEST_F(ConfigurationSectionsTest, EveryValueHasItsPlaceInTheRegistryAndInAFile) {
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("S"), golden_.Tree);
  WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, "");
  EXPECT_TRUE(config_.LoadFromRegistry("S") && config_.SaveToRegistry("T"));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("T"), golden_.Tree);

  config_.WriteToFile("S");
  EXPECT_EQ(golden_.File, FileBytes(TheRecordStore()));
  TheRecordStore().Fill(SplitRecords(golden_.File));
  FullConfiguration read;
  EXPECT_TRUE(read.ReadFromFile("S"));
  for (ToolButton& button : config_.ToolBar.ButtonList)
    button.URL = button.WavFile = "";  // never come back
  EXPECT_EQ(config_, read);
}

TEST_F(ConfigurationSectionsTest, StatedCountsAreBounded) {
  WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, "");
  const std::tuple<std::int32_t, std::size_t, bool> cases[] = {
      {0, 0, true}, {2, 2, true}, {1000, 1000, true}, {1001, 1000, false}, {-1, 0, false}};
  for (const auto& [stated, records, reads] : cases) {
    SCOPED_TRACE(stated);
    TheRecordStore().Fill({{"S - Folder Display", "RootFoldersCount", std::to_string(stated)}});
    FolderDisplaySection read;
    EXPECT_EQ(reads, read.ReadFromFile("S"));
    EXPECT_EQ(records, read.Roots.size());
    read.Roots.clear();
    EXPECT_EQ(stated <= 0, read.SaveToRegistry("S"));
    EXPECT_EQ(reads, read.LoadFromRegistry("S"));
    EXPECT_EQ(records, read.Roots.size());
  }
}

// Which key guards what differs from section to section.
TEST_F(ConfigurationSectionsTest, GuardsKeepEachLevelFromBeingWritten) {
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("S"), golden_.Tree);
  EXPECT_TRUE(config_.LoadFromRegistry("S"));
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software");
  for (const SectionCase& section : kSections) {
    const std::string& key = section.Key;
    ExpectCaution(key);
    for (const std::string n : {"1", "2"}) {
      if (key == "FolderDisplay") ExpectCaution(key + "\\Root" + n);
      if (section.RecordLabel.empty() || key == "FolderDisplay") continue;
      ExpectCaution(key + "\\Button" + n);
      ExpectCaution(key + "\\Button" + n + "\\Images");
    }
  }
  EXPECT_FALSE(config_.SaveToRegistry("S"));
  EXPECT_EQ(0u, script_.Remaining());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");

  WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "");
  ExpectCaution("MyWork");  // its buttons could be written, but are not without it
  EXPECT_FALSE(config_.MyWork.SaveToRegistry("S"));
  ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, "[]");
  for (const char* path : {"FolderDisplay", "FolderDisplay\\Root1", "FolderDisplay\\Root2"})
    ExpectCaution(path);
  EXPECT_FALSE(config_.SaveToRegistry("S"));
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("T"), golden_.Tree);
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, (SchemeKeyPath("T") + "\\FolderDisplay").c_str());
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("T")),
            DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("S")));
}

}  // namespace
