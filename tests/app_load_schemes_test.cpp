#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/catalogue_messages.h"
#include "app/load_plan.h"
#include "app/load_schemes_command.h"
#include "controls/list_view.h"
#include "registry/registry_paths.h"
#include "schemefile/exchange.h"
#include "schemefile/scheme_file.h"
#include "support/dialog_script.h"
#include "support/exchange_machine.h"
#include "support/imported_calls.h"

namespace {

constexpr char kOwner[] = "Owner";
constexpr char kTitle[] = "Load Schemes";
constexpr int kList = 1002, kAll = 1003, kNone = 1004, kSettings = 1005, kDamage = 1007;
constexpr int kKeepCopy = 1008, kCopyFile = 1010, kBrowse = 1011;
constexpr char kCopyProblem[] =
    "The copy of the present schemes could not be saved, so nothing was loaded.\n"
    "Please choose another place for it.";
const MessageStyle kOwnWarning = kWarning.OwnedBy(kOwner);

SchemeProperties Silent(SchemeProperties scheme) {
  scheme.Defaults.Silent = 1;
  return scheme;
}

// What a list shows: a row in brackets, its cells between bars, behind x where it is checked.
std::string Rows(HWND list) {
  std::string rows;
  const int columns = Header_GetItemCount(ListView_GetHeader(list));
  for (int row = 0; row < ListView_GetItemCount(list); ++row) {
    rows += ListView_GetItemState(list, row, LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2) ? "[x " : "[";
    for (int column = 0; column < columns; ++column)
      rows += (column > 0 ? "|" : "") + ListCellText(list, row, column);
    rows += "]";
  }
  return rows;
}

// A machine with Infants, Juniors and Staff, which is built in, and files beside it.
class LoadSchemesTest : public ExchangeMachineTest {
 protected:
  void SetUp() override {
    ExchangeMachineTest::SetUp();
    AddMachine();
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Staff"="")");
    owner_ = CreateWindowA("STATIC", kOwner, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                           nullptr, nullptr, nullptr);
  }
  void TearDown() override {
    EXPECT_TRUE(IsWindowEnabled(owner_));
    DestroyWindow(owner_);
    ExchangeMachineTest::TearDown();
  }

  void AddMachine() {
    for (const char* name : {"Infants", "Juniors", "Staff"})
      Add(Scheme(name));
  }
  // The registry of a machine with these schemes.
  std::string MachineWith(const std::vector<SchemeProperties>& schemes) {
    ClearSchemes();
    for (const SchemeProperties& scheme : schemes)
      Add(scheme);
    std::string tree = Schemes();
    ClearSchemes();
    AddMachine();
    return tree;
  }

  // Writes a scheme file as an export of these schemes does.
  void WriteSchemeFile(const std::vector<SchemeProperties>& schemes) {
    SchemeHive hive;
    hive.Schemes = schemes;
    for (const SchemeProperties& scheme : schemes)
      hive.Config.Entries.push_back({scheme.Name, "For " + scheme.Name});
    SchemeFile file;
    file.Save(hive, {});
    ASSERT_TRUE(file.Write(folder_.Path(), path_));
  }
  // One scheme of each kind.
  void WriteOneOfEach() {
    WriteSchemeFile(
        {Silent(Scheme("Infants")), Scheme("Juniors"), Silent(Scheme("Staff")), Scheme("Year 7")});
  }

  void Open() {
    OpenSchemeFile(owner_, std::wstring(path_.begin(), path_.end()), [this] {
      ++reloads_;
      EXPECT_FALSE(IsWindowEnabled(owner_)) << "the command has not ended";
    });
  }
  void ExpectDialog(const std::function<void(HWND dialog)>& use,
                    DialogScript::Place place = DialogScript::Place::current()) {
    script_.Expect(
        kTitle,
        [this, use](HWND dialog) {
          list_ = GetDlgItem(dialog, kList);
          use(dialog);
        },
        place);
  }
  void Press(int row, WPARAM key) const {
    SelectRow(list_, row);
    SendMessageA(list_, WM_KEYDOWN, key, 0);
  }

  HWND owner_ = nullptr;
  HWND list_ = nullptr;
  int reloads_ = 0;
  DialogScript script_;
};

