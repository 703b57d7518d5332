// Files that come and go: what is written, what stays, and who is told.
#include <windows.h>
#include <gtest/gtest.h>

#include <sddl.h>

#include <string>

#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/command_line.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

// Leaves everybody just these rights to the key ("KR" to read it), and gives back all at its end.
class GuardedKey {
 public:
  GuardedKey(const std::string& path, const std::wstring& rights)
      : key_(OpenKey(HKEY_LOCAL_MACHINE, path, KEY_READ | WRITE_DAC)) {
    SetRights(rights);
  }
  ~GuardedKey() { SetRights(L"KA"); }
  GuardedKey(const GuardedKey&) = delete;
  GuardedKey& operator=(const GuardedKey&) = delete;

 private:
  void SetRights(const std::wstring& rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW((L"D:P(A;CI;" + rights + L";;;WD)").c_str(),
                                                         SDDL_REVISION_1, &descriptor, nullptr);
    EXPECT_EQ(RegSetKeySecurity(key_.Get(), DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    LocalFree(descriptor);
  }

  const UniqueKey key_;
};

class CliImportTest : public CommandLineTest {
 protected:
  void AddAll() {
    Add("Infants");
    Add(kLeo);
  }
  void TakeLinks(const std::string& name) {
    WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath(name), "[WebLinks] \"WebLinksCount\"=dword:0");
  }
  static std::string Schemes() { return DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey); }
  CommandResult Import(const std::string& options = "") { return Run("import schemes.ksf " + options); }
};

// The test of "Save to disk" holds that to the same bytes.
TEST_F(CliImportTest, ExportsWhatSaveToDiskSavesAndBringsItToAWipedMachine) {
  AddAll();
  EXPECT_EQ(Run("export schemes.ksf").Code, 0u);
  EXPECT_EQ(ReadFileBytes(file_), ExpectedFile());
  EXPECT_EQ(Run("export part.ksf --quiet Infants").Results, "");
  EXPECT_EQ(ReadFileBytes(folder_.File("part.ksf")),
            FileBytes("Config Hive: Config1=Infants; Infants=For Infants\nScheme Count: "
                      "The number of schemes=1\nScheme0" +
                      SchemeText("Infants")));

  const std::string schemes = Schemes();
  ClearSchemes();
  const CommandResult run = Import();
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "Imported 2 schemes\n");
  EXPECT_EQ(run.Problems, "");
  EXPECT_EQ(Schemes(), schemes);
}

TEST_F(CliImportTest, AKilledExportLeavesTheOldFileOrTheNewOne) {
  constexpr int kSchemes = 40;
  for (int i = 0; i < kSchemes; ++i)
    Add("Scheme " + std::to_string(i));
  EXPECT_EQ(Run("export schemes.ksf").Code, 0u);
  const std::string whole = ReadFileBytes(file_), old = "what was there before";
  int killed = 0;
  for (DWORD patience = 0; patience < 200; patience += 10) {
    WriteFileBytes(file_, old);
    RunningCommand command(L"export schemes.ksf", folder_);
    Sleep(patience);
    killed += command.Kill() ? 1 : 0;
    const std::string left = ReadFileBytes(file_);
    EXPECT_TRUE(left == old || left == whole) << patience;
  }
  EXPECT_GT(killed, 0);
}

