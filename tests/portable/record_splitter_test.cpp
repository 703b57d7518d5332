#include "schemefile/record_splitter.h"

#include <gtest/gtest.h>

#include "support/scheme_file_bytes.h"

namespace {

TEST(RecordSplitterTest, KnowsTheSignature) {
  const std::string signature = Bytes("Kelvanstead Scheme Manager!|");
  EXPECT_TRUE(HasSignature(signature));
  EXPECT_FALSE(HasSignature(signature.substr(0, 27)));
  for (std::size_t i = 0; i < signature.size(); ++i) {
    std::string damaged = signature + "a|b|c|";
    damaged[i] = static_cast<char>(damaged[i] ^ 0x20);  // the other case of a letter
    EXPECT_FALSE(HasSignature(damaged)) << i;
  }
}

TEST(RecordSplitterTest, SplitsWhatStandsBehindTheSignature) {
  const struct {
    std::string body;
    std::vector<SchemeRecord> records;
  } cases[] = {
      {"", {}},
      {"|", {}},
      {"abc", {}},
      {"a|b|c", {}},
      {"a|b|c|", {{"a", "b", "c"}}},
      {"a|b|c|d|e|f", {{"a", "b", "c"}}},
      {"a||||||b|||", {{"a", "", ""}, {"", "", ""}, {"b", "", ""}}},
      {"|b|c|d|e|f|g|", {{Bytes("|b"), "c", "d"}, {"e", "f", "g"}}},
      {"||||", {{Bytes("|"), "", ""}}},
      {"a|b|c|c|d|e|f|", {{"a", "b", "c"}, {"c", "d", "e"}}},
      {std::string("a\0|b\r\n|\0|", 9), {{std::string("a\0", 2), "b\r\n", std::string("\0", 1)}}},
  };
  for (const auto& file : cases) {
    EXPECT_EQ(SplitRecords(std::string(kSignature) + Bytes(file.body)), file.records) << file.body;
  }
}

}  // namespace
