#include "support/dialog_script.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <exception>
#include <map>
#include <utility>

#include "controls/window_text.h"
#include "support/imported_calls.h"

namespace {

constexpr UINT kSettled = WM_APP + 1;
constexpr UINT_PTR kTick = 1;  // no window has this handle
constexpr UINT kTickInterval = 50;
constexpr ULONGLONG kPatience = 10'000;
constexpr int kMostClosed = 50;
constexpr int kMessageTextId = 0xFFFF, kMessageIconIds[] = {1088, 20};  // Wine's, Windows'
constexpr char kReceiverClass[] = "DialogScriptReceiver";

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
  struct OpenDialog {
    bool isUnwanted = false;
    int attempts = 0;  // to close it
  };

  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK Receiver(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static BOOL WINAPI RecordBeep(UINT type);

  void OnActivate(HWND window);
  void OnDestroy(HWND window);
  void OnSettled(HWND dialog);
  void OnTick();
  void Close(HWND dialog, int attempt);

  HWND receiver_ = nullptr;
  HHOOK hook_ = nullptr;
  std::optional<Diversion> beep_;
  DialogScript* script_ = nullptr;
  std::map<HWND, OpenDialog> open_;
  std::vector<UINT> beeps_;
  int closed_ = 0;
  ULONGLONG lastEvent_ = 0;
};

namespace {

auto* const g_watch = static_cast<DialogWatch*>(testing::AddGlobalTestEnvironment(new DialogWatch));

}  // namespace

void DialogWatch::SetUp() {
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = &Receiver;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = kReceiverClass;
  RegisterClassA(&windowClass);
  receiver_ =
      CreateWindowA(kReceiverClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
  hook_ = SetWindowsHookExA(WH_CBT, &Hook, nullptr, GetCurrentThreadId());
  beep_.emplace("MessageBeep", reinterpret_cast<void*>(&RecordBeep));
}

void DialogWatch::TearDown() {
  beep_.reset();
  UnhookWindowsHookEx(hook_);
  DestroyWindow(receiver_);
}

void DialogWatch::Follow(DialogScript* script) {
  EXPECT_FALSE(script && script_) << "one script at a time";
  script_ = script;
  beeps_.clear();
  closed_ = 0;
}

// Acting inside the hook does not work (a property sheet has no page yet when it is activated), so it only
// posts.
LRESULT CALLBACK DialogWatch::Hook(int code, WPARAM wParam, LPARAM lParam) {
  const auto window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_ACTIVATE && IsDialog(window)) g_watch->OnActivate(window);
  if (code == HCBT_DESTROYWND) g_watch->OnDestroy(window);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

void DialogWatch::OnActivate(HWND window) {
  if (!open_.try_emplace(window).second) return;
  lastEvent_ = GetTickCount64();
  PostMessageA(receiver_, kSettled, reinterpret_cast<WPARAM>(window), 0);
  SetTimer(receiver_, kTick, kTickInterval, nullptr);
}

void DialogWatch::OnDestroy(HWND window) {
  if (open_.erase(window)) lastEvent_ = GetTickCount64();
}

LRESULT CALLBACK DialogWatch::Receiver(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kSettled && message != WM_TIMER) return DefWindowProcA(window, message, wParam, lParam);
  if (message == WM_TIMER && wParam == kTick) {
    g_watch->OnTick();
    return 0;
  }
  const auto dialog = reinterpret_cast<HWND>(wParam);
  KillTimer(window, wParam);
  if (!IsWindow(dialog)) return 0;
  if (IsWindowVisible(dialog)) {
    g_watch->OnSettled(dialog);
  } else {
    // A dialog without WS_VISIBLE is shown when its queue is empty, so a posted message would not do.
    SetTimer(window, wParam, USER_TIMER_MINIMUM, nullptr);
  }
  return 0;
}

void DialogWatch::OnSettled(HWND dialog) {
  if (!script_) ADD_FAILURE() << TestName() << ": unexpected dialog " << Quoted(dialog);
  const bool isWanted = script_ && script_->Play(dialog);
  lastEvent_ = GetTickCount64();
  if (const auto open = open_.find(dialog); open != open_.end()) open->second.isUnwanted = !isWanted;
}

void DialogWatch::OnTick() {
  if (open_.empty()) {
    KillTimer(receiver_, kTick);
    return;
  }
  if (script_ && GetTickCount64() - lastEvent_ > kPatience) script_->GiveUp();
  const auto unwanted = open_;
  for (const auto& [dialog, state] : unwanted) {
    // What waits for another dialog is closed after it.
    if (!(state.isUnwanted || (script_ && script_->abandoned_)) || !IsWindowEnabled(dialog)) continue;
    ++open_[dialog].attempts;
    Close(dialog, state.attempts);
  }
}

// The gentle ways first: a message box with OK only has no Cancel.
void DialogWatch::Close(HWND dialog, int attempt) {
  if (attempt == 0 && ++closed_ > kMostClosed) {
    std::printf("%s: dialogs keep coming, so the tests end here: %s\n[  FAILED  ] %s\n", TestName().c_str(),
                Quoted(dialog).c_str(), TestName().c_str());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 1);
  }
  if (attempt < 2) {
    PostMessageA(dialog, WM_COMMAND, attempt == 0 ? IDCANCEL : IDOK, 0);
  } else if (attempt > 2 || !EndDialog(dialog, IDCANCEL)) {
    DestroyWindow(dialog);
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
      {IDOK, "OK"},       {IDYES, "Yes"},       {IDNO, "No"},         {IDABORT, "Abort"},
      {IDRETRY, "Retry"}, {IDIGNORE, "Ignore"}, {IDCANCEL, "Cancel"}, {IDHELP, "Help"}};
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