TEST_F(CliImportTest, ADamagedFileChangesNothingUnlessItIsAccepted) {
  Add("Infants");
  TakeLinks("Infants");
  const std::string before = Schemes();
  const std::string file = ExpectedFile(), tabs = Bytes("Infants - Tabs|Page2|0|");
  std::string damaged = file;
  damaged.erase(damaged.find(tabs), tabs.size());
  for (const std::string& bytes : {damaged, file.substr(0, file.size() / 2), file + "x"}) {
    WriteFileBytes(file_, bytes);
    const CommandResult run = Import("--backup backup.ksf");
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
  EXPECT_EQ(run.Problems, "schemes.ksf: byte " + std::to_string(file.find(tabs)) +
                              ": \"Infants - Tabs, Page2\" is missing\n");
  EXPECT_NE(Run("show Infants").Results.find("\nLinks                                        2\n"),
            std::string::npos);
}

TEST_F(CliImportTest, TheBackupGivesBackEveryScheme) {
  AddAll();
  const std::string before = Schemes();
  std::string changed = ExpectedFile();
  changed.replace(changed.find("http://m"), 8, "http://n");
  changed.replace(changed.find("For Infants"), 11, "New Infants");
  WriteFileBytes(file_, changed);
  EXPECT_EQ(Import("Infants --backup backup.ksf").Results,
            "Saved 2 schemes to backup.ksf\nImported 1 scheme\n");
  EXPECT_NE(Schemes(), before);
  EXPECT_EQ(ReadFileBytes(folder_.File("backup.ksf")), ExpectedFile());
  EXPECT_EQ(Run("import backup.ksf").Code, 0u);
  EXPECT_EQ(Schemes(), before);
}

TEST_F(CliImportTest, WritesOnlyWhatIsAskedFor) {
  WriteFileBytes(file_, ExpectedFile());
  EXPECT_EQ(Import("Infants").Results, "Imported 1 scheme\n");
  const CommandResult list = Run("list");
  EXPECT_EQ(list.Results, "Name     Description  Built in  Allocated to\nInfants  For Infants\n");
  EXPECT_EQ(list.Problems, "") << "no description without its scheme";
  ClearSchemes();
  Add("infants");  // the registry takes it for the file's
  TakeLinks("infants");
  WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, "\"infants\"=\"\"");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("infants"));
  EXPECT_TRUE(Run("diff schemes.ksf Infants").Results.starts_with("changed    Infants\n"));
  const CommandResult run = Import("--keep-built-in");
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "Left Infants as it is: it is built in\nImported 1 scheme\n");
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("infants")), before);
  EXPECT_EQ(ReadText(HKEY_LOCAL_MACHINE, kSchemesKey, "infants"), "For infants");
}

TEST_F(CliImportTest, NamesWhatTheRegistryRefuses) {
  AddAll();
  WriteFileBytes(file_, ExpectedFile());
  {
    const GuardedKey section(SchemeKeyPath("Infants") + "\\Defaults", L"KR");
    const CommandResult run = Import("--no-verify");
    EXPECT_EQ(run.Code, 6u);
    EXPECT_EQ(run.Results, "Imported 1 of 2 schemes\n");
    EXPECT_EQ(run.Problems, "Infants: Not all of this scheme could be written\n");
  }
  {
    const GuardedKey section(SchemeKeyPath("Infants") + "\\Defaults", L"SD");
    EXPECT_EQ(Import("--backup backup.ksf --quiet").Problems,
              "Infants: The registry refused to read all of this scheme\n"
              "backup.ksf: Nothing was written: not all could be read\n");
    EXPECT_FALSE(std::filesystem::exists(folder_.File("backup.ksf")));
  }
  const std::string before = Schemes();
  const GuardedKey product(kProductKey, L"KR"), schemes(kSchemesKey, L"KR");
  for (const auto& [command, problem] :
       {std::pair("import schemes.ksf", "ksm: This user has no right to change the schemes\n"),
        {"delete Infants", "ksm: This user has no right to change the schemes\n"},
        {"allocate --user ann Infants", "ann: This user has no right to change allocations\n"}}) {
    const CommandResult run = Run(command);
    EXPECT_EQ(run.Code, 5u) << command;
    EXPECT_EQ(run.Problems, problem);
  }
  EXPECT_EQ(Run("export schemes.ksf").Code, 0u);
  EXPECT_EQ(Run("diff schemes.ksf").Code, 0u);
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
  const CommandResult run = Run("export schemes.ksf");
  EXPECT_EQ(run.Code, 6u);
  EXPECT_EQ(run.Results, "Saved 2 schemes to schemes.ksf\n");
  EXPECT_EQ(run.Problems,
            "Gone: This scheme cannot be read: it has no key of its own\n"
            "Infants: Some of this scheme's settings are missing or damaged\n");
  EXPECT_EQ(Run("list").Code, 6u);
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

  RunningCommand waiting(L"import --wait 30 schemes.ksf", folder_);
  Sleep(300);
  EXPECT_EQ(Schemes(), before);
  ReleaseMutex(mutex.Get());
  EXPECT_EQ(waiting.Finish().Code, 0u);
  EXPECT_NE(Schemes(), before);
}

}  // namespace
