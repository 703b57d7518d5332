#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "app/exchange_commands.h"
#include "controls/progress_bar_ids.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "schemefile/records/record_store.h"
#include "schemefile/scheme_file.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/scheme_file_bytes.h"
#include "support/scratch_folder.h"

namespace {

const std::string kLeo = "L\xE9o - Tabs";

SchemeProperties Scheme(const std::string& name) {
  SchemeProperties scheme;
  scheme.Name = name;
  scheme.FolderDisplay.Assign(
      {{"Work", "H:\\", 0xFFFFFFFF, "shut.ico", "open.ico", "Long", "Short", "a.wav", 7}});
  scheme.WebLinks.Assign({{"Maps", "http://m?a=\"b\"", "m.ico", "Far", "Near", "m.wav"}, WebLink()});
  scheme.Tabs = {1, 0, 1};
  scheme.ToolBars[0] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  scheme.ToolBars[1] = {17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32};
  scheme.ToolBars[2] = {33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48};
  scheme.Defaults = {"tree2", 51, 52, 53, 54, 55, 56};
  return scheme;
}

// The records of such a scheme.
std::string SchemeText(const std::string& name) {
  return std::regex_replace(R"(: Name of scheme=$
$ - FolderDisplay: RootFoldersCount=1
$ - FolderDisplay - Root 1: CollapsedIconFile=shut.ico; ExpandedIconFile=open.ico; RootDisplayName=Work
 RootPath=H:\; DenyModify=7; FolderLevels=-1; LongToolTip=Long; ShortToolTip=Short; Wav File=a.wav
$ - Folder Display: WeblinksCount=2
$ - Weblinks - WebLink 1: DisplayName=Maps; URL=http://m?a="b"; IconFile=m.ico; LongToolTip=Far
 ShortToolTip=Near; Wav File=m.wav
$ - Weblinks - WebLink 2: DisplayName=; URL=; IconFile=; LongToolTip=; ShortToolTip=; Wav File=
$ - Tabs: Page1=1; Page2=0; Page3=1
$ - ToolBars - Page 1: Back=1; Copy=6; Cut=5; Delete=8; Forward=2; Help=14; Icon=12; New=3; Paste=7
 Print=10; Refresh=11; Rename=4; Side=16; Undo=9; Up=15; View=13
$ - ToolBars - Page 2: Back=17; Copy=22; Cut=21; Delete=24; Forward=18; Help=30; Icon=28; New=19
 Paste=23; Print=26; Refresh=27; Rename=20; Side=32; Undo=25; Up=31; View=29
$ - ToolBars - Page 3: Back=33; Copy=38; Cut=37; Delete=40; Forward=34; Help=46; Icon=44; New=35
 Paste=39; Print=42; Refresh=43; Rename=36; Side=48; Undo=41; Up=47; View=45
$ - Defaults: DefaultView=tree2; DefaultIconSize=51; DefaultFirstTab=52; ShortToolTips=53; Silent=54
 Context Menu=55; Options Menu=56
)",
                            std::regex("\\$"), name);
}

// The export of Infants and Leo.
std::string ExpectedFile() {
  return FileBytes("Config Hive: Config1=Infants; Infants=For Infants; Config2=" + kLeo + "; " + kLeo +
                   "=For " + kLeo + "\nScheme Count: The number of schemes=2\nScheme0" +
                   SchemeText("Infants") + "Scheme1" + SchemeText(kLeo));
}

// Names a file in a file dialog and confirms.
DialogScript::Action ChooseFile(const std::string& path) {
  return [path](HWND dialog) {
    constexpr int kNameCombo = 1148, kNameEdit = 1152;
    SetDlgItemTextA(dialog, GetDlgItem(dialog, kNameCombo) ? kNameCombo : kNameEdit, path.c_str());
    Click(dialog, IDOK);
  };
}

