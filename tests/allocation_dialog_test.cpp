// The allocations of the registry, and the dialog over them.

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <optional>
#include <set>

#include "allocation/account_detection.h"
#include "allocation/allocation_dialog.h"
#include "allocation/allocation_dialog_ids.h"
#include "allocation/scheme_selector_ids.h"
#include "controls/list_view.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/environment_component.h"
#include "support/registry_test.h"
#include "support/scratch_ini.h"

namespace {

constexpr char kTessaly[] = "Software\\Tessaly";
const std::string kTallowbyIni = "C:\\Program Files\\Tessaly\\Tallowby\\Benchspace\\Config\\";
const std::string kCratelingIni = "C:\\Program Files\\Tessaly\\Crateling\\Benchspace\\Config\\";

constexpr char kMachine[] = R"(
    [Kelvanstead\Schemes] "Staff"="For teachers" "Juniors"=""
    [Kelvanstead\Class Schemes] "Oak"="Juniors" "Ash"=dword:12345678
    [Kelvanstead\User Schemes] "ann"="Gone" "BEN"="Staff" "left long ago"="Staff"
    [Tallowby\Accounts\ann] "Account Type"="Pupils"
    [Tallowby\Accounts\ben] "Account Type"="Teachers"
    [Tallowby\Accounts\cy] "Account Type"="pupils"
    [Tallowby\Accounts\dot])";
// Its accounts, as Shown below.
constexpr char kAccounts[] =
    "ann (User Schemes) Gone, ben (User Schemes) Staff, cy (User Schemes) , dot (User Schemes) , "
    "Pupils (User Group Schemes) , Teachers (User Group Schemes) , ";

class AllocationTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, kMachine);
  }
};

std::string Shown(const std::string& name, const std::string& kind, const std::string& scheme) {
  return name + " (" + kind + ") " + scheme + ", ";
}

std::string Read(bool ntFamily) {
  std::string rows;
  for (const auto& [kind, name, scheme] : ReadAllocations(ntFamily))
    rows += Shown(name, KindText(kind), scheme);
  return rows;
}

TEST_F(AllocationTest, ReadsTheClassesOfTheIniFile) {
  EXPECT_EQ(Read(true), kAccounts) << "without a file";
  const ScratchIni shared(kTallowbyIni + "Benchspace.ini", "[Benchspace]\nDefault Class=Oak");
  EXPECT_EQ(Read(true), Shown("Oak", kClassSchemes, "Juniors") + kAccounts) << "without a list";

  const std::string endless(300, 'n');
  const std::string filling = std::string(200, 'a') + "," + std::string(200, 'b') + "," +
                              std::string(200, 'c') + "," + std::string(200, 'd') + ",";
  const std::vector<std::pair<std::string, std::vector<std::string>>> cases = {
      {"Default Class= oak \nAvailable Classes=Ash,,\t Year 3 , OAK,Ash,", {"Ash", "Year 3"}},
      {"Default Class=No string read\nAvailable Classes=oak,Elm," + endless + ",Yew", {"Elm", "Yew"}},
      // The answer is cut within the last name, which is then none.
      {"Default Class=" + endless + endless + endless + endless + "\nAvailable Classes=oak," + filling +
           endless,
       {std::string(200, 'a'), std::string(200, 'b'), std::string(200, 'c'), std::string(200, 'd')}}};
  for (const auto& [lines, names] : cases) {
    const ScratchIni local(kTallowbyIni + "LocalBenchspace.ini", "[Benchspace]\n" + lines);
    std::string rows = Shown("oak", kClassSchemes, "Juniors");
    for (const std::string& name : names)
      rows += Shown(name, kClassSchemes, "");
    EXPECT_EQ(Read(true), rows + kAccounts);
  }
}

TEST_F(AllocationTest, ReadsLogonNamesAndTheOtherIniFileOutsideTheNtFamily) {
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
            "[Tallowby\\Logon\\Passwords] @=\"\" \"" + std::string(260, 'z') +
                "\"=\"\" \"ann\"=hex(3):00 ff \"eve\"=\"" + std::string(1000, 's') + "\"");
  const ScratchIni shared(kCratelingIni + "Benchspace.ini", "[Benchspace]\nDefault Class=Oak");
  EXPECT_EQ(Read(false), "Oak (Class Schemes) Juniors, ann (User Schemes) Gone, eve (User Schemes) , ");
}

