#include "support/dialog_script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <utility>

#include "controls/window_text.h"
#include "support/imported_calls.h"

namespace {

constexpr UINT kTickInterval = USER_TIMER_MINIMUM;
constexpr ULONGLONG kPatience = 10'000;
constexpr int kMaxClosed = 50;
constexpr int kMessageTextId = 0xFFFF, kMessageIconIds[] = {1088, 20};  // Wine's, Windows'

bool IsDialog(HWND window) {
  char className[16] = "";
  GetClassNameA(window, className, sizeof(className));
  return std::string_view(className) == "#32770" && !(GetWindowLongA(window, GWL_STYLE) & WS_CHILD);
}

const testing::TestInfo* RunningTest() { return testing::UnitTest::GetInstance()->current_test_info(); }

std::string TestName() {
  const testing::TestInfo* test = RunningTest();
  return test ? std::string(test->test_suite_name()) + "." + test->name() : "Between two tests";
}

int FailuresSoFar() { return RunningTest() ? RunningTest()->result()->total_part_count() : 0; }

void FailAt(const DialogScript::Place& place, const std::string& message) {
  ADD_FAILURE_AT(place.file_name(), static_cast<int>(place.line())) << TestName() << ": " << message;
}

std::string Quoted(HWND dialog) {
  const std::string text = MessageText(dialog);
  return '"' + WindowText(dialog) + '"' + (text.empty() ? "" : " (" + text + ")");
}

}  // namespace

// Sees every dialog of the thread that runs the tests, from before the first to after the last.
class DialogWatch : public testing::Environment {
 public:
  void SetUp() override;
  void TearDown() override;

  // Which script is running, null between two.
  void Follow(DialogScript* script);
  std::vector<UINT> TakeBeeps() { return std::exchange(beeps_, {}); }

 private:
  enum State { kNew, kPlayed, kUnwanted };
  struct OpenDialog {
    HWND Window;
    State IsIn = kNew;
    int TicksToClose = 0;  // so far
  };

  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
  static void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD);
  static BOOL WINAPI RecordBeep(UINT type);

  std::vector<OpenDialog>::iterator Find(HWND window);
  void OnActivate(HWND window);
  void OnDestroy(HWND window);
  State Present(HWND dialog);
  void Close(OpenDialog& open);

  HHOOK hook_ = nullptr;
  UINT_PTR timer_ = 0;
  std::optional<Diversion> beep_;
  DialogScript* script_ = nullptr;
  std::vector<OpenDialog> open_;  // in the order of their coming
  std::vector<UINT> beeps_;
  int closed_ = 0;
  ULONGLONG lastEvent_ = 0;
};

namespace {

auto* const g_watch = static_cast<DialogWatch*>(testing::AddGlobalTestEnvironment(new DialogWatch));

}  // namespace

void DialogWatch::SetUp() {
  hook_ = SetWindowsHookExA(WH_CBT, &Hook, nullptr, GetCurrentThreadId());
  beep_.emplace("MessageBeep", reinterpret_cast<void*>(&RecordBeep));
}

void DialogWatch::TearDown() {
  beep_.reset();
  UnhookWindowsHookEx(hook_);
}

void DialogWatch::Follow(DialogScript* script) {
  EXPECT_FALSE(script && script_) << "one script at a time";
  script_ = script;
  beeps_.clear();
  closed_ = 0;
}

// Acting inside the hook does not work: a property sheet has no page yet when it is activated.
LRESULT CALLBACK DialogWatch::Hook(int code, WPARAM wParam, LPARAM lParam) {
  const auto window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_ACTIVATE && IsDialog(window)) g_watch->OnActivate(window);
  if (code == HCBT_DESTROYWND) g_watch->OnDestroy(window);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

std::vector<DialogWatch::OpenDialog>::iterator DialogWatch::Find(HWND window) {
  return std::ranges::find(open_, window, &OpenDialog::Window);
}

void DialogWatch::OnActivate(HWND window) {
  if (Find(window) != open_.end()) return;
  open_.push_back({window});
  lastEvent_ = GetTickCount64();
  if (!timer_) timer_ = SetTimer(nullptr, 0, kTickInterval, &OnTick);
}

void DialogWatch::OnDestroy(HWND window) {
  if (Find(window) == open_.end()) return;
  open_.erase(Find(window));
  lastEvent_ = GetTickCount64();
  if (open_.empty()) KillTimer(nullptr, std::exchange(timer_, 0));
}

