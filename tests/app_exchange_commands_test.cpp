#include "app/exchange_commands.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <new>
#include <string>

#include "base/unique_handle.h"
#include "controls/progress_bar_ids.h"
#include "schemefile/records/record_store.h"
#include "support/dialog_script.h"
#include "support/exchange_machine.h"
#include "support/imported_calls.h"

namespace {

constexpr char kOwner[] = "Owner";
constexpr char kExportProblem[] =
    "There was a problem exporting your schemes file.\n"
    "This may be due to the disk being full, corrupt or protected.\n\n"
    "If the file appears to have been created it should not be\nrelied upon as correct";
constexpr char kImportProblem[] =
    "There was a problem importing your schemes file.\n"
    "This may be due to the disk being corrupt or protected.\n\n"
    "If the file appears to have been imported the settings should not be relied \n"
    "upon as correct";

// Names a file in a file dialog and confirms.
DialogScript::Action ChooseFile(const std::string& path) {
  return [path](HWND dialog) {
    constexpr int kNameCombo = 1148, kNameEdit = 1152;
    SetDlgItemTextA(dialog, GetDlgItem(dialog, kNameCombo) ? kNameCombo : kNameEdit, path.c_str());
    Click(dialog, IDOK);
  };
}

void ConfirmOverwriting(HWND question) { Click(question, IDYES); }
constexpr char kOverwrite[] = "Error";  // so Wine calls the question

class ExchangeCommandsTest : public ExchangeMachineTest {
 protected:
  void SetUp() override {
    ExchangeMachineTest::SetUp();
    window_ = CreateWindowA("STATIC", kOwner, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                            nullptr, nullptr, nullptr);
  }
  void TearDown() override {
    EXPECT_TRUE(IsWindowEnabled(window_));
    DestroyWindow(window_);
    ExchangeMachineTest::TearDown();
  }

  void Load() {
    LoadFromDisk(window_, [this] {
      ++reloads_;
      EXPECT_FALSE(IsWindowEnabled(window_)) << "the command has not ended";
    });
  }
  // A progress window that a message holds open.
  void ExpectProgress(const char* text, int range) {
    script_.Expect("Kelvanstead Scheme Manager", [=, this](HWND progress) {
      EXPECT_EQ(ControlText(progress, IDC_PROGRESS_TEXT), text);
      EXPECT_EQ(ControlText(progress, IDCANCEL), "Cancel");
      EXPECT_FALSE(IsWindowEnabled(GetDlgItem(progress, IDCANCEL)));
      const HWND bar = GetDlgItem(progress, IDC_PROGRESS_BAR);
      EXPECT_EQ(SendMessageA(bar, PBM_GETRANGE, FALSE, 0), range);
      EXPECT_EQ(SendMessageA(bar, PBM_GETPOS, 0, 0), range) << "every step was made";
      EXPECT_FALSE(IsWindowEnabled(window_));
    });
  }

  HWND window_ = nullptr;
  DialogScript script_;
  int reloads_ = 0;
};

TEST_F(ExchangeCommandsTest, SaveToDiskAndLoadFromDisk) {
  Add(Scheme("Infants"));
  Add(Scheme(kLeo));
  const std::string schemes = Schemes();
  // The list of schemes ends in front of a text that is too long, and what is on it is saved.
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Zebras"=")" + std::string(300, 'z') + '"');
  const auto workingFolder = std::filesystem::current_path();
  const ImportedCalls calls({IMPORTED(SetDlgItemTextA)});
  script_.Expect("Save As", ChooseFile(folder_.File("schemes")));
  SaveToDisk(window_);
  EXPECT_EQ(ReadFileBytes(path_), ExpectedFile()) << "under the name with the ending of scheme files";

