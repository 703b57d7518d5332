// The commands on a machine of three schemes, and on machines that refuse them. What they print of the sample
// school stands in docs/command-line.md, which has a check of its own.
#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>

#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/command_line.h"
#include "support/program_copies.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

// Three schemes, of which Staff is built in. The file has Infants as it is here, Staff changed, and Leo; that
// it is torn is the damage of the other.
class CliCommandTest : public CommandLineTest {
 protected:
  void SetUp() override {
    CommandLineTest::SetUp();
    for (const char* name : {"Infants", "Juniors", "Staff"})
      Add(name);
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, R"(
        [Protected Schemes] "Staff"="" [Class Schemes] "Oak"="juniors"
        [User Schemes] "ann"="infants" "ben"=dword:1
        [Settings] "msAgent Path"="C:\\windows\\msagent\\chars\\Merlin.acs")");
    WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Tallowby\\Accounts",
              R"([ann] "Account Type"="Pupils" [ben] "Account Type"="Staff")");
    const std::string bytes = FileBytes(
        "Config Hive: Config1=Infants; Infants=For Infants; Config2=Staff; Staff=Changed; Config3=" + kLeo +
        "; " + kLeo + "=For Leo\nScheme Count: The number of schemes=3\nScheme0" + SchemeText("Infants") +
        "Scheme1" + SchemeText("Staff") + "Scheme2" + SchemeText(kLeo));
    WriteFileBytes(file_, bytes);
    WriteFileBytes(folder_.File("torn.ksf"), bytes + "x");
  }
};

struct Row {
  std::string Arguments;
  DWORD Code;
  std::string Results, Problems;  // behind a '*' stands part of the results
};

TEST_F(CliCommandTest, ChangesNothingWhenItLooksOrRefuses) {
  const Row rows[] = {
      {"frob", 2, "", "frob: There is no such command; \"ksm --help\" lists them\n"},
      {"list --wait soon", 2, "", "ksm list: Could not convert: --wait = soon\n"},
      {"list", 0,
       "Name     Description  Built in  Allocated to\n"
       "Infants  For Infants            user ann\n"
       "Juniors  For Juniors\n"
       "Staff    For Staff    yes\n",
       ""},
      {"show \"\" --file schemes.ksf", 4, "", "\"\": There is no such scheme\n"},
      {"show Infants --file torn.ksf", 1, "*\nFolder 1: Path                               H:\\\n",
       "torn.ksf: This file is damaged; \"ksm check\" tells where\n"},
      {"check none.ksf", 3, "", "none.ksf: This file cannot be read\n"},
      {"diff torn.ksf Infants", 1, "same       Infants\n",
       "torn.ksf: This file is damaged; \"ksm check\" tells where\n"},
      {"diff schemes.ksf Nobody leo", 4, "",
       "Nobody: There is no such scheme\nleo: There is no such scheme\n"},
      {"import schemes.ksf --dry-run Infants", 0, "same       Infants\n", ""},
      {"import torn.ksf --dry-run --accept-damage Infants", 1, "same       Infants\n", "*"},
      {"import torn.ksf Infants", 1, "", "*"},
      {"import schemes.ksf infants Juniors", 4, "",
       "infants: There is no such scheme; did you mean \"Infants\"?\nJuniors: There is no such scheme\n"},
      {"import schemes.ksf --backup none\\none.ksf", 3, "", "none\\none.ksf: This file cannot be written\n"},
      {"import schemes.ksf --backup SCHEMES.ksf", 2, "",
       "SCHEMES.ksf: The backup would replace the file that is to be imported\n"},
      {"import schemes.ksf --backup \"\"", 2, "", "ksm import: --backup: must not be empty\n"},
      {"export new.ksf Infants Nobody", 4, "", "Nobody: There is no such scheme\n"},
      {"delete Infants juniors", 4, "", "juniors: There is no such scheme; did you mean \"Juniors\"?\n"},
      {"allocations --json", 6, "*\"name\": \"ben\",\n      \"scheme\": null,\n      \"known\": false\n",
       "ben: What is allocated to this user cannot be read\n"},
      {"allocate Infants", 2, "", "ksm allocate: Just one of --class, --user and --group is required\n"},
      {"allocate --user ann Infants --clear", 2, "",
       "ksm allocate: Just one of SCHEME and --clear is required\n"},
      {"helper merlin", 2, "", "merlin: There is no such helper; there are Peedy, Merlin, Robby and Genie\n"},
  };
  const std::string machine = Machine();
  for (const auto& [arguments, code, results, problems] : rows) {
    SCOPED_TRACE(arguments);
    const CommandResult run = Run(arguments);
    EXPECT_EQ(run.Code, code);
    if (results.starts_with('*')) {
      EXPECT_NE(run.Results.find(results.substr(1)), std::string::npos) << run.Results;
    } else {
      EXPECT_EQ(run.Results, results);
    }
    if (problems != "*") {
      EXPECT_EQ(run.Problems, problems);
    }
    EXPECT_EQ(Machine(), machine);
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.File("new.ksf")));
}