// A tick comes when the messages of before are done with, in whatever loop runs then. Playing a step may open
// and close dialogs, during which more ticks come.
void CALLBACK DialogWatch::OnTick(HWND, UINT, UINT_PTR, DWORD) {
  DialogScript*& script = g_watch->script_;
  std::vector<OpenDialog>& open = g_watch->open_;
  if (script && GetTickCount64() - g_watch->lastEvent_ > kPatience) script->GiveUp();
  for (std::size_t i = 0; i < open.size(); ++i) {
    const HWND dialog = open[i].Window;
    if (open[i].IsIn == kNew) {
      if (!IsWindowVisible(dialog)) continue;
      open[i].IsIn = kPlayed;
      const State state = g_watch->Present(dialog);
      if (const auto played = g_watch->Find(dialog); played != open.end()) played->IsIn = state;
    } else if (open[i].IsIn == kUnwanted || (script && script->abandoned_)) {
      // What waits for another dialog is closed after it.
      if (IsWindowEnabled(dialog)) g_watch->Close(open[i]);
    }
  }
}

DialogWatch::State DialogWatch::Present(HWND dialog) {
  if (!script_) ADD_FAILURE() << TestName() << ": unexpected dialog " << Quoted(dialog);
  const bool isWanted = script_ && script_->Play(dialog);
  lastEvent_ = GetTickCount64();
  return isWanted ? kPlayed : kUnwanted;
}

// The gentle ways first: a message box with OK only has no Cancel.
void DialogWatch::Close(OpenDialog& open) {
  switch (open.TicksToClose++) {
    case 0:
      if (++closed_ > kMaxClosed) {
        std::printf("%s: dialogs keep coming, so the tests end here: %s\n[  FAILED  ] %s\n",
                    TestName().c_str(), Quoted(open.Window).c_str(), TestName().c_str());
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), 1);
      }
      PostMessageA(open.Window, WM_COMMAND, IDCANCEL, 0);
      break;
    case 5:
      PostMessageA(open.Window, WM_COMMAND, IDOK, 0);
      break;
    case 10:
      EndDialog(open.Window, IDCANCEL);
      break;
    case 15:
      DestroyWindow(open.Window);
  }
}

BOOL WINAPI DialogWatch::RecordBeep(UINT type) {
  g_watch->beeps_.push_back(type);
  return TRUE;
}

std::vector<UINT> TakeBeeps() { return g_watch->TakeBeeps(); }

DialogScript::DialogScript(Place place) : place_(place) { g_watch->Follow(this); }

DialogScript::~DialogScript() {
  const bool hasBeeped = !TakeBeeps().empty();
  g_watch->Follow(nullptr);
  if (abandoned_) return;
  for (const Step& step : steps_)
    FailAt(step.place, "the dialog \"" + step.title + "\" never came");
  if (hasBeeped) FailAt(place_, "a beep that nobody expected, behind this step");
}

DialogScript& DialogScript::Expect(std::string title, Action action, Place place) {
  steps_.push_back({std::move(title), std::move(action), place});
  return *this;
}

bool DialogScript::Play(HWND dialog) {
  if (abandoned_) return false;
  if (steps_.empty() || steps_.front().title != WindowText(dialog)) {
    FailAt(steps_.empty() ? place_ : steps_.front().place,
           "unexpected dialog " + Quoted(dialog) +
               (steps_.empty() ? " behind this step" : " instead of \"" + steps_.front().title + "\""));
    abandoned_ = true;
    return false;
  }
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  place_ = step.place;
  const int failures = FailuresSoFar();
  {
    const testing::ScopedTrace trace(step.place.file_name(), static_cast<int>(step.place.line()),
                                     "in the dialog \"" + step.title + "\"");
    try {
      step.action(dialog);
    } catch (const std::exception& thrown) {  // it must not travel through the functions of Windows
      FailAt(step.place, thrown.what());
    }
  }
  // What a failed step leaves open nobody closes.
  if (FailuresSoFar() > failures && IsWindowVisible(dialog)) abandoned_ = true;
  return !abandoned_;
}

void DialogScript::GiveUp() {
  if (!abandoned_) FailAt(place_, "a dialog stays open behind this step");
  abandoned_ = true;
}