// Every test has a machine with the shell but without schemes, a window for messages and a folder for files.
class ExchangeTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    ClearSchemes();
    window_ = CreateWindowA("STATIC", "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                            nullptr, nullptr, nullptr);
  }
  void TearDown() override {
    EXPECT_TRUE(IsWindowEnabled(window_));
    DestroyWindow(window_);
    RegistryTest::TearDown();
  }

  void ClearSchemes() {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "");
  }
  void Add(const SchemeProperties& scheme) {
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"" + scheme.Name + "\"=\"For " + scheme.Name + "\"");
    ASSERT_TRUE(SaveSchemeProperties(scheme.Name, scheme));
  }
  std::string Schemes() { return DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey); }

  // The schemes that have a key, each with its number of roots.
  std::string RootCounts() {
    std::string counts;
    ForEachSubkey(OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ).Get(), [&](const std::string& name) {
      SchemeProperties scheme;
      (void)LoadFolderDisplay(name, scheme);
      counts += name + ":" + std::to_string(scheme.FolderDisplay.Count) + " ";
    });
    return counts;
  }

  HWND window_ = nullptr;
  const ScratchFolder folder_;
  const std::string path_ = folder_.File("schemes.ksf");
};

TEST_F(ExchangeTest, SavesToDiskAndRestoresAWipedMachine) {
  Add(Scheme("Infants"));
  Add(Scheme(kLeo));
  const std::string schemes = Schemes();
  const auto workingFolder = std::filesystem::current_path();
  DialogScript script;
  script.Expect("Save As", ChooseFile(folder_.File("schemes")));
  SaveToDisk(window_);
  EXPECT_EQ(ReadFileBytes(path_), ExpectedFile());

  ClearSchemes();
  script.Expect("Open", [](HWND dialog) { Click(dialog, IDCANCEL); });
  EXPECT_FALSE(LoadFromDisk(window_));
  EXPECT_EQ(RootCounts(), "");
  script.Expect("Open", ChooseFile(path_));
  EXPECT_TRUE(LoadFromDisk(window_));
  EXPECT_EQ(Schemes(), schemes);
  // Every look-up for a scheme found its record at the cursor.
  EXPECT_EQ(TheRecordStore().ReadCursor(), TheRecordStore().Count());
  EXPECT_EQ(std::filesystem::current_path(), workingFolder);

  ClearSchemes();
  script.Expect("Save As", ChooseFile(path_)).Expect("Error", [](HWND overwrite) {  // so Wine calls it
    Click(overwrite, IDYES);
  });
  SaveToDisk(window_);
  EXPECT_EQ(ReadFileBytes(path_), FileBytes("Scheme Count: The number of schemes=0"));
}

TEST_F(ExchangeTest, ImportReplacesOnlyTheSchemesOfTheFile) {
  SchemeProperties other = Scheme("Other"), infants = Scheme("Infants");
  other.FolderDisplay.Assign({});
  infants.FolderDisplay.Assign(std::vector<FolderRoot>(2));
  Add(other);
  Add(infants);
  WriteFileBytes(path_, ExpectedFile());
  SchemeFile(window_).Read(path_, path_);
  EXPECT_EQ(RootCounts(), "Infants:1 " + kLeo + ":1 Other:0 ");
  // What is beyond the new count stays behind.
  EXPECT_NE(Schemes().find("[Infants\\FolderDisplay\\Root 2]"), std::string::npos);
}

TEST_F(ExchangeTest, DamageCostsWhatItHit) {
  const std::string first = "Infants:1 ", both = first + kLeo + ":1 ";
  const std::string name = "Scheme1|Name of scheme|", second = name + kLeo + "|";
  // The first occurrence of a text gives way to another; nothing is left behind `to` when `cut`.
  const struct {
    const char* what;
    std::string from, to;
    bool cut;
    std::string schemes;
    bool refused = false;
  } cases[] = {
      {"shorter than the signature", "!|", "!", true, "", true},
      {"signature in another case", "Kelv", "kelv", false, "", true},
      {"one byte more than the signature", "!|C", "!|C", true, ""},
      {"empty first key", "!|", "!||", false, both},
      {"cut inside the roots", "RootPath", "", true, first},
      {"no count", "schemes|2", "schools|2", false, ""},
      {"count negative", "schemes|2", "schemes|-2", false, ""},
      {"count absurd", "schemes|2", "schemes|99999999999", false, both},
      {"roots missing", "Count|1", "Count|3", false, "Infants:3 " + kLeo + ":1 "},
      {"number of roots absurd", "Count|1", "Count|99999999999", false, both},
      {"number of roots negative", "Count|1", "Count|-1", false, "Infants:0 " + kLeo + ":1 "},
      {"blank name", second, name + "|", false, first},
      {"name with a backslash", second, name + "a\\b|", false, first},
      {"name with a NUL", second, name + std::string("a\0b|", 4), false, first},
      {"over-long name", second, name + std::string(256, 'n') + "|", false, first},
      {"terminator in a name", second, name + "Up||", false, first + "Up:0 "},
  };
  for (const auto& damage : cases) {
    SCOPED_TRACE(damage.what);
    ClearSchemes();
    std::string file = ExpectedFile();
    const std::size_t place = file.find(Bytes(damage.from));
    ASSERT_NE(place, std::string::npos);
    file.replace(place, damage.cut ? std::string::npos : damage.from.size(), Bytes(damage.to));
    WriteFileBytes(path_, file);
    DialogScript script;
    if (damage.refused) {
      script.ExpectMessage("File Load Problem",
                           "This does not appear to be a valid Kelvanstead Scheme Manager File.");
    }
    SchemeFile(window_).Read(path_, path_);
    EXPECT_EQ(RootCounts(), damage.schemes);
  }
}

