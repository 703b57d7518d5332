// Every command on a machine of three schemes, and every command on machines that refuse it.
#include <windows.h>
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/command_line.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

SchemeProperties Described(const std::string& name) {
  SchemeProperties scheme = Scheme(name);
  scheme.Description = "For " + name;
  return scheme;
}

// Three schemes, of which Staff is built in; the file has Infants as it is here, Staff changed, and Leo.
class CliCommandTest : public CommandLineTest {
 protected:
  void SetUp() override {
    CommandLineTest::SetUp();
    InstallShell();
    for (const char* name : {"Infants", "Juniors", "Staff"})
      Add(Described(name));
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, R"(
        [Protected Schemes] "Staff"="" [Class Schemes] "Oak"="juniors" [User Schemes] "ann"="Infants"
        [Settings] "msAgent Path"="C:\\windows\\msagent\\chars\\Merlin.acs")");
    WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Tallowby\\Accounts",
              R"([ann] "Account Type"="Pupils" [ben] "Account Type"="Staff")");
    std::string bytes = FileBytes(
        "Config Hive: Config1=Infants; Infants=For Infants; Config2=Staff; Staff=Changed; Config3=" + kLeo +
        "; " + kLeo + "=For Leo\nScheme Count: The number of schemes=3\nScheme0" + SchemeText("Infants") +
        "Scheme1" + SchemeText("Staff") + "Scheme2" + SchemeText(kLeo));
    WriteFileBytes(file_, bytes);
    WriteFileBytes(damaged_, bytes.replace(bytes.find("H:\\"), 3, "H\xAC\\"));
    WriteFileBytes(foreign_, "Kelvanstead scheme manager!\xAC");
  }

  // In the rows F stands for the file, D for a damaged one, X for one that is none, N for one that is not
  // there.
  std::string InPlace(const std::string& text, const std::string& quote = "") const {
    std::string replaced;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool isWord = (i == 0 || text[i - 1] == ' ') && (i + 1 == text.size() || !isalnum(text[i + 1]));
      const std::string* path = !isWord          ? nullptr
                                : text[i] == 'F' ? &file_
                                : text[i] == 'D' ? &damaged_
                                : text[i] == 'X' ? &foreign_
                                : text[i] == 'N' ? &missing_
                                                 : nullptr;
      replaced += path ? quote + *path + quote : std::string(1, text[i]);
    }
    return replaced;
  }
  CommandResult RunInPlace(const std::string& arguments) { return Run(InPlace(arguments, "\"")); }

  const std::string damaged_ = folder_.File("damaged.ksf");
  const std::string foreign_ = folder_.File("foreign.ksf");
  const std::string missing_ = folder_.File("missing\\missing.ksf");
};

struct Row {
  std::string Arguments;
  DWORD Code;
  std::string Results, Problems;
};

