// The allocations in the registry, and the dialog over them.

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <optional>
#include <set>

#include "allocation/account_detection.h"
#include "allocation/allocation_dialog.h"
#include "allocation/allocation_dialog_ids.h"
#include "allocation/scheme_selector_ids.h"
#include "controls/window_text.h"
#include "support/dialog_script.h"
#include "support/environment_component.h"
#include "support/registry_test.h"
#include "support/scratch_ini.h"

namespace {

constexpr char kTessaly[] = "Software\\Tessaly";
constexpr char kProduct[] = "Software\\Tessaly\\Kelvanstead";
const std::string kTallowbyIni = "C:\\Program Files\\Tessaly\\Tallowby\\Benchspace\\Config\\";
const std::string kCratelingIni = "C:\\Program Files\\Tessaly\\Crateling\\Benchspace\\Config\\";

using Texts = std::vector<std::string>;

class AllocationTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, R"(
        [Kelvanstead\Schemes]
        "Staff"="For teachers"
        "Juniors"=""
        "Endless"=")" + std::string(400, 'x') + R"("
        [Kelvanstead\Class Schemes]
        "Oak"="Juniors"
        "Ash"=dword:12345678
        [Kelvanstead\User Schemes]
        "ann"="Gone"
        "BEN"="Staff"
        "left long ago"="Staff"
        [Tallowby\Accounts\ann]
        "Account Type"="Pupils"
        [Tallowby\Accounts\ben]
        "Account Type"="Teachers"
        [Tallowby\Accounts\cy]
        "Account Type"="pupils"
        [Tallowby\Accounts\dot]
        )");
  }
};

Texts Rows(const std::vector<Allocation>& allocations) {
  Texts rows;
  for (const auto& [kind, name, scheme] : allocations)
    rows.push_back(name + "|" + KindText(kind) + "|" + scheme);
  return rows;
}

const Texts kAccountRows = {"ann|User Schemes|Gone",      "ben|User Schemes|Staff",
                            "cy|User Schemes|",           "dot|User Schemes|",
                            "Pupils|User Group Schemes|", "Teachers|User Group Schemes|"};

Texts WithAccounts(Texts rows) {
  rows.insert(rows.end(), kAccountRows.begin(), kAccountRows.end());
  return rows;
}

TEST_F(AllocationTest, ReadsTheClassesOfTheIniFile) {
  EXPECT_EQ(Rows(ReadAllocations(true)), kAccountRows) << "without a file";
  const auto ini = [](const std::string& lines) { return "[Benchspace]\r\n" + lines; };
  const ScratchIni shared(kTallowbyIni + "Benchspace.ini", ini("Default Class=Oak\r\n"));
  EXPECT_EQ(Rows(ReadAllocations(true)), WithAccounts({"Oak|Class Schemes|Juniors"})) << "one entry only";

  // An answer that fills the buffer has lost the end of its last name.
  std::string longList;
  Texts longRows;
  for (int i = 100; i < 200; ++i) {
    longList += "Class " + std::to_string(i) + ", ";
    if (longList.size() <= 1023) longRows.push_back("Class " + std::to_string(i) + "|Class Schemes|");
  }
  const std::string endless(300, 'n');
  const struct {
    std::string Lines;
    Texts Rows;
  } cases[] = {
      {"Default Class= oak \r\nAvailable Classes=Ash,,\t Year 3 , OAK,Ash,\r\n",
       {"oak|Class Schemes|Juniors", "Ash|Class Schemes|", "Year 3|Class Schemes|"}},
      {"Default Class=No string read\r\nAvailable Classes=\r\n", {}},
      {"Available Classes=Elm," + endless + ",Yew\r\n", {"Elm|Class Schemes|", "Yew|Class Schemes|"}},
      {"Available Classes=" + longList + "\r\n", longRows},
      {"Available Classes=" + std::string(2000, 'x') + "\r\n", {}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.Lines.substr(0, 60));
    const ScratchIni local(kTallowbyIni + "LocalBenchspace.ini", ini(test.Lines));
    EXPECT_EQ(Rows(ReadAllocations(true)), WithAccounts(test.Rows));
  }
}

TEST_F(AllocationTest, ReadsLogonNamesAndTheOtherIniFileOutsideTheNtFamily) {
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
            "[Tallowby\\Logon\\Passwords]\n@=\"\"\n\"" + std::string(260, 'z') +
                "\"=\"\"\n\"ann\"=hex(3):00 ff\n\"eve\"=\"" + std::string(1000, 's') + "\"");
  const ScratchIni shared(kCratelingIni + "Benchspace.ini", "[Benchspace]\nDefault Class=Oak\n");
  EXPECT_EQ(Rows(ReadAllocations(false)),
            (Texts{"Oak|Class Schemes|Juniors", "ann|User Schemes|Gone", "eve|User Schemes|"}));
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Tallowby");
  EXPECT_EQ(Rows(ReadAllocations(true)), Texts{});
}

// The dialog.

