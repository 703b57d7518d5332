// Files that come and go: what is written, what stays, and who is told.
#include <windows.h>
#include <gtest/gtest.h>

#include <aclapi.h>
#include <sddl.h>

#include <string>

#include "app/exchange_commands.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/command_line.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

// Takes from everybody the right to change the key, and gives it back at its end.
class ReadOnlyKey {
 public:
  explicit ReadOnlyKey(const std::string& path) : path_("MACHINE\\" + path) {
    SetAccess(L"D:P(A;CI;KR;;;WD)(A;;WD;;;WD)");
  }
  ~ReadOnlyKey() { SetAccess(L"D:P(A;CI;KA;;;WD)"); }
  ReadOnlyKey(const ReadOnlyKey&) = delete;
  ReadOnlyKey& operator=(const ReadOnlyKey&) = delete;

 private:
  void SetAccess(const wchar_t* text) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &descriptor, nullptr);
    BOOL isPresent = FALSE, isDefault = FALSE;
    ACL* list = nullptr;
    GetSecurityDescriptorDacl(descriptor, &isPresent, &list, &isDefault);
    EXPECT_EQ(SetNamedSecurityInfoA(path_.data(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, list, nullptr),
              static_cast<DWORD>(ERROR_SUCCESS));
    LocalFree(descriptor);
  }

  std::string path_;
};

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

class CliImportTest : public CommandLineTest {
 protected:
  void SetUp() override {
    CommandLineTest::SetUp();
    InstallShell();
  }
  void AddAll() {
    for (const std::string& name : {std::string("Infants"), kLeo}) {
      SchemeProperties scheme = Scheme(name);
      scheme.Description = "For " + name;
      Add(scheme);
    }
  }
  static std::string Schemes() { return DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey); }
  static void ClearSchemes() {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    InstallShell();
  }
  CommandResult Import(const std::string& options = "") {
    return Run("import " + Quoted(file_) + " " + options);
  }
};

TEST_F(CliImportTest, ExportsWhatSaveToDiskSavesAndBringsItToAWipedMachine) {
  AddAll();
  DialogScript script;
  const std::string saved = folder_.File("saved.ksf");
  script.Expect("Save As", [&](HWND dialog) {
    constexpr int kNameCombo = 1148, kNameEdit = 1152;
    SetDlgItemTextA(dialog, GetDlgItem(dialog, kNameCombo) ? kNameCombo : kNameEdit, saved.c_str());
    Click(dialog, IDOK);
  });
  SaveToDisk(nullptr);
  EXPECT_EQ(Run("export " + Quoted(file_)).Code, 0u);
  EXPECT_EQ(ReadFileBytes(file_), ExpectedFile());
  EXPECT_EQ(ReadFileBytes(saved), ExpectedFile());

  const std::string schemes = Schemes();
  ClearSchemes();
  const CommandResult run = Import();
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "Imported 2 schemes\n");
  EXPECT_EQ(run.Problems, "");
  EXPECT_EQ(Schemes(), schemes);
}

TEST_F(CliImportTest, ExportsNamedSchemesInTheRegistrysOrder) {
  AddAll();
  EXPECT_EQ(Run("export " + Quoted(file_) + " Infants --quiet").Results, "");
  EXPECT_EQ(ReadFileBytes(file_),
            FileBytes("Config Hive: Config1=Infants; Infants=For Infants\nScheme Count: "
                      "The number of schemes=1\nScheme0" +
                      SchemeText("Infants")));
}

TEST_F(CliImportTest, AKilledExportLeavesTheOldFileOrTheNewOne) {
  constexpr int kSchemes = 40;
  for (int i = 0; i < kSchemes; ++i)
    Add(Scheme("Scheme " + std::to_string(i)));
  EXPECT_EQ(Run("export " + Quoted(file_)).Code, 0u);
  const std::string whole = ReadFileBytes(file_), old = "what was there before";
  int killed = 0;
  for (DWORD patience = 0; patience < 200; patience += 10) {
    WriteFileBytes(file_, old);
    RunningCommand command(L"export \"" + std::wstring(file_.begin(), file_.end()) + L"\"", folder_);
    Sleep(patience);
    killed += command.Kill() ? 1 : 0;
    const std::string left = ReadFileBytes(file_);
    EXPECT_TRUE(left == old || left == whole) << patience;
  }
  EXPECT_GT(killed, 0);
}

TEST_F(CliImportTest, ADamagedFileChangesNothingUnlessItIsAccepted) {
  SchemeProperties scheme = Scheme("Infants");
  scheme.WebLinks.clear();
  Add(scheme);
  const std::string before = Schemes();
  const std::string file = ExpectedFile(), tabs = Bytes("Infants - Tabs|Page2|0|");
  std::string damaged = file;
  damaged.erase(damaged.find(tabs), tabs.size());
  for (const std::string& bytes : {damaged, file.substr(0, file.size() / 2), file + "x"}) {
    WriteFileBytes(file_, bytes);
    const CommandResult run = Import("--backup " + Quoted(folder_.File("backup.ksf")));
    EXPECT_EQ(run.Code, 1u);
    EXPECT_EQ(run.Results, "");
    EXPECT_NE(run.Problems.find(": Nothing was imported: this file is damaged\n"), std::string::npos);
    EXPECT_EQ(Schemes(), before);
    EXPECT_FALSE(std::filesystem::exists(folder_.File("backup.ksf")));
  }
  WriteFileBytes(file_, damaged);
  const CommandResult run = Import("--accept-damage");
  EXPECT_EQ(run.Code, 6u);
  EXPECT_EQ(run.Results, "Imported 2 schemes\n");
  EXPECT_EQ(run.Problems,
            file_ + ": byte " + std::to_string(file.find(tabs)) + ": \"Infants - Tabs, Page2\" is missing\n");
  EXPECT_NE(Run("show Infants").Results.find("\nLinks                                        2\n"),
            std::string::npos);
}

