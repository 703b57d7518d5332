#include "controls/dialog.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "controls/message.h"
#include "controls/property_sheet.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr char kTitle[] = "Under test";
constexpr int kThrow = 900;  // a command

// Throws what comes out of exhausted memory, of the standard library and of anywhere else.
void Throw(int kind) {
  if (kind == 0) throw std::bad_alloc();
  if (kind == 1) throw std::runtime_error("a test");
  throw kind;
}

struct TestDialog : CDialog {
  explicit TestDialog(int failingFill = -1) : CDialog(IDD_PROGRESS), FailingFill(failingFill) {}
  bool OnInitDialog() override {
    SetWindowTextA(Window(), kTitle);
    if (FailingFill >= 0) Throw(FailingFill);
    return true;
  }
  void OnCommand(int id, int code) override {
    if (id == kThrow) Throw(code);
  }
  const int FailingFill;
};

TEST(Dialog, StopsWhateverIsThrownAndEndsWhenItCannotBeFilled) {
  for (int kind = 0; kind < 3; ++kind) {
    DialogScript script;
    script.Expect(kTitle, [kind](HWND dialog) {
      SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kThrow, kind), 0);
      EXPECT_EQ(TakeBeeps(), std::vector<UINT>{MB_ICONERROR});
      SendMessageA(dialog, WM_HELP, 1, 1);  // what another program may send
      SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(TestDialog().DoModal(nullptr), IDOK);
    EXPECT_EQ(TestDialog(kind).DoModal(nullptr), -1);
    EXPECT_EQ(TakeBeeps(), std::vector<UINT>{MB_ICONERROR});
  }
}

struct TestPage : CPropertyPage {
  TestPage() : CPropertyPage(IDD_ITEM_LIST_PAGE, "Page") {}
  void ExchangeData(bool toControls) override {
    if (toControls && FailsToFill) Throw(2);
    if (!toControls && FailuresToApply-- > 0) Throw(2);
  }
  bool FailsToFill = false;
  int FailuresToApply = 0;
};

INT_PTR ShowSheet(TestPage& page) {
  CPropertySheet sheet(kTitle);
  sheet.AddPage(page);
  return sheet.DoModal(nullptr);
}

TEST(PropertySheets, ItsPagesConfirmAndCancelItAndFailWithIt) {
  DialogScript script;
  for (const WPARAM id : {IDOK, IDCANCEL}) {
    TestPage page;
    script.Expect(kTitle,
                  [id](HWND sheet) { SendMessageA(PropSheet_GetCurrentPageHwnd(sheet), WM_COMMAND, id, 0); });
    EXPECT_EQ(ShowSheet(page), static_cast<INT_PTR>(id));
  }
  TestPage unfilled;
  unfilled.FailsToFill = true;  // so it is gone before anybody could use it
  EXPECT_EQ(ShowSheet(unfilled), IDCANCEL);
  EXPECT_EQ(TakeBeeps(), std::vector<UINT>{MB_ICONERROR});

  TestPage failing;
  failing.FailuresToApply = 1;
  script.Expect(kTitle, [](HWND sheet) {
    Click(sheet, IDOK);
    Pump();
    EXPECT_TRUE(IsWindowVisible(sheet)) << "what was entered is not taken over yet";
    EXPECT_EQ(TakeBeeps(), std::vector<UINT>{MB_ICONERROR});
    Click(sheet, IDOK);
  });
  EXPECT_EQ(ShowSheet(failing), IDOK);
}

bool g_hasNewColours = false;

LRESULT CALLBACK NoteColours(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  g_hasNewColours |= message == WM_SYSCOLORCHANGE;
  return DefSubclassProc(control, message, wParam, lParam);
}

TEST(PropertySheets, HandsNewColoursOnToTheControlsOfItsPages) {
  TestPage page;
  DialogScript script;
  script.Expect(kTitle, [](HWND sheet) {
    SetWindowSubclass(GetWindow(PropSheet_GetCurrentPageHwnd(sheet), GW_CHILD), &NoteColours, 1, 0);
    SendMessageA(sheet, WM_SYSCOLORCHANGE, 0, 0);
    Click(sheet, IDOK);
  });
  ShowSheet(page);
  EXPECT_TRUE(g_hasNewColours);
}

TEST(Message, ShowsAnyTextInTheCodePageUpToItsLimit) {
  DialogScript script;
  for (const auto& [text, shown] :
       {std::pair<std::string, std::string>{"Caf\xE9 \x80\n\rline", "Caf\xE9 \x80\n\rline"},
        {std::string(40'000, 'x'), std::string(32'000, 'x')}}) {
    script.ExpectMessage({.Buttons = "OK Cancel"}, "Caf\xE9", shown, IDCANCEL);
    EXPECT_EQ(ShowMessage(nullptr, text, "Caf\xE9", MB_OKCANCEL), IDCANCEL);
  }
}

}  // namespace
