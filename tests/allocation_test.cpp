// Who gets which scheme: the resolver, the allocations of the registry, and the dialog over them.

#include <windows.h>

#include <shlwapi.h>

#include <filesystem>

#include "allocation/account_detection.h"
#include "allocation/dialog/allocation_dialog.h"
#include "allocation/dialog/allocation_dialog_ids.h"
#include "allocation/dialog/scheme_selector_ids.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/environment_component.h"
#include "support/imported_calls.h"
#include "support/list_driver.h"
#include "support/looks.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

namespace {

constexpr char kTessaly[] = "Software\\Tessaly";

using ResolverTest = RegistryTest;

// Which candidates there are, and in which order, is seen of ksm.
TEST_F(ResolverTest, LoadsTheSchemeAndNothingOfThoseThatFailed) {
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Half"), "[Defaults] \"DefaultIconSize\"=dword:7");
  SchemeProperties found;
  found.Name = found.Defaults.DefaultView = kDefaultUserScheme;
  ASSERT_TRUE(SaveSchemeProperties(found.Name, found));
  ASSERT_EQ(WriteConfigToUse("Half"), WriteResult::kDone);
  SchemeProperties scheme;
  scheme.Description = "what was in the object before";
  EXPECT_EQ(ResolveSchemeForUser(scheme, 8), kDefaultUserScheme);
  EXPECT_EQ(scheme, found);
}

constexpr char kMachine[] = R"(
    [Kelvanstead\Schemes] "Staff"="For teachers" "Juniors"=""
    [Kelvanstead\Class Schemes] "Oak"="Juniors" "Ash"=dword:12345678 "Elm"=dword:00000000
    [Kelvanstead\User Schemes] "ann"="Gone" "BEN"=hex(2):53 74 61 66 66 00 "left long ago"="Staff"
    [Tallowby\Accounts\ann] "Account Type"="Pupils"
    [Tallowby\Accounts\ben] "Account Type"="Teachers"
    [Tallowby\Accounts\cy] "Account Type"="pupils"
    [Tallowby\Accounts\dot])";
// What dot has is longer than can be read.
const std::string kLongText = '"' + std::string(260, 's') + '"';
// The rows of its accounts.
const std::string kAccounts =
    "User Schemes: ann Gone, User Schemes: ben Staff, User Schemes: cy , User Schemes: dot ?, "
    "User Group Schemes: Pupils , User Group Schemes: Teachers , ";

const std::filesystem::path kPrograms = "C:\\Program Files\\Tessaly";
const std::filesystem::path kMark = kPrograms / "made by a test";

class AllocationTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, kMachine);
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, "[Kelvanstead\\User Schemes] \"dot\"=" + kLongText);
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
       "Class Schemes: Elm ?, Class Schemes: Yew , "},
      // The text is cut within the last name, which is then none.
      {"LocalBenchspace.ini",
       "Available Classes=Elm," + std::string(1000, ',') + "Hornbeam and Rowan and Yew",
       "Class Schemes: Elm ?, "}};
  for (const auto& [file, lines, classes] : cases) {
    WriteIni("Tallowby", file, lines);
    EXPECT_EQ(Read(true), classes + kAccounts);
  }
  // Outside the NT family other places count.
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
            "[Tallowby\\Logon\\Passwords] @=\"\" \"" + std::string(260, 'b') +
                "\"=\"\" \"ann\"=hex(3):00 ff \"eve\"=\"" + std::string(1000, 's') + "\"");
  WriteIni("Crateling", "Benchspace.ini", "Default Class=Oak");
  EXPECT_EQ(Read(false), "Class Schemes: Oak Juniors, User Schemes: ann Gone, User Schemes: eve , ");
}

HWND List(HWND dialog) { return GetDlgItem(dialog, IDC_ALLOCATION_LIST); }

// What the list tells the dialog.
void Notify(HWND dialog, int code, int column = 0) {
  NMLISTVIEW event{};
  event.iSubItem = column;
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

constexpr char kTitle[] = "Classes, Users and Schemes";
constexpr char kRefused[] =
    "You do not have the rights to change these settings.\nPlease contact your system administrator for help";

TEST_F(AllocationTest, AllocatesToClassesUsersAndGroups) {
  WriteIni("Tallowby", "Benchspace.ini", "Available Classes=Oak,Ash,Elm");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  for (const auto& [code, button] : {std::pair{3, IDCANCEL}, std::pair{6, IDOK}}) {
    const EnvironmentComponent component([code = code](LONG* out) { return *out = code, E_FAIL; });
    const auto allocate = [button = button](HWND dialog) {
      EXPECT_EQ(LayoutOf(dialog), "1147:11,11 1125:23,31 1124:23,65 1126:387,229 1:312,269 2:399,269 303");
      EXPECT_EQ(GetWindowLongA(List(dialog), GWL_STYLE) & 0xFFFF, LVS_REPORT | LVS_SHOWSELALWAYS);
      EXPECT_EQ(ColumnsOf(List(dialog)), "Class or User 180, Type 180, Schemes 300, ");
      for (const auto& [name, picture] : {std::pair{"Oak", 209u}, {"ann", 210u}, {"Pupils", 211u}}) {
        const Canvas canvas(16, 16);
        DrawRowPicture(canvas, List(dialog), FindRow(List(dialog), name));
        EXPECT_TRUE(ShowsBitmap(canvas, 0, 0, picture)) << name;
      }
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
      Select(dialog, {"ann"});
      Click(dialog, IDC_ALLOCATION_CHANGE);
      Select(dialog, {});
      Click(dialog, button);
    };
    enum Entry { kNone = -1, kBlank, kJuniors, kStaff };
    DialogScript script;
    script.Expect(kTitle, allocate)
        .Expect("Schemes", ChooseScheme(kNone, kStaff, MAKEWPARAM(IDC_SELECTOR_LIST, LBN_DBLCLK)))
        .Expect("Schemes", ChooseScheme(kJuniors, kBlank, IDOK))
        .Expect("Schemes", ChooseScheme(kStaff, kJuniors, IDCANCEL))
        .Expect("Schemes", [](HWND selector) {
          // The scheme that does not exist is an entry of its own, so Enter keeps it.
          EXPECT_EQ(SendDlgItemMessageA(selector, IDC_SELECTOR_LIST, LB_GETCURSEL, 0, 0), 1);
          PressKey(VK_RETURN);
        });
    EXPECT_EQ(CAllocationDialog().DoModal(nullptr), button);
    // What could not be read and was not changed stays: Elm's and dot's.
    ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, button == IDCANCEL ? before : R"([]
        [Schemes] "Staff"="For teachers" "Juniors"=""
        [Class Schemes] "Oak"="" "Ash"="Staff" "Elm"=dword:00000000
        [User Schemes] "ann"="Gone" "BEN"="Staff" "cy"="Staff" "left long ago"="Staff"
        "dot"=)" + kLongText + R"(
        [User Group Schemes] "Pupils"="Staff" "Teachers"="")");
  }
}