TEST_F(LoadSchemesTest, ShowsWhatWouldHappenAndLoadsWhatIsChecked) {
  WriteOneOfEach();
  const std::string copy = folder_.File("before.ksf");
  const std::string loaded =
      MachineWith({Scheme("Infants"), Scheme("Juniors"), Silent(Scheme("Staff")), Scheme("Year 7")});
  const std::string before = ReadFileBytes(path_);
  ExpectDialog([&](HWND dialog) {
    EXPECT_EQ(Rows(list_),
              "[x Infants|For Infants|Changed][Juniors|For Juniors|Same]"
              "[Staff|For Staff|Built in and changed][x Year 7|For Year 7|New]");
    EXPECT_EQ(GetFocus(), list_);
    const HWND settings = GetDlgItem(dialog, kSettings);
    EXPECT_EQ(Rows(settings), "[Default Settings: OnScreen Helper|Talking (54)|Silent]");
    EXPECT_EQ(ListView_GetNextItem(settings, -1, LVNI_FOCUSED), 0) << "seen when Tab leads there";
    SelectRow(list_, 3);
    EXPECT_EQ(Rows(settings), "");
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, kDamage)));
    EXPECT_TRUE(IsDlgButtonChecked(dialog, kKeepCopy));
    const std::string proposed = ControlText(dialog, kCopyFile);
    EXPECT_TRUE(proposed.starts_with(folder_.File("Schemes of 20"))) << proposed;

    Press(0, VK_SPACE);
    Press(2, VK_SPACE);
    Type(dialog, kCopyFile, "before.ksf");  // counts from the folder of the file
    SetFocus(list_);
    PressKey(VK_RETURN);
  });
  Open();
  EXPECT_EQ(reloads_, 1);
  EXPECT_EQ(Schemes(), loaded);
  EXPECT_EQ(ReadFileBytes(path_), before);

  // The copy is the machine as it was.
  ClearSchemes();
  AddMachine();
  WriteFileBytes(path_, ReadFileBytes(copy));
  ExpectDialog([&](HWND dialog) {
    EXPECT_EQ(Rows(list_), "[Infants|For Infants|Same][Juniors|For Juniors|Same][Staff|For Staff|Same]");
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK))) << "nothing is checked";
    Click(dialog, IDCANCEL);
  });
  Open();
}

TEST_F(LoadSchemesTest, ChecksByButtonKeyAndClick) {
  WriteOneOfEach();
  const std::string before = Schemes();
  ExpectDialog([&](HWND dialog) {
    Click(dialog, kAll);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
    Click(dialog, kNone);
    PressKey(VK_RETURN);
    Pump();
    EXPECT_TRUE(IsWindowVisible(dialog)) << "nothing to load";

    NMLVFINDITEMA letters{};
    letters.hdr = {list_, kList, LVN_ODFINDITEMA};
    letters.lvfi.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
    letters.lvfi.psz = "jU";
    letters.iStart = 2;
    EXPECT_EQ(SendMessageA(dialog, WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&letters)), 1);

    const auto click = [&](int row, int part) {
      RECT area{};
      ListView_GetItemRect(list_, row, &area, part);
      const LPARAM place = MAKELPARAM(part == LVIR_LABEL ? area.left + 5 : area.left - 8, area.top + 5);
      PostMessageA(list_, WM_LBUTTONUP, 0, place);
      SendMessageA(list_, WM_LBUTTONDOWN, MK_LBUTTON, place);
      Pump();
    };
    Press(0, VK_SPACE);
    Press(3, VK_SPACE);
    click(1, LVIR_ICON);
    click(3, LVIR_ICON);
    click(2, LVIR_LABEL);  // selects
    EXPECT_EQ(Rows(list_),
              "[x Infants|For Infants|Changed][x Juniors|For Juniors|Same]"
              "[Staff|For Staff|Built in and changed][Year 7|For Year 7|New]");
    EXPECT_EQ(SelectedRow(list_), 2);

    Click(dialog, kKeepCopy);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, kCopyFile)) ||
                 IsWindowEnabled(GetDlgItem(dialog, kBrowse)));
    SetFocus(list_);
    PressKey(VK_ESCAPE);
  });
  Open();
  EXPECT_EQ(Schemes(), before);
  EXPECT_EQ(reloads_, 0);
}

TEST_F(LoadSchemesTest, TellsDamageAndLeavesWhatItConcernsUnchecked) {
  const std::string longName(200, 'n');
  WriteSchemeFile(
      {Silent(Scheme("Infants")), Scheme("Year 7"), Scheme(longName), Scheme("a\\b"), Scheme("Odd\x01\n")});
  std::string bytes = ReadFileBytes(path_);
  const auto remove = [&bytes](const std::string& record) {
    const std::size_t place = bytes.find(Bytes(record));
    ASSERT_NE(place, bytes.npos) << record;
    bytes.erase(place, record.size());
  };
  remove("Year 7 - Tabs|Page2|0|");
  remove(longName + " - Tabs|Page2|0|");
  WriteFileBytes(path_, bytes + "Year 8");
  ExpectDialog([&](HWND dialog) {
    EXPECT_EQ(Rows(list_), "[x Infants|For Infants|Changed][Year 7|For Year 7|New, damaged][" + longName +
                               "|For " + longName + "|New, damaged][x Odd  |For Odd  |New]")
        << "no scheme can have the other name";
    const std::string damage = Rows(GetDlgItem(dialog, kDamage));
    EXPECT_NE(damage.find("[Year 7|\"Tabs, Page2\" is missing]"), damage.npos) << damage;
    EXPECT_NE(damage.find("is no name that a scheme can have]"), damage.npos) << damage;
    EXPECT_TRUE(damage.ends_with("[|The file ends inside a record]")) << damage;
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(dialog, kDamage)));
    Press(1, VK_SPACE);
    Click(dialog, IDOK);
  });
  Open();
  EXPECT_EQ(RootCounts(), "Infants:1 Juniors:1 Odd\x01\n:1 Staff:1 Year 7:1 ") << "what is checked is loaded";
}

