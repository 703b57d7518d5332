#include "model/configuration_sections.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <tuple>
#include <utility>

#include "registry/registry_paths.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"
#include "support/imported_calls.h"
#include "support/registry_test.h"
#include "support/scheme_file_bytes.h"

namespace {

// Values that are all different, so that one in another's place is seen.
struct NumberedValues {
  std::string Tree;               // for WriteTree
  std::string File;               // the same as the records of a file
  std::vector<std::string> Keys;  // in the order of their coming

  // Adds a key. Rows are "name in the registry:label in a file", or one for both, with commas between. The
  // n-th row of all holds the text "text n"; behind # it holds the number n, behind * the count 2.
  void Add(const std::string& key, const std::string& rows, const std::string& owner) {
    Keys.push_back(key);
    Tree += "[" + key + "]";
    std::istringstream list(rows);
    for (std::string row; std::getline(list, row, ',');) {
      const std::size_t start = row.find_first_not_of("#*"), colon = row.find(':');
      const int number = row[0] == '*' ? 2 : ++number_;
      char value[16];
      std::snprintf(value, sizeof(value), start == 1 ? "dword:%x" : "\"text %d\"", number);
      Tree += '"' + row.substr(start, colon - start) + "\"=" + value;
      File += Bytes(owner + "|" + row.substr(colon == row.npos ? start : colon + 1) + "|" +
                    (start == 1 ? "" : "text ") + std::to_string(number) + "|");
    }
  }

 private:
  int number_ = 0;
};

// Key, label in a file, and rows in the order of a file. A section with a count (*) has a list.
const std::string kCommon = "*Buttons,#CheckSupported:Check Supported,#Default,#LatchButton:Latch Button";
const std::string kMenu = "#VerticalMenu:Vertical Menu,#AlignRight:Align Right";
const std::string kPane = kCommon + ",#LeftMargin:Left Margin,#TopMargin:Top Margin,#Vertical," + kMenu +
                          ",BGColour:BG Colour,BGImg:BG Img";
const std::tuple<std::string, std::string, std::string> kSections[] = {
    {"Executables", " - Executables", "Class Selector,End Session"},
    {"FolderDisplay", " - Folder Display",
     "DateFormat,LastSelectedDir,LastSelectedFile,ViewStyle,*RootFoldersCount,#UseLargeIcons"},
    {"MyPrograms", " - My Programs", kCommon},
    {"MyWork", " - My Work", kPane + ",VertDarkImg:Vert Dark Image,VertLightImg:Vert Light Image"},
    {"PaneSelection", " - PaneSelection", kPane},
    {"ScreenSettings", " - Screen Settings",
     "#Maximised,#StartHeight,#StartWidth,#X_StartPos:X Start Position,#Y_StartPos:Y Start Position"},
    {"SystemMenu", " - System Menu",
     kPane + ",BackGroundImg:Background Image,BackGroundColour:Background Colour"},
    {"ToolBar", " - Tool Bar", kCommon + "," + kMenu + ",BackGroundImg:Background Image"},
};

std::string ItemRows(const std::string& section) {
  if (section == "FolderDisplay")
    return "CollapsedIconFile,ExpandedIconFile,RootDisplayName,RootPath,#CollapsedIconIndex,#DenyModify,"
           "#ExpandedIconIndex,#FolderLevels";
  return std::string("AgentLongMessage:Agent Long Message ,AgentShortMessage:Agent Short Message ,") +
         (section == "MyWork" ? "AgentMsg:Agent Msg ," : "") +
         "JScript,Name,SupportedDefault:Supported Default ," +
         (section == "ToolBar" ? "Text,ToolTip:Tooltip ,URL,WavFile:Wave File"
                               : "Text:Text ,ToolTip:Tooltip ,URL:URL ,WavFile:Wave File ");
}

NumberedValues DistinctConfiguration() {
  NumberedValues values;
  for (const auto& [key, label, rows] : kSections) {
    values.Add(key, rows, "S" + label);
    if (rows.find('*') == rows.npos) continue;
    const bool hasRoots = key == "FolderDisplay";
    const std::string owner = key == "PaneSelection" ? "S - Pane Selection" : "S" + label;
    for (const std::string item : {hasRoots ? "Root1" : "Button1", hasRoots ? "Root2" : "Button2"}) {
      values.Add(key + "\\" + item, ItemRows(key), owner + " - " + item);
      if (hasRoots) continue;
      values.Add(key + "\\" + item + "\\Images", "Selected,Over,NotSelected:Not Selected",
                 owner + " - " + item + "Images");
    }
  }
  return values;
}

class ConfigurationSectionsTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    TheRecordStore().ClearRecordStore();
    WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("S"), values_.Tree);
    WriteTree(HKEY_LOCAL_MACHINE, kSettingsKey, "");
    EXPECT_TRUE(config_.LoadFromRegistry("S"));
  }

  // Notes what is told.
  SettingsCaution Caution() {
    return [this](const std::string& keyPath) { cautions_.push_back(keyPath); };
  }
  // What was told since the last time.
  void ExpectCautions(const std::vector<std::string>& keys) {
    std::vector<std::string> expected;
    for (const std::string& key : keys)
      expected.push_back(SchemeKeyPath("S") + "\\" + key);
    EXPECT_EQ(expected, std::exchange(cautions_, {}));
  }

  const NumberedValues values_ = DistinctConfiguration();
  FullConfiguration config_;
  std::vector<std::string> cautions_;
};