HWND List(HWND dialog) { return GetDlgItem(dialog, IDC_ALLOCATION_LIST); }

Texts ShownRows(HWND dialog) {
  Texts rows;
  for (int row = 0; row < ListView_GetItemCount(List(dialog)); ++row) {
    rows.push_back(ListCellText(List(dialog), row, 0) + "|" + ListCellText(List(dialog), row, 1) + "|" +
                   ListCellText(List(dialog), row, 2));
  }
  return rows;
}

void SelectNames(HWND dialog, const std::set<std::string>& names) {
  for (int row = 0; row < ListView_GetItemCount(List(dialog)); ++row) {
    const bool select = names.contains(ListCellText(List(dialog), row, 0));
    ListView_SetItemState(List(dialog), row, select ? LVIS_SELECTED : 0, LVIS_SELECTED);
  }
}

void DoubleClick(HWND dialog, int row) {
  POINT place{};
  ListView_GetItemPosition(List(dialog), row, &place);
  SendMessageA(List(dialog), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(place.x + 30, place.y + 5));
}

void ClickColumn(HWND dialog, int column) {
  NMLISTVIEW click{};
  click.hdr = {List(dialog), IDC_ALLOCATION_LIST, static_cast<UINT>(LVN_COLUMNCLICK)};
  click.iItem = -1;
  click.iSubItem = column;
  SendMessageA(dialog, WM_NOTIFY, IDC_ALLOCATION_LIST, reinterpret_cast<LPARAM>(&click));
}

std::string Selected(HWND selector) {
  const HWND list = GetDlgItem(selector, IDC_SELECTOR_LIST);
  const LRESULT entry = SendMessageA(list, LB_GETCURSEL, 0, 0);
  if (entry == LB_ERR) return "(none)";
  char text[64] = "";
  SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text));
  return text;
}

// Nothing that the user sees is cut off by the window's edge.
void ExpectVisibleControls(HWND dialog, const std::set<int>& ids) {
  std::set<int> visible;
  RECT client;
  GetClientRect(dialog, &client);
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    visible.insert(GetDlgCtrlID(child));
    RECT place;
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    RECT seen;
    IntersectRect(&seen, &place, &client);
    EXPECT_TRUE(EqualRect(&seen, &place)) << "control " << GetDlgCtrlID(child);
  }
  EXPECT_EQ(visible, ids);
}

TEST_F(AllocationTest, AllocatesToClassesUsersAndGroups) {
  const ScratchIni ini(kTallowbyIni + "Benchspace.ini", "[Benchspace]\nAvailable Classes=Oak,Ash\n");
  for (const LONG code : {3, 6}) {
    SCOPED_TRACE(code);
    const EnvironmentComponent component([code](LONG* out) {
      *out = code;
      return E_FAIL;  // not looked at
    });
    WriteTree(HKEY_LOCAL_MACHINE, kProduct, "[Class Schemes]\n\"Oak\"=\"Juniors\"");
    DialogScript script;
    script
        .Expect("Classes, Users and Schemes",
                [](HWND dialog) {
                  ExpectVisibleControls(dialog, {IDC_ALLOCATION_GROUP, IDC_ALLOCATION_HINT,
                                                 IDC_ALLOCATION_LIST, IDC_ALLOCATION_CHANGE, IDOK, IDCANCEL});
                  EXPECT_EQ(ShownRows(dialog)[0], "Oak|Class Schemes|Juniors");
                  EXPECT_EQ(ShownRows(dialog).size(), 8u);
                  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_ALLOCATION_CHANGE)));
                  SelectNames(dialog, {"Ash", "ben", "cy", "Pupils"});
                  Click(dialog, IDC_ALLOCATION_CHANGE);
                  ClickColumn(dialog, 0);
                  ClickColumn(dialog, 0);  // now from Z to A
                  EXPECT_EQ(ShownRows(dialog).front(), "Teachers|User Group Schemes|");
                  SelectNames(dialog, {"Oak"});
                  DoubleClick(dialog, 2);  // Oak
                  SelectNames(dialog, {"cy"});
                  Click(dialog, IDC_ALLOCATION_CHANGE);
                  SelectNames(dialog, {});
                  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_ALLOCATION_CHANGE)));
                  Click(dialog, IDOK);
                })
        .Expect("Schemes",
                [](HWND selector) {
                  EXPECT_EQ(Selected(selector), "(none)") << "the rows differ";
                  Choose(selector, IDC_SELECTOR_LIST, "Staff");
                  SendMessageA(selector, WM_COMMAND, MAKEWPARAM(IDC_SELECTOR_LIST, LBN_DBLCLK), 0);
                })
        .Expect("Schemes",
                [](HWND selector) {
                  EXPECT_EQ(Selected(selector), "Juniors");
                  SendDlgItemMessageA(selector, IDC_SELECTOR_LIST, LB_SETCURSEL, 0, 0);
                  Click(selector, IDOK);
                })
        .Expect("Schemes", [](HWND selector) {
          EXPECT_EQ(Selected(selector), "Staff");
          Choose(selector, IDC_SELECTOR_LIST, "Endless");
          Click(selector, IDCANCEL);
        });
    EXPECT_EQ(CAllocationDialog().DoModal(nullptr), IDOK);
    ExpectTree(HKEY_LOCAL_MACHINE, std::string(kProduct) + "\\Class Schemes", R"([]
        "Oak"=""
        "Ash"="Staff")");
    ExpectTree(HKEY_LOCAL_MACHINE, std::string(kProduct) + "\\User Schemes", R"([]
        "ann"="Gone"
        "BEN"="Staff"
        "cy"="Staff"
        "dot"=""
        "left long ago"="Staff")");
    ExpectTree(HKEY_LOCAL_MACHINE, std::string(kProduct) + "\\User Group Schemes", R"([]
        "Pupils"="Staff"
        "Teachers"="")");
    // Restored for the other code.
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, (std::string(kProduct) + "\\User Group Schemes").c_str());
    WriteTree(HKEY_LOCAL_MACHINE, kProduct, "[User Schemes]\n\"ann\"=\"Gone\"\n\"BEN\"=\"Staff\"");
  }
}