namespace {

UINT IconOf(HWND box) {
  const std::pair<UINT, LPCSTR> icons[] = {{MB_ICONERROR, IDI_ERROR},
                                           {MB_ICONQUESTION, IDI_QUESTION},
                                           {MB_ICONEXCLAMATION, IDI_EXCLAMATION},
                                           {MB_ICONINFORMATION, IDI_INFORMATION}};
  for (const int id : kMessageIconIds) {
    const auto shown = reinterpret_cast<HICON>(SendDlgItemMessageA(box, id, STM_GETICON, 0, 0));
    for (const auto& [icon, resource] : icons) {
      if (shown && shown == LoadIconA(nullptr, resource)) return icon;
    }
  }
  return 0;
}

std::string ButtonsOf(HWND box) {
  const std::pair<int, const char*> buttons[] = {
      {IDOK, "OK"}, {IDYES, "Yes"}, {IDNO, "No"}, {IDRETRY, "Retry"}, {IDCANCEL, "Cancel"}};
  const int pressedByEnter = GetDlgCtrlID(GetFocus());
  std::string names;
  for (const auto& [id, name] : buttons) {
    if (!IsWindowVisible(GetDlgItem(box, id))) continue;
    const bool isWrongDefault = names.empty() && id != pressedByEnter;
    names += (names.empty() ? "" : " ") + std::string(name) + (isWrongDefault ? " (not by Enter)" : "");
  }
  return names;
}

MessageStyle StyleOf(HWND box) {
  MessageStyle style{.Icon = IconOf(box), .Buttons = ButtonsOf(box)};
  if (const HWND owner = GetWindow(box, GW_OWNER)) style.Owner = WindowText(owner);
  for (const UINT beep : TakeBeeps())
    style.Beep = beep;
  return style;
}

// Ends the walk over the windows at one that can be used beside the box.
BOOL CALLBACK IsNotUsable(HWND window, LPARAM box) {
  return window == reinterpret_cast<HWND>(box) || !IsWindowVisible(window) || !IsWindowEnabled(window);
}

}  // namespace

MessageStyle MessageStyle::OwnedBy(std::string title) const {
  MessageStyle style = *this;
  style.Owner = std::move(title);
  return style;
}

MessageStyle MessageStyle::WithCancel() const {
  MessageStyle style = *this;
  style.Buttons = "OK Cancel";
  return style;
}

DialogScript& DialogScript::ExpectMessage(const MessageStyle& style, std::string title, std::string text,
                                          int button, Place place) {
  const auto answer = [style, text = std::move(text), button](HWND box) {
    EXPECT_EQ(MessageText(box), text);
    const MessageStyle shown = StyleOf(box);
    EXPECT_EQ(shown.Icon, style.Icon);
    EXPECT_EQ(shown.Beep, style.Beep);
    EXPECT_EQ(shown.Buttons, style.Buttons);
    EXPECT_EQ(shown.Owner, style.Owner);
    EXPECT_TRUE(style.Owner ||
                EnumThreadWindows(GetCurrentThreadId(), &IsNotUsable, reinterpret_cast<LPARAM>(box)))
        << "every window waits for a box without an owner";
    Click(box, button);
  };
  return Expect(std::move(title), answer, place);
}

void Click(HWND dialog, int id) {
  const HWND button = GetDlgItem(dialog, id);
  ASSERT_NE(button, nullptr) << "no control " << id;
  ASSERT_TRUE(IsWindowEnabled(button)) << "control " << id << " is disabled";
  SendMessageA(button, BM_CLICK, 0, 0);
}

void Type(HWND dialog, int id, const std::string& text) {
  const HWND edit = GetDlgItem(dialog, id);
  ASSERT_NE(edit, nullptr) << "no control " << id;
  SendMessageA(edit, EM_SETSEL, 0, -1);
  SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Choose(HWND dialog, int id, const std::string& text) {
  const HWND list = GetDlgItem(dialog, id);
  ASSERT_NE(list, nullptr) << "no control " << id;
  char className[32] = "";
  GetClassNameA(list, className, sizeof(className));
  const bool combo = lstrcmpiA(className, "ComboBox") == 0;
  const LRESULT index = SendMessageA(list, combo ? CB_FINDSTRINGEXACT : LB_FINDSTRINGEXACT,
                                     static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
  ASSERT_GE(index, 0) << "no entry \"" << text << "\"";
  SendMessageA(list, combo ? CB_SETCURSEL : LB_SETCURSEL, static_cast<WPARAM>(index), 0);
  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, combo ? CBN_SELCHANGE : LBN_SELCHANGE),
               reinterpret_cast<LPARAM>(list));
}

void PressKey(WPARAM virtualKey) {
  const HWND focus = GetFocus();
  PostMessageA(focus, WM_KEYDOWN, virtualKey, 0);
  PostMessageA(focus, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000000));
}

void Pump() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    const HWND root = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    if (root && IsDialogMessageA(root, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

std::string MessageText(HWND box) { return ControlText(box, kMessageTextId); }

std::string ControlText(HWND dialog, int id) {
  const HWND control = GetDlgItem(dialog, id);
  return control ? WindowText(control) : std::string();
}