TEST_F(CliCommandTest, EachCommandHasHelpThatEndsInTheExitCodes) {
  for (const std::string command : {"", "list", "show", "export", "check", "diff", "import", "delete",
                                    "allocations", "allocate", "explain", "helper"}) {
    const CommandResult run = Run(command + " --help");
    EXPECT_EQ(run.Code, 0u) << command;
    EXPECT_NE(run.Results.find("ksm " + command), std::string::npos) << command;
    EXPECT_NE(run.Results.find("  6  not all of it could be done"), std::string::npos) << command;
  }
}

// Names that look like commands or options, and characters that the code page has or has not.
TEST_F(CliCommandTest, TakesAnyNameThatTheRegistryCanHold) {
  for (const char* name : {"list", "-v", "caf\xE9", "[a,b]", "{}", "/b", "a b"})
    Add(name);
  const std::wstring names = L"list -v caf\u00E9 [a,b] {} /b \"a b\"";
  EXPECT_EQ(RunningCommand(L"export schemes.ksf -- " + names, folder_).Finish().Results,
            "Saved 7 schemes to schemes.ksf\n");
  const CommandResult lossy = RunningCommand(L"show \u0416", folder_).Finish();
  EXPECT_EQ(lossy.Code, 2u);
  EXPECT_EQ(lossy.Problems,
            "ksm: Argument 2 has a character that the code page of this machine does not have\n");
}

TEST_F(CliCommandTest, DeletesSchemesWithTheirAllocationsWhileTheProgramIsOpen) {
  ProgramCopies open(folder_.Path());
  open.Start();
  const CommandResult run = Run("delete Infants Juniors Infants");
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "Deleted Infants\nDeleted Juniors\n");
  EXPECT_EQ(run.Problems,
            "Kelvanstead Scheme Manager: The program is open and may not show what ksm changes\n");
  EXPECT_EQ(Run("list").Results, "Name   Description  Built in  Allocated to\nStaff  For Staff    yes\n");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), "[]");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), "[] \"ben\"=dword:1");
}

TEST_F(CliCommandTest, AllocatesAndChoosesTheHelper) {
  for (const std::string command :
       {"allocate --user ben Staff", "allocate Staff --group Pupils", "allocate --user ann --clear"}) {
    EXPECT_EQ(Run(command).Code, 0u) << command;
  }
  const CommandResult run = Run("allocate --class Elm Juniors --quiet");
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "");
  EXPECT_EQ(run.Problems,
            "Elm: This machine does not know this class; the allocation is made all the same\n");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), R"([] "ann"="" "ben"="Staff")");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), R"([] "Elm"="Juniors" "Oak"="juniors")");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserGroupSchemes), R"([] "Pupils"="Staff")");
  EXPECT_EQ(Run("helper Genie --quiet").Results, "");
  EXPECT_EQ(Run("helper").Results, "Genie\n");
}