TEST_F(CliCommandTest, PrintsWhatIsThereAndChangesNothing) {
  const Row rows[] = {
      {"--version", 0, "ksm 2.28.0.0\n", ""},
      {"", 2, "", "ksm: A command is required; \"ksm --help\" lists them\n"},
      {"frob", 2, "", "frob: There is no such command; \"ksm --help\" lists them\n"},
      {"list x", 2, "", "ksm list: The following argument was not expected: x\n"},
      {"import", 2, "", "ksm import: FILE is required\n"},
      {"list --wait soon", 2, "", "ksm list: Could not convert: --wait = soon\n"},
      {"list", 0,
       "Name     Description  Built in  Allocated to\n"
       "Infants  For Infants            user ann\n"
       "Juniors  For Juniors\n"
       "Staff    For Staff    yes\n",
       ""},
      {"show staff", 4, "", "staff: There is no such scheme; did you mean \"Staff\"?\n"},
      {"show \"\" --file F", 4, "", "\"\": There is no such scheme\n"},
      {"check F", 0, "Whole, with 3 schemes\n", ""},
      {"check X", 3, "", "X: This is no scheme file\n"},
      {"check N", 3, "", "N: This file cannot be read\n"},
      {"check D --json", 1,
       "*\"whole\": false,\n  \"schemes\": 1,\n  \"findings\": [\n    {\n      \"kind\": ", ""},
      {"diff F", 1,
       "same       Infants\n"
       "changed    Staff\n"
       "  Description: \"For Staff\" -> \"Changed\"\n"
       "new        L\xC3\xA9o - Tabs\n"
       "only here  Juniors\n",
       ""},
      {"diff F Infants", 0, "same       Infants\n", ""},
      {"diff F Juniors", 1, "only here  Juniors\n", ""},
      {"diff F Nobody leo", 4, "", "Nobody: There is no such scheme\nleo: There is no such scheme\n"},
      {"diff F Staff --json", 1,
       "*\"schemes\": [\n    {\n      \"name\": \"Staff\",\n      \"state\": \"changed\",\n      "
       "\"differences\": [\n"
       "        {\n          \"setting\": \"Description\",\n          \"here\": \"For Staff\",\n"
       "          \"file\": \"Changed\"\n        }\n      ]\n    }\n  ]\n}\n",
       ""},
      {"diff D Infants", 1, "*changed    Infants\n", "D: This file is damaged; \"ksm check\" tells where\n"},
      {"import F --dry-run Infants", 0, "same       Infants\n", ""},
      {"import F --dry-run --keep-built-in", 1,
       "Left Staff as it is: it is built in\n"
       "same       Infants\n"
       "new        L\xC3\xA9o - Tabs\n"
       "only here  Juniors\n",
       ""},
      {"import F infants Juniors", 4, "",
       "infants: There is no such scheme; did you mean \"Infants\"?\nJuniors: There is no such scheme\n"},
      {"import X", 3, "", "X: This is no scheme file\n"},
      {"import F --backup N", 3, "", "N: This file cannot be written\n"},
      {"import F --backup F", 2, "", "F: The backup would replace the file that is to be imported\n"},
      {"import F --backup \"\"", 2, "", "ksm import: --backup: must not be empty\n"},
      {"export N", 3, "", "N: This file cannot be written\n"},
      {"export N Nobody", 4, "", "Nobody: There is no such scheme\n"},
      {"delete Infants Staff", 5, "", "Staff: This scheme is built in; nothing was deleted\n"},
      {"delete Infants juniors", 4, "", "juniors: There is no such scheme; did you mean \"Juniors\"?\n"},
      {"allocations", 0,
       "Kind   Name    Scheme\nuser   ann     Infants\nuser   ben\ngroup  Pupils\ngroup  Staff\n", ""},
      {"allocations --json", 0, "*\"name\": \"ben\",\n      \"scheme\": null,", ""},
      {"allocate --user ann infants", 4, "", "infants: There is no such scheme; did you mean \"Infants\"?\n"},
      {"allocate Infants", 2, "", "ksm allocate: Just one of --class, --user and --group is required\n"},
      {"allocate --user ann", 2, "", "*"},
      {"allocate --user ann Infants --clear", 2, "", "*"},
      {"helper", 0, "Merlin\n", ""},
      {"helper merlin", 2, "", "merlin: There is no such helper; there are Peedy, Merlin, Robby and Genie\n"},
  };
  const std::string machine = Machine();
  for (const auto& [arguments, code, results, problems] : rows) {
    SCOPED_TRACE(arguments);
    const CommandResult run = RunInPlace(arguments);
    EXPECT_EQ(run.Code, code);
    if (results.starts_with('*')) {
      EXPECT_NE(run.Results.find(results.substr(1)), std::string::npos) << run.Results;
    } else {
      EXPECT_EQ(run.Results, results);
    }
    if (problems != "*") {
      EXPECT_EQ(run.Problems, InPlace(problems));
    }
    EXPECT_EQ(Machine(), machine);
  }
}

