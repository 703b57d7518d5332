// Drives real modal dialogs and message boxes.
//
// A script is an ordered list of steps, each "when a dialog with this title appears, do this". Steps may
// nest: an action that clicks a button which opens another dialog returns when that dialog is closed, and the
// next step belongs to the inner one.
//
//   DialogScript script;
//   script.ExpectMessage(kWarning.OwnedBy("Kelvanstead Scheme Manager").WithCancel(), "Scheme Deletion",
//                        "Are you sure you want to delete this scheme ?", IDCANCEL);
//   script.Expect("About Kelvanstead Scheme Manager", [](HWND dialog) { Click(dialog, IDOK); });
//   Click(window, IDC_DELETE);
//
// Nothing is left open. A dialog that nobody expected, that a failed step leaves open, or in which nothing
// happens for ten seconds is a failure of the running test and is closed; so is every dialog after it, and
// where they keep coming the process ends. A step that never came is a failure, and so is a beep that no
// message and no TakeBeeps asked for. Each failure tells the line of the step that it belongs to.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <optional>
#include <source_location>
#include <string>
#include <vector>

// What a message box looks and sounds like. One without an owner makes every other window of the program
// wait.
struct MessageStyle {
  UINT Icon = 0;                          // MB_ICONEXCLAMATION and so on, 0: none
  std::optional<UINT> Beep = {};          // what MessageBeep was given before it came
  std::string Buttons = "OK";             // in their order; Enter presses the first
  std::optional<std::string> Owner = {};  // the owner's title

  MessageStyle OwnedBy(std::string title) const;
  MessageStyle WithCancel() const;
};

inline const MessageStyle kPlain{};
inline const MessageStyle kExclamation{.Icon = MB_ICONEXCLAMATION};
inline const MessageStyle kWarning{.Icon = MB_ICONEXCLAMATION, .Beep = MB_ICONEXCLAMATION};

class DialogScript {
 public:
  using Action = std::function<void(HWND dialog)>;
  using Place = std::source_location;

  explicit DialogScript(Place place = Place::current());
  ~DialogScript();
  DialogScript(const DialogScript&) = delete;
  DialogScript& operator=(const DialogScript&) = delete;

  DialogScript& Expect(std::string title, Action action, Place place = Place::current());
  // A message box of exactly this style and text; answers it with the button.
  DialogScript& ExpectMessage(const MessageStyle& style, std::string title, std::string text,
                              int button = IDOK, Place place = Place::current());

  // Steps that have not come yet.
  std::size_t Remaining() const { return steps_.size(); }

 private:
  friend class DialogWatch;
  struct Step {
    std::string title;
    Action action;
    Place place;
  };

  // What a dialog that has come is here for. False when it is to be closed.
  bool Play(HWND dialog);
  void GiveUp();

  std::deque<Step> steps_;
  Place place_;  // of the latest step, or of the script
  bool abandoned_ = false;
};

// What MessageBeep was given since the last message or the last call.
std::vector<UINT> TakeBeeps();

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