TEST_F(CliImportTest, TheBackupGivesBackEveryScheme) {
  AddAll();
  const std::string before = Schemes(), backup = folder_.File("backup.ksf");
  EXPECT_EQ(Run("export " + Quoted(file_)).Code, 0u);
  std::string changed = ReadFileBytes(file_);
  for (std::size_t at = 0; (at = changed.find("http://m", at)) != std::string::npos; ++at)
    changed[at + 7] = 'n';
  changed.replace(changed.find("For Infants"), 11, "New Infants");
  WriteFileBytes(file_, changed);
  EXPECT_EQ(Import("--backup " + Quoted(backup)).Results,
            "Saved 2 schemes to " + backup + "\nImported 2 schemes\n");
  EXPECT_NE(Schemes(), before);
  EXPECT_EQ(Run("import " + Quoted(backup)).Code, 0u);
  EXPECT_EQ(Schemes(), before);
}

TEST_F(CliImportTest, WritesOnlyWhatIsAskedFor) {
  WriteFileBytes(file_, ExpectedFile());
  EXPECT_EQ(Import("Infants").Results, "Imported 1 scheme\n");
  EXPECT_EQ(Run("list --quiet").Results,
            "Name     Description  Built in  Allocated to\nInfants  For Infants\n");
  ClearSchemes();
  SchemeProperties builtIn;
  builtIn.Name = "infants";  // the registry takes it for the file's
  Add(builtIn);
  WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, "\"infants\"=\"\"");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("infants"));
  const CommandResult run = Import("--keep-built-in");
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "Left Infants as it is: it is built in\nImported 1 scheme\n");
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("infants")), before);
  EXPECT_EQ(ReadText(HKEY_LOCAL_MACHINE, kSchemesKey, "infants"), builtIn.Description);
}

TEST_F(CliImportTest, NamesWhatTheRegistryRefuses) {
  AddAll();
  WriteFileBytes(file_, ExpectedFile());
  {
    const ReadOnlyKey scheme(SchemeKeyPath("Infants") + "\\Defaults");
    const CommandResult run = Import("--no-verify");
    EXPECT_EQ(run.Code, 6u);
    EXPECT_EQ(run.Results, "Imported 1 of 2 schemes\n");
    EXPECT_EQ(run.Problems, "Infants: The registry refused to write all of this scheme\n");
  }
  const std::string before = Schemes();
  const ReadOnlyKey schemes(kSchemesKey);
  for (const std::string& command : {"import " + Quoted(file_), std::string("delete Infants")}) {
    const CommandResult run = Run(command);
    EXPECT_EQ(run.Code, 5u) << command;
    EXPECT_EQ(run.Problems, "ksm: This user has no right to change the schemes\n");
  }
  EXPECT_EQ(Run("export " + Quoted(file_)).Code, 0u);
  EXPECT_EQ(Run("diff " + Quoted(file_)).Code, 0u);
  EXPECT_EQ(Schemes(), before);
}

// A text with a NUL is damage that the registry cuts.
TEST_F(CliImportTest, TellsWhatItReadsBackOtherThanItWrote) {
  std::string file = ExpectedFile();
  file.replace(file.find("shut.ico"), 8, std::string("shut\0ico", 8));
  WriteFileBytes(file_, file);
  const CommandResult run = Import("--accept-damage Infants");
  EXPECT_EQ(run.Code, 6u);
  EXPECT_NE(run.Problems.find(
                "\nInfants: Differs after the import: Folder 1: Closed folder: \"shut\" -> \"shut?ico\"\n"),
            std::string::npos)
      << run.Problems;
}

TEST_F(CliImportTest, TellsOfSchemesThatCannotBeReadWhole) {
  AddAll();
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"Gone\"=\"\" [Infants\\Defaults] \"Silent\"=\"no number\"");
  const CommandResult run = Run("export " + Quoted(file_));
  EXPECT_EQ(run.Code, 6u);
  EXPECT_EQ(run.Results, "Saved 2 schemes to " + file_ + "\n");
  EXPECT_EQ(run.Problems,
            "Gone: This scheme cannot be read: it has no key of its own\n"
            "Infants: Some of this scheme's settings are missing or damaged\n");
}

TEST_F(CliImportTest, WaitsForAnotherThatChangesTheMachine) {
  WriteFileBytes(file_, ExpectedFile());
  const UniqueFile mutex(CreateMutexW(nullptr, TRUE, L"Global\\Kelvanstead Scheme Manager, command line"));
  const std::string before = Schemes();
  const CommandResult refused = Import("--wait 0");
  EXPECT_EQ(refused.Code, 6u);
  EXPECT_EQ(refused.Problems, "ksm: Another ksm is changing this machine; nothing was done\n");
  EXPECT_EQ(Schemes(), before);
  EXPECT_EQ(Run("list").Code, 0u);

  RunningCommand waiting(L"import --wait 30 \"" + std::wstring(file_.begin(), file_.end()) + L"\"", folder_);
  Sleep(300);
  EXPECT_EQ(Schemes(), before);
  ReleaseMutex(mutex.Get());
  EXPECT_EQ(waiting.Finish().Code, 0u);
  EXPECT_NE(Schemes(), before);
}

}  // namespace