// The dialog.

HWND List(HWND dialog) { return GetDlgItem(dialog, IDC_ALLOCATION_LIST); }

std::string ShownRows(HWND dialog) {
  std::string rows;
  for (int row = 0; row < ListView_GetItemCount(List(dialog)); ++row) {
    const auto cell = [&](int column) { return ListCellText(List(dialog), row, column); };
    rows += Shown(cell(0), cell(1), cell(2));
  }
  return rows;
}

// Selects the rows of these names and no other; answers the last of them.
int SelectNames(HWND dialog, const std::set<std::string>& names) {
  int last = -1;
  for (int row = 0; row < ListView_GetItemCount(List(dialog)); ++row) {
    const bool select = names.contains(ListCellText(List(dialog), row, 0));
    ListView_SetItemState(List(dialog), row, select ? LVIS_SELECTED : 0, LVIS_SELECTED);
    if (select) last = row;
  }
  const HWND change = GetDlgItem(dialog, IDC_ALLOCATION_CHANGE);
  EXPECT_EQ(IsWindowEnabled(change) != FALSE, !names.empty());
  return last;
}

void DoubleClick(HWND dialog, int row) {
  POINT place{};
  ListView_GetItemPosition(List(dialog), row, &place);
  SendMessageA(List(dialog), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(place.x + 30, place.y + 5));
}

void ClickColumn(HWND dialog, int column) {
  NMLISTVIEW click{};
  click.hdr = {List(dialog), IDC_ALLOCATION_LIST, static_cast<UINT>(LVN_COLUMNCLICK)};
  click.iSubItem = column;
  SendMessageA(dialog, WM_NOTIFY, IDC_ALLOCATION_LIST, reinterpret_cast<LPARAM>(&click));
}

// The selector: expects an entry to be preselected (-1 for none), chooses one and confirms.
DialogScript::Action ChooseScheme(int preselected, int choice, int button) {
  return [=](HWND selector) {
    EXPECT_EQ(SendDlgItemMessageA(selector, IDC_SELECTOR_LIST, LB_GETCURSEL, 0, 0), preselected);
    SendDlgItemMessageA(selector, IDC_SELECTOR_LIST, LB_SETCURSEL, static_cast<WPARAM>(choice), 0);
    if (button) return Click(selector, button);
    SendMessageA(selector, WM_COMMAND, MAKEWPARAM(IDC_SELECTOR_LIST, LBN_DBLCLK), 0);
  };
}

// These controls are to be seen, whole, and no others.
void ExpectVisibleControls(HWND dialog, const std::set<int>& ids) {
  std::set<int> visible;
  RECT client;
  GetClientRect(dialog, &client);
  MapWindowPoints(dialog, nullptr, reinterpret_cast<POINT*>(&client), 2);
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    RECT place;
    RECT seen;
    GetWindowRect(child, &place);
    IntersectRect(&seen, &place, &client);
    if (EqualRect(&seen, &place)) visible.insert(GetDlgCtrlID(child));
  }
  EXPECT_EQ(visible, ids);
}