TEST_F(AllocationTest, WritesTheRowsInTheirOrderAndTellsOnceWhereThatIsRefused) {
  WriteIni("Tallowby", "Benchspace.ini", "Available Classes=Oak,Ash,Elm");
  const EnvironmentComponent component([](LONG* code) { return *code = 6, S_OK; });
  ImportedCalls calls({IMPORTED(SHRegSetUSValueW)});
  calls.FailEach("User Schemes", ERROR_ACCESS_DENIED);
  DialogScript script;
  script.Expect(kTitle, [](HWND dialog) {
    Notify(dialog, LVN_COLUMNCLICK, 1);
    Click(dialog, IDOK);
    EXPECT_TRUE(IsWindowEnabled(dialog)) << "it stays open";
    Click(dialog, IDCANCEL);
  });
  script.ExpectMessage(kWarning.OwnedBy(kTitle), "Error", kRefused);
  EXPECT_EQ(CAllocationDialog().DoModal(nullptr), IDCANCEL);
  std::string rows;
  for (const std::string& line : calls.Lines())
    rows += line.substr(line.find("Schemes ") + 8) + " ";
  EXPECT_EQ(rows, "Oak Pupils Pupils Teachers ann ben cy ") << "Pupils again, once their key is made";
}

TEST_F(AllocationTest, RefusesWhatCouldNotBeReadAgain) {
  EXPECT_EQ(WriteAllocation(AllocationKind::kUserGroup, "cy", std::string(259, 's')), WriteResult::kDone);
  EXPECT_EQ(WriteAllocation(AllocationKind::kUserGroup, "cy", std::string(260, 's')), WriteResult::kFailed);
}

TEST_F(AllocationTest, PerUserLayoutWritesTheCurrentUsersChoiceOnly) {
  constexpr int kApply = IDC_CURRENT_USER_APPLY;
  const struct {
    EnvironmentComponent::Call Component;  // null: there is none
    const char *Before, *Preselected, *Choice;
    int Button;
    const char* After;
  } cases[] = {{[](LONG* code) { return *code = 9, S_OK; }, "", "", "Juniors", kApply, "Juniors"},
               {[](LONG* code) { return *code = 8, S_OK; }, "staff", "Staff", "", IDOK, "Staff"},
               {[](LONG*) { return S_OK; }, "Gone", "", "", kApply, "Gone"},
               // One that throws or crashes has said nothing.
               {[](LONG* code) -> HRESULT { throw* code = 3; }, "", "", "", kApply, ""},
               {[](LONG* code) { return *code = 3, *static_cast<volatile HRESULT*>(nullptr); }, "", "", "",
                kApply, ""},
               {nullptr, "", "", "", IDOK, ""}};
  const std::string machine = DumpTree(HKEY_LOCAL_MACHINE, kTessaly);
  for (const auto& test : cases) {
    const EnvironmentComponent component(test.Component);
    RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
    if (*test.Before) {
      ASSERT_EQ(WriteConfigToUse(test.Before), WriteResult::kDone);
    }
    DialogScript script;
    script.Expect("User Schemes", [&](HWND dialog) {
      EXPECT_EQ(LayoutOf(dialog), "1143:11,12 1144:23,33 1145:23,80 1023:117,77 1:399,129 163");
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

TEST_F(AllocationTest, PerUserLayoutTellsEachTimeThatTheChoiceIsRefused) {
  DialogScript script;
  script.Expect("User Schemes", [](HWND dialog) {
    ImportedCalls calls({IMPORTED(RegCreateKeyExA), IMPORTED(RegSetValueExA)});
    Choose(dialog, IDC_CURRENT_USER_SCHEME, "Juniors");
    calls.FailNth(1, ERROR_ACCESS_DENIED);
    Click(dialog, IDC_CURRENT_USER_APPLY);
    calls.FailNth(2, ERROR_DISK_FULL);
    Click(dialog, IDOK);
    PressKey(VK_ESCAPE);
  });
  script.ExpectMessage(kWarning.OwnedBy("User Schemes"), "Error", kRefused)
      .ExpectMessage(kWarning.OwnedBy("User Schemes"), "Error",
                     "Not all of these settings could be written.\n"
                     "Please contact your system administrator for help");
  EXPECT_EQ(CAllocationDialog().DoModal(nullptr), IDCANCEL);
}

}  // namespace