// Of more damage than is told, nothing can be said of the rest.
TEST(LoadPlanTest, ChoosesNothingOfAFileThatIsAllDamage) {
  SchemeHive file;
  file.Schemes = {Scheme("Year 7")};
  CheckResult check;
  check.Findings.resize(1000);
  const LoadPlan plan = MakeLoadPlan("C:\\a.ksf", file, check, {}, {}, {});
  ASSERT_EQ(plan.Schemes.size(), 1u);
  EXPECT_FALSE(plan.Schemes[0].IsChosen);
  EXPECT_EQ(plan.Damage.back().Text, "There may be more damage");
}

TEST_F(LoadSchemesTest, DoesNotBeginWithoutTheCopy) {
  WriteOneOfEach();
  const std::string before = Schemes();
  const std::string kept = folder_.File("kept.ksf");
  WriteFileBytes(kept, "old");
  const auto load = [](const std::string& copy) {
    return [copy](HWND dialog) {
      Type(dialog, kCopyFile, copy);
      Click(dialog, IDOK);
    };
  };
  for (const std::string& nowhere : {folder_.File("none\\copy.ksf"), std::string(), std::string("a?b.ksf")}) {
    ExpectDialog(load(nowhere));
    script_.ExpectMessage(kOwnWarning, kTitle, kCopyProblem);
    ExpectDialog([&](HWND dialog) {
      EXPECT_EQ(ControlText(dialog, kCopyFile), nowhere) << "as it was left";
      Click(dialog, IDCANCEL);
    });
    Open();
  }
  const MessageStyle question{.Icon = MB_ICONEXCLAMATION,
                              .Beep = MB_ICONEXCLAMATION,
                              .Buttons = "Yes (not by Enter) No",
                              .Owner = kTitle};
  const std::string replace = kept + " already exists.\nDo you want to replace it ?";
  ExpectDialog([&](HWND dialog) {
    script_.ExpectMessage(question, kTitle, replace, IDNO);
    load(kept)(dialog);
    EXPECT_TRUE(IsWindowVisible(dialog));
    Click(dialog, IDCANCEL);
  });
  Open();
  EXPECT_EQ(Schemes(), before);
  EXPECT_EQ(reloads_, 0);
  EXPECT_EQ(ReadFileBytes(kept), "old");

  script_.Expect(kTitle, load(kept)).ExpectMessage(question, kTitle, replace, IDYES);
  Open();
  EXPECT_EQ(reloads_, 1);
  EXPECT_NE(ReadFileBytes(kept), "old");

  // A text with the character that ends a field in a file.
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"Juniors\"=\"a\xAC\"");
  ExpectDialog(load(folder_.File("torn.ksf")));
  script_.ExpectMessage(
      kOwnWarning, kTitle,
      "The copy of the present schemes was saved, but cannot be read whole, so nothing was loaded.\n"
      "One of their names or texts has a character that no scheme file can hold.");
  ExpectDialog([](HWND dialog) { Click(dialog, IDCANCEL); });
  Open();
  EXPECT_EQ(reloads_, 1);
}

TEST_F(LoadSchemesTest, SaysWhatCouldNotBeWritten) {
  WriteOneOfEach();
  ImportedCalls calls({IMPORTED(RegSetValueExA), IMPORTED(RegOpenKeyExA)});
  const struct {
    const char* Refused;
    const char* Text;
  } cases[] = {
      {"RegSetValueExA DefaultView",
       "The following scheme/s could not be loaded completely:\nInfants, Year 7.\n\n"
       "The list shows what is stored now."},
      {"RegSetValueExA Year 7",
       "Not all of the descriptions could be written.\nThe list shows what is stored now."},
      {kSchemesKey, "You do not have the rights to change the schemes, so nothing was loaded."},
  };
  for (const auto& [refused, text] : cases) {
    ExpectDialog([&](HWND dialog) {
      Click(dialog, kKeepCopy);
      calls.FailEach(refused, ERROR_ACCESS_DENIED);
      Click(dialog, IDOK);
    });
    script_.ExpectMessage(kOwnWarning, kTitle, text);
    Open();
    calls.FailEach("", ERROR_SUCCESS);
    ClearSchemes();
    AddMachine();
  }
  EXPECT_EQ(reloads_, 3);
  EXPECT_EQ(JoinNames({"a", std::string("b\0c", 3)}), "a, b?c")
      << "a name of a file, which would end the text";
}

// As "Load from disk" says it.
TEST_F(LoadSchemesTest, SaysWhenAFileIsNotToBeRead) {
  script_.ExpectMessage(kOwnWarning, "Read Problem",
                        "Unable to read the file specified.\nThis is due to the file being damaged,\n"
                        "protected or unreadable for another reason");
  Open();
  script_.ExpectMessage(kOwnWarning, kTitle,
                        "The path of this file has characters that this program does not know.\n"
                        "Please copy the file to a folder and a name without them, and open it there.");
  OpenSchemeFile(owner_, L"C:\\\u0142\u00F3d\u017A.ksf", {});
}

}  // namespace