TEST_F(AllocationTest, AllocatesToClassesUsersAndGroups) {
  const ScratchIni ini(kTallowbyIni + "Benchspace.ini", "[Benchspace]\nAvailable Classes=Oak,Ash");
  for (const LONG code : {3, 6}) {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kProductKey);
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, kMachine);
    const EnvironmentComponent component([code](LONG* out) { return *out = code, E_FAIL; });
    enum Entry { kNone = -1, kBlank, kJuniors, kStaff };
    for (const int button : {IDCANCEL, IDOK}) {
      const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kTessaly);
      DialogScript script;
      script
          .Expect("Classes, Users and Schemes",
                  [=](HWND dialog) {
                    ExpectVisibleControls(dialog,
                                          {IDC_ALLOCATION_GROUP, IDC_ALLOCATION_HINT, IDC_ALLOCATION_LIST,
                                           IDC_ALLOCATION_CHANGE, IDOK, IDCANCEL});
                    EXPECT_EQ(ShownRows(dialog),
                              std::string("Oak (Class Schemes) Juniors, Ash (Class Schemes) , ") + kAccounts);
                    SelectNames(dialog, {"Ash", "ben", "cy", "Pupils"});
                    Click(dialog, IDC_ALLOCATION_CHANGE);
                    ClickColumn(dialog, 0);
                    ClickColumn(dialog, 0);
                    EXPECT_TRUE(ShownRows(dialog).starts_with("Teachers (User Group Schemes) , Pupils"));
                    DoubleClick(dialog, SelectNames(dialog, {"Oak"}));
                    SelectNames(dialog, {"cy"});
                    Click(dialog, IDC_ALLOCATION_CHANGE);
                    SelectNames(dialog, {});
                    Click(dialog, button);
                  })
          .Expect("Schemes", ChooseScheme(kNone, kStaff, 0))
          .Expect("Schemes", ChooseScheme(kJuniors, kBlank, IDOK))
          .Expect("Schemes", ChooseScheme(kStaff, kJuniors, IDCANCEL));
      EXPECT_EQ(CAllocationDialog().DoModal(nullptr), button);
      if (button == IDCANCEL) {
        EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kTessaly), before);
      }
    }
    ExpectTree(HKEY_LOCAL_MACHINE, kProductKey, R"([]
        [Schemes] "Staff"="For teachers" "Juniors"=""
        [Class Schemes] "Oak"="" "Ash"="Staff"
        [User Schemes] "ann"="Gone" "BEN"="Staff" "cy"="Staff" "dot"="" "left long ago"="Staff"
        [User Group Schemes] "Pupils"="Staff" "Teachers"="")");
  }
}

TEST_F(AllocationTest, PerUserLayoutWritesTheCurrentUsersChoiceOnly) {
  const struct {
    EnvironmentComponent::Operation Component;
    const char* Before;
    const char* Preselected;
    const char* Choice;
  } cases[] = {
      {nullptr, "", "", ""},
      {[](LONG* code) -> HRESULT { throw* code = 3; }, "", "", "Juniors"},
      {[](LONG* code) { return *code = 8, S_OK; }, "staff", "Staff", ""},
      {[](LONG*) { return S_OK; }, "Gone", "", ""},
  };
  const std::string machine = DumpTree(HKEY_LOCAL_MACHINE, kTessaly);
  for (const auto& test : cases) {
    SCOPED_TRACE(test.Before);
    std::optional<EnvironmentComponent> component;
    if (test.Component) component.emplace(test.Component);
    const std::string chosen = *test.Choice ? test.Choice : test.Preselected;
    for (const int button : {IDC_CURRENT_USER_APPLY, IDOK}) {
      RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
      if (*test.Before) WriteConfigToUse(test.Before);
      DialogScript script;
      script.Expect("User Schemes", [&](HWND dialog) {
        ExpectVisibleControls(dialog, {IDC_CURRENT_USER_GROUP, IDC_CURRENT_USER_EXPLANATION,
                                       IDC_CURRENT_USER_LABEL, IDC_CURRENT_USER_SCHEME, IDOK});
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_CURRENT_USER_SCHEME));
        EXPECT_EQ(ControlText(dialog, IDC_CURRENT_USER_SCHEME), test.Preselected);
        if (*test.Choice) Choose(dialog, IDC_CURRENT_USER_SCHEME, test.Choice);
        Click(dialog, button);
        if (button != IDOK) PressKey(VK_ESCAPE);
      });
      EXPECT_EQ(CAllocationDialog().DoModal(nullptr), button == IDOK ? IDOK : IDCANCEL);
      const std::string after = chosen.empty() ? test.Before : chosen;
      ExpectTree(HKEY_CURRENT_USER, kProductKey, after.empty() ? "" : "[] \"ConfigToUse\"=\"" + after + "\"");
    }
  }
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kTessaly), machine);
}

}  // namespace
