// Who gets which scheme: the resolver, the allocations of the registry, and the dialog over them.

#include <windows.h>

#include <filesystem>

#include "allocation/account_detection.h"
#include "allocation/dialog/allocation_dialog.h"
#include "allocation/dialog/allocation_dialog_ids.h"
#include "allocation/dialog/scheme_selector_ids.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/environment_component.h"
#include "support/list_driver.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

namespace {

constexpr char kTessaly[] = "Software\\Tessaly";

using ResolverTest = RegistryTest;

TEST_F(ResolverTest, TriesTheCandidatesInOrder) {
  const struct {
    int Code;  // and what is allocated to the class, chosen by the user, allocated to the user and the group
    std::string AccountType, Class, Own, User, Group, Loaded;
  } cases[] = {
      // The class counts for pupils only, however their type is spelled, and comes before user and group.
      {3, "Pupils", "C", "", "U", "G", "C"},
      {6, "pupil", "C", "", "U", "G", "C"},
      {3, "Teachers", "C", "", "U", "G", "U"},
      {6, "Teachers", "C", "O", "", "G", "G"},
      {6, "Pupils", "Missing", "", "", "G", "G"},
      {6, "Pupils", "Half", "", "", "", "Default User"},
      // The user's own choice counts in the per-user environments only, which know no account types.
      {8, "Pupils", "C", "O", "U", "G", "O"},
      {9, "Pupils", "C", "Missing", "U", "G", "U"},
      {99, "Pupils", "C", "", "", "G", "Default User"},
      // Without an environment the user's scheme is loaded, but the answer is an error.
      {0, "Pupils", "C", "O", "U", "G", "U"},
      {0, "Pupils", "", "", "", "", "Default User"},
  };
  // This one does not load.
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Half"), "[WebLinks] \"WebLinksCount\"=dword:1");
  for (const char* name : {"C", "O", "U", "G", "Default User"}) {
    SchemeProperties scheme;
    scheme.Name = scheme.Defaults.DefaultView = name;
    ASSERT_TRUE(SaveSchemeProperties(name, scheme));
  }
  const std::string user = getenv("USERNAME"), oak = "\"Current Class\"=\"Oak\" ";
  for (const auto& [code, accountType, ofClass, own, ofUser, ofGroup, loaded] : cases) {
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
              "[Tallowby\\Accounts\\" + user + "] \"Account Type\"=\"" + accountType +
                  "\" [Crateling\\Benchspace] " + oak + "\"Current Mode\"=\"" + accountType +
                  "\" [Kelvanstead\\Class Schemes] \"Oak\"=\"" + ofClass +
                  "\" [Kelvanstead\\User Schemes] \"" + user + "\"=\"" + ofUser +
                  "\" [Kelvanstead\\User Group Schemes] \"" + accountType + "\"=\"" + ofGroup + "\"");
    WriteTree(HKEY_CURRENT_USER, kTessaly,
              "[Benchspace] " + oak + "[Kelvanstead] \"ConfigToUse\"=\"" + own + "\"");
    SchemeProperties scheme;
    scheme.Description = "what was in the object before";
    EXPECT_EQ(ResolveSchemeForUser(scheme, code), code ? loaded : "Error") << accountType << ofClass << own;
    EXPECT_EQ(scheme.Defaults.DefaultView + scheme.Description, loaded) << code << accountType << ofClass;
  }
}

constexpr char kMachine[] = R"(
    [Kelvanstead\Schemes] "Staff"="For teachers" "Juniors"=""
    [Kelvanstead\Class Schemes] "Oak"="Juniors" "Ash"=dword:12345678
    [Kelvanstead\User Schemes] "ann"="Gone" "BEN"="Staff" "left long ago"="Staff"
    [Tallowby\Accounts\ann] "Account Type"="Pupils"
    [Tallowby\Accounts\ben] "Account Type"="Teachers"
    [Tallowby\Accounts\cy] "Account Type"="pupils"
    [Tallowby\Accounts\dot])";
// The rows of its accounts.
const std::string kAccounts =
    "User Schemes: ann Gone, User Schemes: ben Staff, User Schemes: cy , User Schemes: dot , "
    "User Group Schemes: Pupils , User Group Schemes: Teachers , ";

const std::filesystem::path kPrograms = "C:\\Program Files\\Tessaly";
const std::filesystem::path kMark = kPrograms / "made by a test";

class AllocationTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, kMachine);
    WriteTree(HKEY_CURRENT_USER, kTessaly, "[Kelvanstead\\User Schemes] \"cy\"=\"of this user only\"");
  }
  ~AllocationTest() override {
    if (exists(kMark)) remove_all(kPrograms);
  }
  void WriteIni(const std::string& product, const std::string& name, const std::string& lines) {
    if (exists(kPrograms) && !exists(kMark)) throw std::runtime_error("this machine has classes of its own");
    const std::filesystem::path folder = kPrograms / product / "Benchspace" / "Config";
    create_directories(folder);
    WriteFileBytes(kMark.string(), "");
    WriteFileBytes((folder / name).string(), "[Benchspace]\n" + lines);
  }
};

std::string Read(bool ntFamily) {
  std::string rows;
  for (const auto& [kind, name, scheme, known] : ReadAllocations(ntFamily))
    rows += std::string(KindText(kind)) + ": " + name + " " + (known ? scheme : "?") + ", ";
  return rows;
}

TEST_F(AllocationTest, ReadsClassesAndUsers) {
  EXPECT_EQ(Read(true), kAccounts) << "without a file";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"Benchspace.ini", "Default Class=Oak", "Class Schemes: Oak Juniors, "},
      {"LocalBenchspace.ini", "Default Class= oak \nAvailable Classes=Ash,,\t Year 3 , OAK,Ash,",
       "Class Schemes: oak Juniors, Class Schemes: Ash ?, Class Schemes: Year 3 , "},
      {"LocalBenchspace.ini",
       "Default Class=No string read\nAvailable Classes=Elm," + std::string(260, 'n') + ",Yew",
       "Class Schemes: Elm , Class Schemes: Yew , "},
      // The answer is cut within the last name, which is then none.
      {"LocalBenchspace.ini",
       "Available Classes=Elm," + std::string(1000, ',') + "Hornbeam and Rowan and Yew",
       "Class Schemes: Elm , "}};
  for (const auto& [file, lines, classes] : cases) {
    WriteIni("Tallowby", file, lines);
    EXPECT_EQ(Read(true), classes + kAccounts);
  }
  // Outside the NT family other places count.
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
            "[Tallowby\\Logon\\Passwords] @=\"\" \"" + std::string(260, 'z') +
                "\"=\"\" \"ann\"=hex(3):00 ff \"eve\"=\"" + std::string(1000, 's') + "\"");
  WriteIni("Crateling", "Benchspace.ini", "Default Class=Oak");
  EXPECT_EQ(Read(false), "Class Schemes: Oak Juniors, User Schemes: ann Gone, User Schemes: eve , ");
}

HWND List(HWND dialog) { return GetDlgItem(dialog, IDC_ALLOCATION_LIST); }

// What the list tells the dialog.
void Notify(HWND dialog, int code) {
  NMLISTVIEW event{};
  event.hdr = {List(dialog), IDC_ALLOCATION_LIST, static_cast<UINT>(code)};
  SendMessageA(dialog, WM_NOTIFY, IDC_ALLOCATION_LIST, reinterpret_cast<LPARAM>(&event));
}

