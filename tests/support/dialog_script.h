// Drives real modal dialogs and message boxes.
//
// A script is an ordered list of steps, each "when a dialog with this title appears, do this". Steps may
// nest: an action that clicks a button which opens another dialog returns when that dialog is closed, and the
// next step belongs to the inner one. A dialog that nobody expected is a failure and is closed; so is, at the
// script's end, a step that never came.
//
//   DialogScript script;
//   script.Expect("Scheme Deletion", [](HWND box) {
//     EXPECT_EQ(MessageText(box), "Are you sure you want to delete this scheme ?");
//     Click(box, IDCANCEL);
//   });
//   catalogue.Delete...
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <set>
#include <string>

class DialogScript {
 public:
  using Action = std::function<void(HWND dialog)>;

  DialogScript();
  ~DialogScript();
  DialogScript(const DialogScript&) = delete;
  DialogScript& operator=(const DialogScript&) = delete;

  DialogScript& Expect(std::string title, Action action);
  // A message box with exactly this text; answers it with the button.
  DialogScript& ExpectMessage(std::string title, std::string text, int button = IDOK);

  // Steps that have not come yet.
  std::size_t Remaining() const { return steps_.size(); }

 private:
  struct Step {
    std::string title;
    Action action;
  };

  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK Receiver(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnSettled(HWND dialog);

  std::deque<Step> steps_;
  std::set<HWND> seen_;
  HWND receiver_ = nullptr;
  HHOOK hook_ = nullptr;
};

// What a user does, by messages to the real controls.

// Clicks a button (BM_CLICK), which must be there and enabled.
void Click(HWND dialog, int id);
// Puts text into an edit control as typing or pasting over everything does: EN_CHANGE follows.
void Type(HWND dialog, int id, const std::string& text);
// Chooses an entry of a combo or list box by its text, with the notification that a user's choice sends.
void Choose(HWND dialog, int id, const std::string& text);
// A key on the control that has the focus, through the dialog's own keyboard handling when its loop next
// runs.
void PressKey(WPARAM virtualKey);
// Lets posted messages and painting happen.
void Pump();

// The text of a message box.
std::string MessageText(HWND box);
std::string ControlText(HWND dialog, int id);