// The resolver's rules, from the code that the environment component tells to the answer.
TEST_F(CliCommandTest, ExplainsEachWayToAScheme) {
  const struct {
    int Code;  // and what is allocated to the class, chosen by the user, allocated to the user and the group
    std::string AccountType, Class, Own, User, Group, Tried, Gets;
  } cases[] = {
      // The class counts for pupils only, however their type is spelled, and comes before user and group.
      {3, "Pupils", "Infants", "", "Juniors", "Staff", "class Oak Infants loaded\n", "Infants"},
      {6, "pupil", "Infants", "", "Juniors", "Staff", "class Oak Infants loaded\n", "Infants"},
      {3, "Teachers", "Infants", "", "Juniors", "Staff", "user ann Juniors loaded\n", "Juniors"},
      {6, "Teachers", "Infants", "Juniors", "", "Staff", "user ann no scheme\ngroup Teachers Staff loaded\n",
       "Staff"},
      {6, "Pupils", "Away", "", "", "Staff",
       "class Oak Away missing\nuser ann no scheme\ngroup Pupils Staff loaded\n", "Staff"},
      {6, "Pupils", "Half", "", "", R"(a\\b)",
       "class Oak Half incomplete\nuser ann no scheme\ngroup Pupils a\\b missing\n"
       "default Default User loaded\n",
       "Default User"},
      // The user's own choice counts in the per-user environments only, which know no account types.
      {8, "Pupils", "Infants", "Juniors", "Staff", "Staff", "own choice Juniors loaded\n", "Juniors"},
      {9, "Pupils", "Infants", "Away", "Staff", "", "own choice Away missing\nuser ann Staff loaded\n",
       "Staff"},
      {99, "Pupils", "Infants", "", "", "Staff",
       "own choice no scheme\nuser ann no scheme\ngroup no scheme\ndefault Default User loaded\n",
       "Default User"},
      // Without an environment the user's scheme is loaded, but the result is an error.
      {0, "Pupils", "Infants", "Juniors", "Staff", "", "user ann Staff loaded\n", "Error"},
  };
  Add("Default User");
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Half"), "[WebLinks] \"WebLinksCount\"=dword:1");
  InstallEnvironment();
  const std::string user = getenv("USERNAME"), oak = R"("Current Class"="Oak" )";
  for (const auto& [code, accountType, ofClass, own, ofUser, ofGroup, tried, gets] : cases) {
    SCOPED_TRACE(std::to_string(code) + " " + tried);
    WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly",
              "[Tallowby] \"Environment Code\"=dword:" + std::to_string(code == 99 ? 63 : code) +
                  "[Tallowby\\Accounts\\" + user + "] \"Account Type\"=\"" + accountType +
                  "\" [Crateling\\Benchspace] " + oak + "\"Current Mode\"=\"" + accountType +
                  "\" [Kelvanstead\\Class Schemes] \"Oak\"=\"" + ofClass +
                  "\" [Kelvanstead\\User Schemes] \"" + user + "\"=\"" + ofUser +
                  "\" [Kelvanstead\\User Group Schemes] \"" + accountType + "\"=\"" + ofGroup + "\"");
    WriteTree(HKEY_CURRENT_USER, "Software\\Tessaly",
              "[Benchspace] " + oak + "[Kelvanstead] \"ConfigToUse\"=\"" + own + "\"");
    const bool known = code == 3 || code == 6, isPupil = known && accountType != "Teachers";
    const CommandResult run = Run("explain");
    EXPECT_EQ(run.Code, 0u);
    const std::string results = std::regex_replace(run.Results, std::regex(" +"), " ");
    EXPECT_NE(results.find("\nEnvironment " + std::to_string(code) + ": "), std::string::npos) << results;
    EXPECT_EQ(results.substr(results.find("\nAccount")),
              "\nAccount type" + (known ? " " + accountType : "") + "\nClass" + (isPupil ? " Oak" : "") +
                  "\n\nTried Of Scheme Outcome\n" + std::regex_replace(tried, std::regex("ann"), user) +
                  "\nThis user gets " + gets + "\n");
  }
}

TEST_F(CliCommandTest, KeepsOutWithoutTheShellOrUnderThePolicy) {
  const auto expect = [this](DWORD code, const std::string& problem) {
    const std::string machine = Machine();
    for (const std::string command : {"list", "show Infants", "delete Infants", "export new.ksf",
                                      "diff schemes.ksf", "import schemes.ksf", "allocations", "explain",
                                      "allocate --user ann Infants", "helper", "helper Genie"}) {
      const CommandResult run = Run(command);
      EXPECT_EQ(run.Code, code) << command;
      EXPECT_EQ(run.Results + run.Problems, "ksm: " + problem + "\n");
    }
    EXPECT_EQ(Machine(), machine);
    EXPECT_FALSE(std::filesystem::exists(folder_.File("new.ksf")));
  };
  WriteTree(HKEY_CURRENT_USER, "Software\\Policies\\Tessaly\\Kelvanstead Scheme Manager", "\"Lock\"=dword:1");
  expect(5, "The policy locks this user out");
  EXPECT_EQ(Run("check schemes.ksf").Code, 5u);
  EXPECT_EQ(Run("--version").Code, 0u);
  RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Policies\\Tessaly");
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProductKey);
  expect(4, "Kelvanstead is not installed on this machine");
  EXPECT_EQ(Run("check schemes.ksf").Code, 0u);
}

}  // namespace
