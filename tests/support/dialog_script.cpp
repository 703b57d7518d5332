#include "support/dialog_script.h"

#include <gtest/gtest.h>

#include "controls/window_text.h"

namespace {

constexpr UINT kSettled = WM_APP + 1;
constexpr int kMessageTextId = 0xFFFF;
constexpr char kReceiverClass[] = "DialogScriptReceiver";

DialogScript* g_script = nullptr;

bool IsDialog(HWND window) {
  char className[16] = "";
  GetClassNameA(window, className, sizeof(className));
  return std::string_view(className) == "#32770" && !(GetWindowLongA(window, GWL_STYLE) & WS_CHILD);
}

}  // namespace

DialogScript::DialogScript() {
  EXPECT_EQ(g_script, nullptr) << "one script at a time";
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = &Receiver;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = kReceiverClass;
  RegisterClassA(&windowClass);
  receiver_ =
      CreateWindowA(kReceiverClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
  g_script = this;
  hook_ = SetWindowsHookExA(WH_CBT, &Hook, nullptr, GetCurrentThreadId());
}

DialogScript::~DialogScript() {
  for (const Step& step : steps_)
    ADD_FAILURE() << "the dialog \"" << step.title << "\" never came";
  UnhookWindowsHookEx(hook_);
  DestroyWindow(receiver_);
  g_script = nullptr;
}

DialogScript& DialogScript::Expect(std::string title, Action action) {
  steps_.push_back({std::move(title), std::move(action)});
  return *this;
}

DialogScript& DialogScript::ExpectMessage(std::string title, std::string text, int button) {
  return Expect(std::move(title), [text = std::move(text), button](HWND box) {
    EXPECT_EQ(MessageText(box), text);
    Click(box, button);
  });
}

// Acting inside the hook does not work (a property sheet has no page yet when it is activated), so it only
// posts.
LRESULT CALLBACK DialogScript::Hook(int code, WPARAM wParam, LPARAM lParam) {
  const auto window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_ACTIVATE && IsDialog(window) && g_script->seen_.insert(window).second) {
    PostMessageA(g_script->receiver_, kSettled, wParam, 0);
  }
  if (code == HCBT_DESTROYWND) g_script->seen_.erase(window);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK DialogScript::Receiver(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kSettled && message != WM_TIMER) return DefWindowProcA(window, message, wParam, lParam);
  const auto dialog = reinterpret_cast<HWND>(wParam);
  KillTimer(window, wParam);
  if (!IsWindow(dialog)) return 0;
  if (IsWindowVisible(dialog)) {
    g_script->OnSettled(dialog);
  } else {
    // A dialog without WS_VISIBLE is shown when its queue is empty, so a posted message would not do.
    SetTimer(window, wParam, USER_TIMER_MINIMUM, nullptr);
  }
  return 0;
}

void DialogScript::OnSettled(HWND dialog) {
  const std::string title = WindowText(dialog);
  if (steps_.empty() || steps_.front().title != title) {
    ADD_FAILURE() << "unexpected dialog \"" << title << "\": " << MessageText(dialog)
                  << "\nexpected: " << (steps_.empty() ? std::string("none") : steps_.front().title);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);  // a message box with OK only has no Cancel
    return;
  }
  const Action action = std::move(steps_.front().action);
  steps_.pop_front();
  action(dialog);
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
