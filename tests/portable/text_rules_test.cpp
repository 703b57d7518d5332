#include "editor/text_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(TextRules, KeepTheCaretWhereTheUserWasTyping) {
  TypedText typed{"a:b*c", 3};
  EXPECT_EQ(CorrectText(kSchemeNameRule, typed), TextProblem::kRefusedCharacter);
  EXPECT_EQ(typed, (TypedText{"a:bc", 3}));
  EXPECT_EQ(CorrectText(kSchemeNameRule, typed), TextProblem::kRefusedCharacter);
  EXPECT_EQ(typed, (TypedText{"abc", 2}));
  EXPECT_EQ(CorrectText(kSchemeNameRule, typed), TextProblem::kNone);
}

TEST(TextRules, JudgeUrls) {
  EXPECT_EQ(FindUrlProblem("mirror.example:8080/http://school.example/a%20b?c=d&e"), UrlProblem::kNone);
  EXPECT_EQ(FindUrlProblem("school .example"), UrlProblem::kSpace);
  for (const char refused : std::string("{}|\\^~[]'<>\"#@!"))
    EXPECT_EQ(FindUrlProblem(std::string("http:// ") + refused), UrlProblem::kInvalidCharacters) << refused;
}

}  // namespace
