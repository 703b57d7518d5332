#include "schemefile/record_splitter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using Records = std::vector<SchemeRecord>;

// Readable bytes: '|' stands for the terminator.
std::string Bytes(std::string text) {
  std::replace(text.begin(), text.end(), '|', kFieldTerminator);
  return text;
}

TEST(RecordSplitterTest, KnowsTheSignature) {
  EXPECT_EQ(kSignature.size(), 28u);
  const std::string signature(kSignature);
  EXPECT_TRUE(HasSignature(signature));
  EXPECT_TRUE(HasSignature(signature + "a"));
  EXPECT_FALSE(HasSignature(""));
  EXPECT_FALSE(HasSignature(signature.substr(0, 27)));
  EXPECT_FALSE(HasSignature("X" + signature));
  for (std::size_t i = 0; i < signature.size(); ++i) {
    std::string damaged = signature;
    damaged[i] = static_cast<char>(damaged[i] ^ 0x20);  // the other case of a letter
    EXPECT_FALSE(HasSignature(damaged)) << i;
  }
}

TEST(RecordSplitterTest, SplitsWhatStandsBehindTheSignature) {
  const struct {
    const char* what;
    std::string body;
    Records records;
  } cases[] = {
      {"nothing", "", {}},
      {"one byte", "a", {}},
      {"one terminator", "|", {}},
      {"no terminator", "abc", {}},
      {"one record", "a|b|c|", {{"a", "b", "c"}}},
      {"incomplete after one field", "a|b|c|d", {{"a", "b", "c"}}},
      {"incomplete after two fields", "a|b|c|d|e|", {{"a", "b", "c"}}},
      {"third field unterminated", "a|b|c|d|e|f", {{"a", "b", "c"}}},
      {"incomplete first record", "a|b|c", {}},
      {"empty fields", "a||||||b|||", {{"a", "", ""}, {"", "", ""}, {"b", "", ""}}},
      {"empty first key joins the next field", "|b|c|d|e|f|g|", {{Bytes("|b"), "c", "d"}, {"e", "f", "g"}}},
      {"empty fields only", "|||", {}},
      {"empty fields only, one more", "||||", {{Bytes("|"), "", ""}}},
      {"terminator inside a text", "a|b|c|c|d|e|f|g|h|", {{"a", "b", "c"}, {"c", "d", "e"}, {"f", "g", "h"}}},
      {"NUL and line break bytes",
       std::string("a\0|b\r\n|\0|", 9),
       {{std::string("a\0", 2), "b\r\n", std::string("\0", 1)}}},
  };
  for (const auto& file : cases) {
    EXPECT_EQ(SplitRecords(std::string(kSignature) + Bytes(file.body)), file.records) << file.what;
  }
}

}  // namespace