  ClearSchemes();
  script_.Expect("Open", [](HWND dialog) { Click(dialog, IDCANCEL); });
  Load();
  EXPECT_EQ(reloads_, 0);
  EXPECT_EQ(RootCounts(), "");
  // Who else reads the file is no hindrance.
  const UniqueFile reader(
      CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  script_.Expect("Open", ChooseFile(path_));
  Load();
  EXPECT_EQ(reloads_, 1);
  EXPECT_EQ(Schemes(), schemes);
  EXPECT_EQ(std::filesystem::current_path(), workingFolder);
  // Nine tenths of the work are done behind a progress window of their own.
  for (const char* window :
       {"SetDlgItemTextA Saving your file to disk", "SetDlgItemTextA Loading your file from disk"})
    EXPECT_EQ(std::ranges::count(calls.Lines(), window), 2) << window;
}

// The messages of a store that failed hold the progress window open.
TEST_F(ExchangeCommandsTest, AsksTheStoreWhetherItFailed) {
  Add(Scheme("Infants"));
  Add(Scheme(kLeo));
  TheRecordStore().ExportFailed = TheRecordStore().ImportFailed = true;
  script_.Expect("Save As", ChooseFile(path_));
  ExpectProgress("Saving your file to disk", 3);
  script_.ExpectMessage(kWarning, "Export Problem", kExportProblem);
  SaveToDisk(window_);
  script_.Expect("Open", ChooseFile(path_));
  ExpectProgress("Loading your file from disk", 3);
  script_.ExpectMessage(kWarning, "Import Problem", kImportProblem);
  Load();
  TheRecordStore().ExportFailed = TheRecordStore().ImportFailed = false;
}

TEST_F(ExchangeCommandsTest, SaysWhenAFileCannotBeWritten) {
  const MessageStyle warning = kWarning.OwnedBy(kOwner);
  script_.Expect("Save As", ChooseFile(folder_.File("none\\a.ksf")))
      .ExpectMessage(warning, "Export Problem",
                     "The folder you have specified is read only, please pick another");
  SaveToDisk(window_);

  Add(Scheme("Infants"));
  WriteFileBytes(path_, "old");
  ImportedCalls calls({IMPORTED(RegOpenKeyExA), IMPORTED(FlushFileBuffers)});
  for (const char* refused : {"FlushFileBuffers", "Infants\\Defaults"}) {
    calls.FailEach(refused, ERROR_ACCESS_DENIED);
    script_.Expect("Save As", ChooseFile(path_))
        .Expect(kOverwrite, ConfirmOverwriting)
        .ExpectMessage(warning, "Export Problem", kExportProblem);
    SaveToDisk(window_);
    EXPECT_EQ(ReadFileBytes(path_), "old") << refused;
  }
}

TEST_F(ExchangeCommandsTest, SaysWhenAFileIsNotToBeRead) {
  WriteFileBytes(path_, "no scheme file");
  script_.Expect("Open", ChooseFile(path_))
      .ExpectMessage(kExclamation.OwnedBy(kOwner), "File Load Problem",
                     "This does not appear to be a valid Kelvanstead Scheme Manager File.");
  Load();
  const auto expectReadProblem = [this] {
    script_.Expect("Open", ChooseFile(path_))
        .ExpectMessage(kWarning.OwnedBy(kOwner), "Read Problem",
                       "Unable to read the file specified.\nThis is due to the file being damaged,\n"
                       "protected or unreadable for another reason");
    Load();
  };
  WriteFileBytes(path_, ExpectedFile());
  {
    const UniqueFile writer(
        CreateFileA(path_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    expectReadProblem();
  }
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_READONLY);
  expectReadProblem();
  EXPECT_EQ(reloads_, 0);
}

TEST_F(ExchangeCommandsTest, CautionsWhenTheListCannotBeWritten) {
  WriteFileBytes(path_, ExpectedFile());
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
  script_.Expect("Open", ChooseFile(path_))
      .ExpectMessage(kPlain.OwnedBy(kOwner), "Settings Problem",
                     "Caution: There has been a problem setting Software\\Tessaly\\Kelvanstead\\Schemes");
  LoadFromDisk(window_, [this] { ++reloads_; });
  EXPECT_EQ(reloads_, 1);
  EXPECT_EQ(RootCounts(), "") << "no scheme is written without it";
}

// What was written is there, so it is no "Read Problem".
TEST_F(ExchangeCommandsTest, TellsWhenMemoryEndsBehindTheWriting) {
  WriteFileBytes(path_, ExpectedFile());
  script_.Expect("Open", ChooseFile(path_))
      .ExpectMessage(kWarning.OwnedBy(kOwner), "Import Problem", kImportProblem);
  LoadFromDisk(window_, [] { throw std::bad_alloc(); });
}

TEST_F(ExchangeCommandsTest, EndsTheProgramWhereTheSchemesKeyIsMissing) {
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
  const auto save = [this] {
    script_.Expect("Save As", ChooseFile(path_));
    script_.Expect("Serious Problem", [](HWND box) {
      std::fputs(MessageText(box).c_str(), stderr);
      Click(box, IDOK);
    });
    SaveToDisk(window_);
  };
  EXPECT_EXIT(save(), testing::ExitedWithCode(0),
              "There has been a problem reading Kelvanstead Settings.\n"
              "This is due to Kelvanstead not being installed or the settings have become damaged.\n"
              "It is recommended that Kelvanstead is reinstalled.\n\n"
              "Kelvanstead Scheme Manager can not run so will now exit");
}

}  // namespace
