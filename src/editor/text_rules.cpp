#include "editor/text_rules.h"

#include <algorithm>

std::ptrdiff_t FindIllegalCharacter(std::string_view text, std::string_view characters) {
  for (const char character : characters) {
    const std::size_t position = text.find(character);
    if (position != text.npos) return static_cast<std::ptrdiff_t>(position);
  }
  return -1;
}

TextProblem CorrectText(const TextRule& rule, TypedText& typed) {
  const std::ptrdiff_t refused = FindIllegalCharacter(typed.Text, rule.RefusedCharacters);
  if (refused >= 0) {
    const auto position = static_cast<std::size_t>(refused);
    typed.Text.erase(position, 1);
    if (position < typed.Caret) --typed.Caret;
    return TextProblem::kRefusedCharacter;
  }
  if (typed.Text.size() > rule.Limit) {
    typed.Text.resize(rule.Limit);
    typed.Caret = std::min(typed.Caret, rule.Limit);
    return TextProblem::kTooLong;
  }
  return TextProblem::kNone;
}

std::string ProblemMessage(const TextRule& rule, TextProblem problem) {
  switch (problem) {
    case TextProblem::kRefusedCharacter:
      return std::string(rule.RefusedMessage);
    case TextProblem::kTooLong:
      return "There is a limit of " + std::to_string(rule.Limit) + " characters";
    case TextProblem::kNone:
      break;
  }
  return {};
}

const char* ProblemCaption(TextProblem problem) {
  return problem == TextProblem::kTooLong ? "Error: Text too long" : "Error: Illegal Character";
}

UrlProblem FindUrlProblem(std::string_view url) {
  // An address without "http://" is judged as if it had it, which changes nothing: it holds none of these.
  // The percent sign passes, as addresses need it, although the message lists it.
  if (url.find_first_of("{}|\\^~[]'<>\"#@!") != url.npos) return UrlProblem::kInvalidCharacters;
  if (url.find(' ') != url.npos) return UrlProblem::kSpace;
  return UrlProblem::kNone;
}
