#include "editor/text_entry.h"

#include <utility>

#include "controls/message.h"
#include "controls/window_text.h"

namespace {

TypedText ReadField(HWND edit) {
  DWORD selectionEnd = 0;
  SendMessageA(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&selectionEnd));
  return {WindowText(edit), selectionEnd};
}

void PutBack(HWND edit, const TypedText& typed) {
  SetWindowTextA(edit, typed.Text.c_str());
  SendMessageA(edit, EM_SETSEL, typed.Caret, static_cast<LPARAM>(typed.Caret));
  SendMessageA(edit, EM_SCROLLCARET, 0, 0);
}

void Tell(HWND owner, const TextRule& rule, TextProblem problem) {
  ShowMessage(owner, ProblemMessage(rule, problem), ProblemCaption(problem), MB_ICONEXCLAMATION);
}

// The field that is being corrected. The corrections of a long paste are made in a loop rather than by each
// other's notifications, which would nest as deep as it holds refused characters.
class Correction {
 public:
  explicit Correction(HWND edit) : outer_(std::exchange(corrected_, edit)) {}
  ~Correction() { corrected_ = outer_; }
  Correction(const Correction&) = delete;
  Correction& operator=(const Correction&) = delete;

  static HWND Field() { return corrected_; }

 private:
  static inline HWND corrected_ = nullptr;
  const HWND outer_;
};

void CorrectField(HWND dialog, HWND edit, const TextRule& rule) {
  TypedText typed = ReadField(edit);
  std::size_t removedUntold = 0;
  for (;;) {
    const TextProblem problem = CorrectText(rule, typed);
    if (problem == TextProblem::kNone) break;
    if (problem == TextProblem::kTooLong || rule.Order == kTellFirst) {
      Tell(dialog, rule, problem);
    } else {
      ++removedUntold;
    }
    PutBack(edit, typed);
  }
  // A field that is put back before the message tells of the last correction first, and has told by now that
  // the text was too long.
  for (; removedUntold > 0; --removedUntold)
    Tell(dialog, rule, TextProblem::kRefusedCharacter);
}

}  // namespace

void ApplyTextRule(HWND dialog, int controlId, const TextRule& rule) {
  const HWND edit = GetDlgItem(dialog, controlId);
  if (Correction::Field() == edit) return;
  const Correction correction(edit);
  CorrectField(dialog, edit, rule);
}

bool CheckUrl(const std::string& url) {
  constexpr char kCaption[] = "Invalid characters in URL";
  switch (FindUrlProblem(url)) {
    case UrlProblem::kInvalidCharacters:
      ShowMessage(nullptr,
                  "Invalid characters have been found in the URL\n\r\n\rPlease do not use the characters:\n\r"
                  "{}|\\^~[]'<>\"#%@!",
                  kCaption);
      return false;
    case UrlProblem::kSpace:
      ShowMessage(nullptr, "A space has been found in the URL\n\rPlease re-enter URL and try again.",
                  kCaption);
      return false;
    case UrlProblem::kNone:
      break;
  }
  return true;
}
