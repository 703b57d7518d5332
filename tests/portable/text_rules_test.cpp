#include "editor/text_rules.h"

#include <gtest/gtest.h>

namespace {

// What is left of a text, the caret having been at its end, and one letter for each correction on the way:
// R for a refused character, L for the length.
struct Outcome {
  std::string Text;
  std::string Corrections;
};

Outcome CorrectAll(const TextRule& rule, const std::string& text) {
  TypedText typed{text, text.size()};
  Outcome outcome;
  while (true) {
    const TextProblem problem = CorrectText(rule, typed);
    if (problem == TextProblem::kNone) break;
    outcome.Corrections += problem == TextProblem::kTooLong ? 'L' : 'R';
  }
  EXPECT_EQ(typed.Caret, typed.Text.size()) << text;
  outcome.Text = typed.Text;
  return outcome;
}

TEST(TextRules, TakesOutCharactersInTheOrderOfTheSet) {
  TypedText typed{"a:b<c", 4};
  EXPECT_EQ(CorrectText(kSchemeNameRule, typed), TextProblem::kRefusedCharacter);
  EXPECT_EQ(typed, (TypedText{"a:bc", 3}));

  // The first of each character of a set goes first, and the characters go in the order of the set.
  struct {
    std::string_view characters;
    const char* order;
  } const sets[] = {
      {kNameCharacters, "<>?\\/*\"|:"}, {kPathCharacters, "<>?/*\"|"}, {kUrlCharacters, "<>\\ *\"|"}};
  for (const auto& set : sets) {
    std::string text = "|:* \"\\/?><";
    std::string removed;
    for (std::ptrdiff_t at = 0; (at = FindIllegalCharacter(text, set.characters)) >= 0;) {
      removed += text[static_cast<std::size_t>(at)];
      text.erase(static_cast<std::size_t>(at), 1);
    }
    EXPECT_EQ(removed, set.order);
  }
  EXPECT_EQ(FindIllegalCharacter("a?b?", kNameCharacters), 1);
}

TEST(TextRules, FieldsRefuseAndLimit) {
  struct {
    const char* field;
    const TextRule& rule;
    const char* typed;
    Outcome expected;
    std::size_t limit;
  } const rows[] = {
      {"scheme name", kSchemeNameRule, "a*b?c", {"abc", "RR"}, 50},
      {"description", kSchemeDescriptionRule, "Year 1: all", {"Year 1 all", "R"}, 50},
      {"scheme name again", kNewSchemeNameRule, "a\\b", {"ab", "R"}, 50},
      {"root name", kRootNameRule, "C:", {"C", "R"}, 50},
      {"root path", kRootPathRule, "C:\\Work?", {"C:\\Work", "R"}, 255},
      {"link name", kLinkNameRule, "\"News\"", {"News", "RR"}, 50},
      {"link URL", kLinkUrlRule, "http://a b\\c/?d#e", {"http://abc/?d#e", "RR"}, 255},
      {"long tooltip", kLongToolTipRule, "<>?\\/*\"|: ", {"<>?\\/*\"|: ", ""}, 100},
      {"short tooltip", kShortToolTipRule, "What? Where?", {"What? Where?", ""}, 50},
  };
  for (const auto& row : rows) {
    const Outcome outcome = CorrectAll(row.rule, row.typed);
    EXPECT_EQ(outcome.Text, row.expected.Text) << row.field;
    EXPECT_EQ(outcome.Corrections, row.expected.Corrections) << row.field;

    const std::string full(row.limit, 'x');
    EXPECT_EQ(CorrectAll(row.rule, full).Corrections, "") << row.field;
    EXPECT_EQ(CorrectAll(row.rule, full + "yz").Corrections, "L") << row.field;
    EXPECT_EQ(CorrectAll(row.rule, full + "yz").Text, full) << row.field;
    EXPECT_EQ(ProblemMessage(row.rule, TextProblem::kTooLong),
              "There is a limit of " + std::to_string(row.limit) + " characters");
  }
  // Refused characters go before the length is measured, wherever they stand.
  const Outcome both = CorrectAll(kRootNameRule, std::string(60, 'x') + "*");
  EXPECT_EQ(both.Corrections, "RL");
  EXPECT_EQ(both.Text, std::string(50, 'x'));
}

TEST(TextRules, KeepsTheCaretWhereTheUserWasTyping) {
  TypedText before{"ab*c", 1};
  CorrectText(kSchemeNameRule, before);
  EXPECT_EQ(before.Caret, 1U) << "what is removed behind the caret does not move it";
  TypedText inside{std::string(51, 'x'), 20};
  CorrectText(kSchemeNameRule, inside);
  EXPECT_EQ(inside.Caret, 20U);
}

TEST(TextRules, JudgesUrls) {
  struct {
    const char* url;
    UrlProblem problem;
  } const rows[] = {
      {"www.school.example/a%20b", UrlProblem::kNone},
      {"https://school.example:8080/?a=b&c=d", UrlProblem::kNone},
      {"mirror.example/http://school.example", UrlProblem::kNone},
      {"http://school.example/#top", UrlProblem::kInvalidCharacters},
      {"school.example/~staff", UrlProblem::kInvalidCharacters},
      {"http://someone@school.example", UrlProblem::kInvalidCharacters},
      {"school .example", UrlProblem::kSpace},
      {"school .example/#top", UrlProblem::kInvalidCharacters},
  };
  for (const auto& row : rows)
    EXPECT_EQ(FindUrlProblem(row.url), row.problem) << row.url;
  for (const char character : std::string("{}|\\^~[]'<>\"#@!"))
    EXPECT_EQ(FindUrlProblem(std::string("a") + character), UrlProblem::kInvalidCharacters) << character;
}

}  // namespace
