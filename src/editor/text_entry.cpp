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
  // Where text is put back first, each change that this raises would be corrected, and told of, before the
  // one that raised it: so the length, if it was exceeded, has been told by now.
  for (; removedUntold > 0; --removedUntold)
    Tell(dialog, rule, TextProblem::kRefusedCharacter);
}

}  // namespace

void ApplyTextRule(HWND dialog, int controlId, const TextRule& rule) {
  // Corrections of a long paste are made in a loop rather than by each other's notifications, which would
  // nest as deep as it holds refused characters.
  static HWND corrected = nullptr;
  const HWND edit = GetDlgItem(dialog, controlId);
  if (corrected == edit) return;
  const HWND outer = std::exchange(corrected, edit);
  CorrectField(dialog, edit, rule);
  corrected = outer;
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