TEST_F(AllocationTest, CancelWritesNothing) {
  const EnvironmentComponent component([](LONG* code) { return *code = 7, S_OK; });
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kTessaly);
  DialogScript script;
  script.Expect("Classes, Users and Schemes", [](HWND dialog) {
    SelectNames(dialog, {"cy"});
    Click(dialog, IDC_ALLOCATION_CHANGE);
    EXPECT_EQ(ShownRows(dialog)[2], "cy|User Schemes|Staff");
    PressKey(VK_ESCAPE);
  });
  script.Expect("Schemes", [](HWND selector) {
    Choose(selector, IDC_SELECTOR_LIST, "Staff");
    Click(selector, IDOK);
  });
  EXPECT_EQ(CAllocationDialog().DoModal(nullptr), IDCANCEL);
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kTessaly), before);
}

TEST_F(AllocationTest, PerUserLayoutWritesTheCurrentUsersChoiceOnly) {
  const EnvironmentComponent::Operation throws = [](LONG* code) -> HRESULT {
    *code = 3;
    throw 1;
  };
  const EnvironmentComponent::Operation eight = [](LONG* code) { return *code = 8, S_OK; };
  const EnvironmentComponent::Operation silent = [](LONG*) { return S_OK; };
  const EnvironmentComponent::Operation absent;
  const struct {
    const EnvironmentComponent::Operation& Component;
    const char* Before;
    const char* Preselected;
    const char* Choice;
    const char* After;
  } cases[] = {
      {absent, "", "", "", ""},
      {throws, "", "", "Juniors", "[]\n\"ConfigToUse\"=\"Juniors\""},
      {eight, "[]\n\"ConfigToUse\"=\"staff\"", "Staff", "", "[]\n\"ConfigToUse\"=\"Staff\""},
      {silent, "[]\n\"ConfigToUse\"=\"Gone\"", "", "", "[]\n\"ConfigToUse\"=\"Gone\""},
  };
  const std::string machine = DumpTree(HKEY_LOCAL_MACHINE, kTessaly);
  for (const auto& test : cases) {
    SCOPED_TRACE(test.Before);
    std::optional<EnvironmentComponent> component;
    if (test.Component) component.emplace(test.Component);
    RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
    if (*test.Before) WriteTree(HKEY_CURRENT_USER, kProduct, test.Before);
    DialogScript script;
    script.Expect("User Schemes", [&](HWND dialog) {
      ExpectVisibleControls(dialog, {IDC_CURRENT_USER_GROUP, IDC_CURRENT_USER_EXPLANATION,
                                     IDC_CURRENT_USER_LABEL, IDC_CURRENT_USER_SCHEME, IDOK});
      EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_CURRENT_USER_SCHEME));
      EXPECT_EQ(ControlText(dialog, IDC_CURRENT_USER_SCHEME), test.Preselected);
      if (*test.Choice) Choose(dialog, IDC_CURRENT_USER_SCHEME, test.Choice);
      Click(dialog, IDC_CURRENT_USER_APPLY);
      if (*test.After) ExpectTree(HKEY_CURRENT_USER, kProduct, test.After);
      SendDlgItemMessageA(dialog, IDC_CURRENT_USER_SCHEME, CB_SHOWDROPDOWN, FALSE, 0);
      RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
      Click(dialog, IDOK);
    });
    EXPECT_EQ(CAllocationDialog().DoModal(nullptr), IDOK);
    EXPECT_EQ(ReadConfigToUse(), *test.Choice ? test.Choice : test.Preselected);
  }
  DialogScript script;
  script.Expect("User Schemes", [](HWND) { PressKey(VK_ESCAPE); });
  EXPECT_EQ(CAllocationDialog().DoModal(nullptr), IDCANCEL);
  EXPECT_EQ(ReadConfigToUse(), "");
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kTessaly), machine);
}

}  // namespace
