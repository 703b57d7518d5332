#include "schemefile/records/record_splitter.h"

#include <gtest/gtest.h>

#include "support/scheme_file_bytes.h"

namespace {

using namespace std::literals;

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
      {"a|b|c", {}},
      {"a|b|c|", {{"a", "b", "c"}}},
      {"a|b|c|d|e|f", {{"a", "b", "c"}}},
      {"a||||||b|||", {{"a", "", ""}, {"", "", ""}, {"b", "", ""}}},
      {"|b|c|d|e|f|g|", {{"\254b", "c", "d"}, {"e", "f", "g"}}},  // octal, which ends before the letter
      {"||||", {{"\xAC", "", ""}}},
      {std::string("a\0|b\r\n|\0|", 9), {{"a\0"sv, "b\r\n", "\0"sv}}},
  };
  for (const auto& file : cases) {
    const RecordList split = SplitRecords(std::string(kSignature) + Bytes(file.body));
    EXPECT_EQ(Records(split), file.records) << file.body;
  }
}

}  // namespace
