#include "editor/text_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

// Corrects a text, the caret being at its end, and tells what was taken out, in order; "..." is the excess.
std::string Correct(const TextRule& rule, std::string& text) {
  std::string removed;
  for (TypedText typed{text, text.size()};; text = typed.Text) {
    const TextProblem problem = CorrectText(rule, typed);
    EXPECT_EQ(typed.Caret, typed.Text.size());
    if (problem == TextProblem::kNone) return removed;
    const auto changed = std::mismatch(typed.Text.begin(), typed.Text.end(), text.begin()).second;
    removed += problem == TextProblem::kTooLong ? "..." : std::string(1, *changed);
  }
}

TEST(TextRules, EachFieldRefusesItsCharactersInOrderThenCutsTheRest) {
  constexpr char kNames[] = "<>?\\/*\"|:";
  struct {
    const TextRule& rule;
    std::string removed;
    std::size_t limit;
  } const rows[] = {
      {kSchemeNameRule, kNames, 50},    {kSchemeDescriptionRule, kNames, 50},
      {kNewSchemeNameRule, kNames, 50}, {kRootNameRule, kNames, 50},
      {kRootPathRule, "<>?/*\"|", 255}, {kLinkNameRule, kNames, 50},
      {kLinkUrlRule, "<>\\ *\"|", 255}, {kLongToolTipRule, "", 100},
      {kShortToolTipRule, "", 50},
  };
  for (const auto& row : rows) {
    std::string text = "|:* \"\\/?><#%";
    const std::size_t kept = text.size() - row.removed.size();
    EXPECT_EQ(Correct(row.rule, text), row.removed);
    EXPECT_EQ(text.size(), kept);
    text.append(row.limit - kept, 'x');
    EXPECT_EQ(Correct(row.rule, text), "") << row.limit;
    text += "xx" + row.removed;
    EXPECT_EQ(Correct(row.rule, text), row.removed + "...");
    EXPECT_EQ(text.size(), row.limit);
  }
}

TEST(TextRules, KeepTheCaretWhereTheUserWasTyping) {
  TypedText typed{"a:b*c", 3};
  CorrectText(kSchemeNameRule, typed);
  EXPECT_EQ(typed, (TypedText{"a:bc", 3}));
  CorrectText(kSchemeNameRule, typed);
  EXPECT_EQ(typed, (TypedText{"abc", 2}));
}

TEST(TextRules, JudgeUrls) {
  EXPECT_EQ(FindUrlProblem("mirror.example:8080/http://school.example/a%20b?c=d&e"), UrlProblem::kNone);
  EXPECT_EQ(FindUrlProblem("school .example"), UrlProblem::kSpace);
  for (const char refused : std::string("{}|\\^~[]'<>\"#@!"))
    EXPECT_EQ(FindUrlProblem(std::string("http:// ") + refused), UrlProblem::kInvalidCharacters) << refused;
}

}  // namespace