TEST_F(ExchangeTest, RefusesFilesThatCannotBeRead) {
  const auto expectRefusal = [this](const std::string& path) {
    DialogScript script;
    script.ExpectMessage("Read Problem",
                         "Unable to read the file specified.\nThis is due to the file being damaged,\n"
                         "protected or unreadable for another reason");
    EXPECT_EQ(SchemeFile(window_).Read(path, path), 0u);
    EXPECT_EQ(RootCounts(), "");
  };
  expectRefusal(folder_.Path());
  WriteFileBytes(path_, ExpectedFile() + std::string(12'000'000, '\xAC'));
  expectRefusal(path_);
  WriteFileBytes(path_, ExpectedFile());
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_READONLY);
  expectRefusal(path_);
  SchemeFile::Remove(path_);
  EXPECT_EQ(ReadFileBytes(path_), ExpectedFile());
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
  const std::string copy = folder_.File("copy.ksf");
  WriteFileBytes(copy, "");
  SchemeFile::Remove(copy);
  expectRefusal(copy);
  const UniqueFile inUse(CreateFileA(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  expectRefusal(path_);
}

// The messages of a failed store hold the progress window open, to be looked at.
TEST_F(ExchangeTest, SaysWhenAnExportOrImportFails) {
  const std::string exportProblem =
      "There was a problem exporting your schemes file.\n"
      "This may be due to the disk being full, corrupt or protected.\n\n"
      "If the file appears to have been created it should not be\nrelied upon as correct";
  DialogScript script;
  const auto expectProgress = [&](const char* text) -> DialogScript& {
    return script.Expect("Kelvanstead Scheme Manager", [=, this](HWND progress) {
      EXPECT_EQ(ControlText(progress, IDC_PROGRESS_TEXT), text);
      EXPECT_EQ(ControlText(progress, IDCANCEL), "Cancel");
      EXPECT_FALSE(IsWindowEnabled(GetDlgItem(progress, IDCANCEL)));
      EXPECT_FALSE(IsWindowEnabled(window_));
    });
  };
  TheRecordStore().ExportFailed = TheRecordStore().ImportFailed = true;
  expectProgress("Saving your file to disk").ExpectMessage("Export Problem", exportProblem);
  SchemeFile(window_).Save();
  WriteFileBytes(path_, ExpectedFile());
  expectProgress("Loading your file from disk")
      .ExpectMessage("Import Problem",
                     "There was a problem importing your schemes file.\n"
                     "This may be due to the disk being corrupt or protected.\n\n"
                     "If the file appears to have been imported the settings should not be relied \n"
                     "upon as correct");
  SchemeFile(window_).Read(path_, path_);
  TheRecordStore().ExportFailed = TheRecordStore().ImportFailed = false;

  script.Expect("Save As", ChooseFile(folder_.File("none\\a.ksf")))
      .ExpectMessage("Export Problem", "The folder you have specified is read only, please pick another");
  SaveToDisk(window_);
  const UniqueFile inUse(
      CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  script.Expect("Save As", ChooseFile(path_))
      .Expect("Error", [](HWND overwrite) { Click(overwrite, IDYES); })
      .ExpectMessage("Export Problem", exportProblem);
  SaveToDisk(window_);
}

}  // namespace