TEST_F(ConfigurationSectionsTest, EveryValueHasItsPlaceInTheRegistryAndInAFile) {
  EXPECT_TRUE(config_.SaveToRegistry("T", Caution()));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("T"), values_.Tree);

  config_.WriteToFile("S");
  const std::string file = FileBytes("") + values_.File;
  EXPECT_EQ(file, FileBytes(TheRecordStore()));
  TheRecordStore().Fill(SplitRecords(file));
  FullConfiguration read;
  EXPECT_TRUE(read.ReadFromFile("S"));
  for (ToolButton& button : config_.ToolBar.ButtonList)
    button.URL = button.WavFile = "";  // never come back
  EXPECT_EQ(config_, read);
  EXPECT_EQ(read.MyWork.ButtonList[1].KeyName, "Button2");
}

TEST_F(ConfigurationSectionsTest, TwoSectionsAreSavedInTheirOwnOrder) {
  const ImportedCalls calls({IMPORTED(RegSetValueExA)});
  EXPECT_TRUE(SystemMenuSection().SaveToRegistry("T", Caution()));
  EXPECT_TRUE(ToolBarSection().SaveToRegistry("T", Caution()));
  std::string written;
  for (const std::string& line : calls.Lines())
    written += line.substr(line.find(' ') + 1) + ",";
  EXPECT_EQ(
      written,
      "AlignRight,BackGroundColour,BackGroundImg,BGColour,BGImg,Buttons,CheckSupported,Default,LatchButton,"
      "LeftMargin,TopMargin,Vertical,VerticalMenu,"
      "AlignRight,BackGroundImg,Buttons,CheckSupported,Default,LatchButton,VerticalMenu,");
}

// Which key guards what differs from section to section.
TEST_F(ConfigurationSectionsTest, GuardsKeepEachLevelFromBeingWritten) {
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software");
  EXPECT_FALSE(config_.SaveToRegistry("S", Caution()));
  ExpectCautions(values_.Keys);
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");

  WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "");
  EXPECT_FALSE(config_.MyWork.SaveToRegistry("S", Caution()));
  ExpectCautions({"MyWork"});  // its buttons could be written, but are not without it
  ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, "[]");
  EXPECT_FALSE(config_.SaveToRegistry("S", Caution()));
  ExpectCautions({"FolderDisplay", "FolderDisplay\\Root1", "FolderDisplay\\Root2"});
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("T"), values_.Tree);
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, (SchemeKeyPath("T") + "\\FolderDisplay").c_str());
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("S"), DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("T")));
}

}  // namespace