TEST_F(CliCommandTest, ShowsASchemeOfTheMachineAndOfAFileAlike) {
  const CommandResult here = Run("show Infants"), inFile = Run("show Infants --file \"" + file_ + "\"");
  EXPECT_EQ(here.Code, 0u);
  EXPECT_NE(here.Results.find("\nFolder 1: Path                               H:\\\n"), std::string::npos);
  EXPECT_EQ(here.Results, inFile.Results);
  const std::string json = Run("show Infants --json").Results;
  EXPECT_NE(json.find("{\n      \"setting\": \"Folder 1: Path\",\n      \"value\": \"H:\\\\\"\n    }"),
            std::string::npos);
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
    Add(Described(name));
  EXPECT_EQ(RunningCommand(L"export \"" + std::wstring(file_.begin(), file_.end()) +
                               L"\" -- list -v caf\u00E9 [a,b] {} /b \"a b\"",
                           folder_)
                .Finish()
                .Results,
            "Saved 7 schemes to " + file_ + "\n");
  const CommandResult lossy = RunningCommand(L"show \u0416", folder_).Finish();
  EXPECT_EQ(lossy.Code, 2u);
  EXPECT_EQ(lossy.Problems,
            "ksm: Argument 2 has a character that the code page of this machine does not have\n");
}

TEST_F(CliCommandTest, DeletesSchemesWithTheirAllocations) {
  const CommandResult run = Run("delete Infants Juniors Infants");
  EXPECT_EQ(run.Code, 0u);
  EXPECT_EQ(run.Results, "Deleted Infants\nDeleted Juniors\n");
  EXPECT_EQ(Run("list").Results, "Name   Description  Built in  Allocated to\nStaff  For Staff    yes\n");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), "[]");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), "[]");
}

TEST_F(CliCommandTest, AllocatesAndChoosesTheHelper) {
  const Row rows[] = {
      {"allocate --user ben Staff", 0, "Allocated Staff to user ben\n", ""},
      {"allocate Staff --group Pupils", 0, "Allocated Staff to group Pupils\n", ""},
      {"allocate --class Elm Juniors --quiet", 0, "",
       "Elm: This machine does not know this class; the allocation is made all the same\n"},
      {"allocate --user ann --clear", 0, "Cleared user ann\n", ""},
      {"helper Genie", 0, "Chose Genie\n", ""},
      {"helper", 0, "Genie\n", ""},
  };
  for (const auto& [arguments, code, results, problems] : rows) {
    const CommandResult run = Run(arguments);
    EXPECT_EQ(run.Code, code) << arguments;
    EXPECT_EQ(run.Results, results);
    EXPECT_EQ(run.Problems, problems);
  }
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserSchemes), R"([] "ann"="" "ben"="Staff")");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kClassSchemes), R"([] "Elm"="Juniors" "Oak"="juniors")");
  ExpectTree(HKEY_LOCAL_MACHINE, AllocationKeyPath(kUserGroupSchemes), R"([] "Pupils"="Staff")");
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
  Add(Described("Default User"));
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

// What some commands need is a file; the others are told nothing that could be wrong.
const std::string kCommands[] = {"list",        "show Infants", "delete Infants",
                                 "export E",    "diff F",       "import F",
                                 "allocations", "explain",      "allocate --user ann Infants",
                                 "helper",      "helper Genie"};

TEST_F(CliCommandTest, CreatesNothingWithoutTheShell) {
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProductKey);
  const std::string machine = Machine();
  for (const std::string& command : kCommands) {
    const CommandResult run = RunInPlace(command);
    EXPECT_EQ(run.Code, 4u) << command;
    EXPECT_EQ(run.Results + run.Problems, "ksm: Kelvanstead is not installed on this machine\n");
  }
  EXPECT_EQ(Machine(), machine);
  EXPECT_EQ(RunInPlace("check F").Code, 0u);
}

TEST_F(CliCommandTest, KeepsALockedOutUserOut) {
  WriteTree(HKEY_CURRENT_USER, "Software\\Policies\\Tessaly\\Kelvanstead Scheme Manager", "\"Lock\"=dword:1");
  const std::string machine = Machine();
  for (const std::string& command : kCommands) {
    const CommandResult run = RunInPlace(command);
    EXPECT_EQ(run.Code, 5u) << command;
    EXPECT_EQ(run.Results + run.Problems, "ksm: The policy locks this user out\n");
  }
  EXPECT_EQ(RunInPlace("check F").Code, 5u);
  EXPECT_EQ(Run("--version").Code, 0u);
  EXPECT_EQ(Machine(), machine);
}

}  // namespace
