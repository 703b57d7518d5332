#include "controls/dialog.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

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
      TakeBeeps();
      SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kThrow, kind), 0);
      EXPECT_EQ(TakeBeeps(), std::vector<UINT>{MB_ICONERROR});
      SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(TestDialog().DoModal(nullptr), IDOK);
    EXPECT_EQ(TestDialog(kind).DoModal(nullptr), -1);
    EXPECT_EQ(TakeBeeps(), std::vector<UINT>{MB_ICONERROR});
  }
}

// A window that counts one message.
struct Counter {
  Counter(HWND window, UINT message) : Window(window), Message(message) {
    SetWindowSubclass(window, &Count, 7, reinterpret_cast<DWORD_PTR>(this));
  }
  ~Counter() { RemoveWindowSubclass(Window, &Count, 7); }
  static LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR self) {
    auto& counter = *reinterpret_cast<Counter*>(self);
    if (message == counter.Message) ++counter.Times;
    return DefSubclassProc(window, message, wParam, lParam);
  }
  const HWND Window;
  const UINT Message;
  int Times = 0;
};

struct TestPage : CPropertyPage {
  TestPage() : CPropertyPage(IDD_ITEM_LIST_PAGE, "Page") {}
  void ExchangeData(bool toControls) override {
    if (toControls && FailsToFill) Throw(2);
    if (!toControls && FailuresToApply-- > 0) Throw(2);
  }
  void OnCommand(int id, int) override {
    if (id == kThrow) TestDialog().DoModal(Window());
  }
  bool FailsToFill = false;
  int FailuresToApply = 0;
};

INT_PTR ShowSheet(HWND owner, TestPage& page) {
  CPropertySheet sheet(kTitle);
  sheet.AddPage(page);
  return sheet.DoModal(owner);
}

// The system makes WM_HELP of the real key only.
void PressF1() {
  for (const DWORD flags : {0, KEYEVENTF_KEYUP})
    keybd_event(VK_F1, 0, flags, 0);
  Pump();
}

TEST(Dialog, AsksForHelpAtTheOutermostWindow) {
  const HWND main = CreateWindowA("STATIC", "Main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 90, 90, nullptr,
                                  nullptr, nullptr, nullptr);
  Counter help(main, WM_HELP);
  TestPage page;
  DialogScript script;
  script.Expect(kTitle, [&](HWND sheet) {
    const HWND shown = PropSheet_GetCurrentPageHwnd(sheet);
    PressF1();
    EXPECT_EQ(help.Times, 1) << "F1 on a control of the page";
    Click(shown, IDHELP);
    EXPECT_EQ(help.Times, 2) << "the page's Help button";
    Click(sheet, IDHELP);
    EXPECT_EQ(help.Times, 3) << "the sheet's Help button";
    SendMessageA(shown, WM_COMMAND, kThrow, 0);
    Click(sheet, IDOK);
  });
  script.Expect(kTitle, [&](HWND dialog) {
    SetFocus(GetDlgItem(dialog, IDCANCEL));
    PressF1();
    SendMessageA(dialog, WM_HELP, 1, 1);  // what another program may send
    EXPECT_EQ(help.Times, 5) << "F1 in a dialog of the page";
    SendMessageA(dialog, WM_COMMAND, IDOK, 0);
  });
  EXPECT_EQ(ShowSheet(main, page), IDOK);
  DestroyWindow(main);
}

TEST(PropertySheets, ItsPagesConfirmAndCancelItAndFailWithIt) {
  const auto command = [](int id) {
    return [id](HWND sheet) {
      SendMessageA(PropSheet_GetCurrentPageHwnd(sheet), WM_COMMAND, static_cast<WPARAM>(id), 0);
    };
  };
  DialogScript script;
  for (const int id : {IDOK, IDCANCEL}) {
    TestPage page;
    script.Expect(kTitle, command(id));
    EXPECT_EQ(ShowSheet(nullptr, page), id);
  }
  TestPage unfilled;
  unfilled.FailsToFill = true;
  script.Expect(kTitle, [](HWND) {});
  EXPECT_EQ(ShowSheet(nullptr, unfilled), IDCANCEL);
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
  EXPECT_EQ(ShowSheet(nullptr, failing), IDOK);
}

TEST(PropertySheets, HandsNewColoursOnToTheControlsOfItsPages) {
  TestPage page;
  DialogScript script;
  script.Expect(kTitle, [](HWND sheet) {
    const HWND list = GetWindow(GetWindow(PropSheet_GetCurrentPageHwnd(sheet), GW_CHILD), GW_HWNDNEXT);
    for (const UINT message : {WM_SYSCOLORCHANGE, WM_THEMECHANGED}) {
      const Counter counter(list, message);
      SendMessageA(sheet, message, 0, 0);
      EXPECT_GE(counter.Times, 1) << message;
    }
    Click(sheet, IDOK);
  });
  ShowSheet(nullptr, page);
}

}  // namespace
