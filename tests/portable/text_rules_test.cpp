#include "editor/text_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

namespace {

// Makes every correction and tells, in order, the first character that each took out.
std::string Correct(const TextRule& rule, TypedText& typed) {
  std::string removed;
  for (std::string before = typed.Text;; before = typed.Text) {
    if (CorrectText(rule, typed) == TextProblem::kNone) return removed;
    removed += *std::ranges::mismatch(typed.Text, before).in2;
  }
}

TEST(TextRules, EachFieldRefusesItsCharactersInOrderThenCutsTheRest) {
  constexpr char kNames[] = "<>?\\/*\"|:";
  const std::tuple<const TextRule&, std::string, std::size_t> rows[] = {
      {kSchemeNameRule, kNames, 50},    {kSchemeDescriptionRule, kNames, 50},
      {kNewSchemeNameRule, kNames, 50}, {kRootNameRule, kNames, 50},
      {kRootPathRule, "<>?/*\"|", 255}, {kLinkNameRule, kNames, 50},
      {kLinkUrlRule, "<>\\ *\"|", 255}, {kLongToolTipRule, "", 100},
      {kShortToolTipRule, "", 50}};
  for (const auto& [rule, removed, limit] : rows) {
    const std::string full(limit, 'x');
    TypedText typed{"|:* \"\\/?><#%", 0};
    EXPECT_EQ(Correct(rule, typed), removed);
    typed = {full, limit};
    EXPECT_EQ(Correct(rule, typed), "") << limit;
    typed = {full + "y" + removed, limit + 1};
    EXPECT_EQ(Correct(rule, typed), removed + "y");
    EXPECT_EQ(typed, (TypedText{full, limit}));
  }
}

TEST(TextRules, KeepTheCaretWhereTheUserWasTyping) {
  TypedText typed{"a:b*c", 3};
  EXPECT_EQ(Correct(kSchemeNameRule, typed), "*:");
  EXPECT_EQ(typed, (TypedText{"abc", 2}));
}

TEST(TextRules, JudgeUrls) {
  EXPECT_EQ(FindUrlProblem("mirror.example:8080/http://school.example/a%20b?c=d&e"), UrlProblem::kNone);
  EXPECT_EQ(FindUrlProblem("school .example"), UrlProblem::kSpace);
  for (const char refused : std::string("{}|\\^~[]'<>\"#@!"))
    EXPECT_EQ(FindUrlProblem(std::string("http:// ") + refused), UrlProblem::kInvalidCharacters) << refused;
}

}  // namespace