// Selects the rows of these names and no other.
void Select(HWND dialog, std::initializer_list<const char*> names) {
  ListView_SetItemState(List(dialog), -1, 0, LVIS_SELECTED);
  for (const char* name : names)
    ListView_SetItemState(List(dialog), FindRow(List(dialog), name), LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(IsWindowEnabled(GetDlgItem(dialog, IDC_ALLOCATION_CHANGE)) != 0, names.size() != 0);
}

// The selector: expects an entry to be preselected (-1 for none), chooses one and ends by the command.
DialogScript::Action ChooseScheme(int preselected, WPARAM choice, WPARAM command) {
  return [=](HWND selector) {
    EXPECT_EQ(SendDlgItemMessageA(selector, IDC_SELECTOR_LIST, LB_GETCURSEL, 0, 0), preselected);
    SendDlgItemMessageA(selector, IDC_SELECTOR_LIST, LB_SETCURSEL, choice, 0);
    SendMessageA(selector, WM_COMMAND, command, 0);
  };
}

int VisibleControls(HWND dialog) {
  int count = 0;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    count += IsWindowVisible(child);
  return count;
}

TEST_F(AllocationTest, AllocatesToClassesUsersAndGroups) {
  WriteIni("Tallowby", "Benchspace.ini", "Available Classes=Oak,Ash");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  for (const auto& [code, button] : {std::pair{3, IDCANCEL}, std::pair{6, IDOK}}) {
    const EnvironmentComponent component([code = code](LONG* out) { return *out = code, E_FAIL; });
    const auto allocate = [button = button](HWND dialog) {
      EXPECT_EQ(VisibleControls(dialog), 6);
      EXPECT_EQ(ListCellText(List(dialog), 0, 1) + ListCellText(List(dialog), 0, 2), "Class SchemesJuniors");
      Select(dialog, {"Ash", "ben", "cy", "Pupils"});
      Click(dialog, IDC_ALLOCATION_CHANGE);
      Notify(dialog, LVN_COLUMNCLICK);
      Notify(dialog, LVN_COLUMNCLICK);
      EXPECT_EQ(ListCellText(List(dialog), 0, 0), "Teachers");
      Select(dialog, {"Oak"});
      Notify(dialog, NM_DBLCLK);
      Select(dialog, {"cy"});
      Click(dialog, IDC_ALLOCATION_CHANGE);
      Select(dialog, {});
      Click(dialog, button);
    };
    enum Entry { kNone = -1, kBlank, kJuniors, kStaff };
    DialogScript script;
    script.Expect("Classes, Users and Schemes", allocate)
        .Expect("Schemes", ChooseScheme(kNone, kStaff, MAKEWPARAM(IDC_SELECTOR_LIST, LBN_DBLCLK)))
        .Expect("Schemes", ChooseScheme(kJuniors, kBlank, IDOK))
        .Expect("Schemes", ChooseScheme(kStaff, kJuniors, IDCANCEL));
    EXPECT_EQ(CAllocationDialog().DoModal(nullptr), button);
    ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, button == IDCANCEL ? before : R"([]
        [Schemes] "Staff"="For teachers" "Juniors"=""
        [Class Schemes] "Oak"="" "Ash"="Staff"
        [User Schemes] "ann"="Gone" "BEN"="Staff" "cy"="Staff" "dot"="" "left long ago"="Staff"
        [User Group Schemes] "Pupils"="Staff" "Teachers"="")");
  }
}

TEST_F(AllocationTest, PerUserLayoutWritesTheCurrentUsersChoiceOnly) {
  constexpr int kApply = IDC_CURRENT_USER_APPLY;
  const struct {
    EnvironmentComponent::Call Component;
    const char *Before, *Preselected, *Choice;
    int Button;
    const char* After;
  } cases[] = {
      {nullptr, "", "", "", IDOK, ""},
      {[](LONG* code) -> HRESULT { throw* code = 3; }, "", "", "Juniors", kApply, "Juniors"},
      // What code of another compiler throws.
      {[](LONG* code) { return RaiseException(0xE06D7363, *code = 3, 0, nullptr), S_OK; }, "", "", "", kApply,
       ""},
      {[](LONG* code) { return *code = 8, S_OK; }, "staff", "Staff", "", IDOK, "Staff"},
      {[](LONG*) { return S_OK; }, "Gone", "", "", kApply, "Gone"},
  };
  const std::string machine = DumpTree(HKEY_LOCAL_MACHINE, kTessaly);
  for (const auto& test : cases) {
    const EnvironmentComponent component(test.Component);
    RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
    if (*test.Before) {
      ASSERT_EQ(WriteConfigToUse(test.Before), WriteResult::kDone);
    }
    DialogScript script;
    script.Expect("User Schemes", [&](HWND dialog) {
      EXPECT_EQ(VisibleControls(dialog), 5);
      EXPECT_EQ(ControlText(dialog, IDC_CURRENT_USER_SCHEME), test.Preselected);
      if (*test.Choice) Choose(dialog, IDC_CURRENT_USER_SCHEME, test.Choice);
      Click(dialog, test.Button);
      if (test.Button != IDOK) PressKey(VK_ESCAPE);
    });
    CAllocationDialog().DoModal(nullptr);
    const std::string after = std::string("[] \"ConfigToUse\"=\"") + test.After + "\"";
    ExpectTree(HKEY_CURRENT_USER, kProductKey, *test.After ? after : "");
  }
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kTessaly), machine);
}

}  // namespace
