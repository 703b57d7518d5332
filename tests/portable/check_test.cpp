#include "schemefile/check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/sample_schemes.h"

namespace {

// Replaces the first `from` of the file, which must be there.
std::string Edited(std::string file, const std::string& from, const std::string& to) {
  const std::size_t start = file.find(Bytes(from));
  EXPECT_NE(start, std::string::npos) << from;
  return file.replace(start, from.size(), Bytes(to));
}

// A line for each finding: scheme, record and problem, and what stands in the file at its byte.
std::string Findings(const std::string& file) {
  constexpr std::size_t kShown = 12;
  std::string lines;
  for (const Finding& finding : CheckRecords(SplitRecords(file)).Findings) {
    std::string there = file.substr(std::min(finding.Offset, file.size()), kShown);
    std::replace(there.begin(), there.end(), '\xAC', '|');
    lines += finding.Scheme + "; " + finding.Record + "; " + finding.Text + " @" + there + "\n";
  }
  return lines;
}

TEST(CheckTest, FindsNothingInASoundFileInAnyOrder) {
  EXPECT_EQ(Findings(ExpectedFile()), "");
  EXPECT_EQ(Findings(FileBytes("Scheme Count: The number of schemes=0")), "");
  const RecordList file = SplitRecords(ExpectedFile());
  std::vector<SchemeRecord> records = Records(file);
  std::shuffle(records.begin(), records.end(), std::mt19937(1));
  std::string bytes(kSignature);
  for (const auto& [key1, key2, value] : records)
    bytes.append(key1).append("\xAC").append(key2).append("\xAC").append(value).append("\xAC");
  EXPECT_EQ(Findings(bytes), "");
  EXPECT_EQ(CheckRecords(SplitRecords(bytes)).Schemes, 2u);
}

// A name "Config1" is a number of the list of descriptions as well; in its own order such a file reads whole.
TEST(CheckTest, TakesLabelsForNames) {
  EXPECT_EQ(Findings(FileBytes("Config Hive: Config1=Config1; Config1=A\nScheme Count: The number of "
                               "schemes=1\nScheme0" +
                               SchemeText("Config1"))),
            "");
}

TEST(CheckTest, NamesSchemeRecordAndByteOfEachDamage) {
  const std::string tabs = "Infants - Tabs|Page1|1|Infants - Tabs|Page2|0|Infants - Tabs|Page3|1|";
  const std::string root = "Infants - FolderDisplay - Root 1|", count = "Infants - FolderDisplay|";
  const struct {
    std::string From, To, Findings;
  } cases[] = {
      {"Infants - Tabs|Page2|0|", "", "Infants; Infants - Tabs, Page2; is missing @Infants - Ta\n"},
      {tabs, "", "Infants; Infants - Tabs; is missing @Infants - To\n"},
      {"Infants - Tabs|Page2|0|", "Infants - Tabs|Page2|0|Infants - Tabs|Page2|1|",
       "Infants; Infants - Tabs, Page2; stands twice @Infants - Ta\n"},
      {"Page2|0|", "Page2|2147483648|",
       "Infants; Infants - Tabs, Page2; is no number, or one of more than 32 bits @Infants - Ta\n"},
      {"Page2|0|", "Page2| +7|", ""},
      {"RootPath|H:\\|", std::string("RootPath|H\0\\|", 13),
       "Infants; Infants - FolderDisplay - Root 1, RootPath; would end at the NUL in it @Infants - Fo\n"},
      {count + "RootFoldersCount|1|", count + "RootFoldersCount|1st|",
       "Infants; Infants - FolderDisplay, RootFoldersCount; is no number, or one of more than 32 bits "
       "@Infants - Fo\n"
       "Infants; Infants - FolderDisplay - Root 1, CollapsedIconFile; is read by no import, like the next 8 "
       "@Infants - Fo\n"},
      {count + "RootFoldersCount|1|", count + "RootFoldersCount|3|",
       "Infants; Infants - FolderDisplay, RootFoldersCount; states 3, of which 2 are missing @Infants - "
       "Fo\n"},
      {"WeblinksCount|2|", "WeblinksCount|1001|",
       "Infants; Infants - Folder Display, WeblinksCount; is more than the 1000 that can be @Infants - Fo\n"
       "Infants; Infants - Weblinks - WebLink 1, DisplayName; is read by no import, like the next 11 "
       "@Infants - We\n"},
      {"Scheme Count|The number of schemes|2|", "",
       "; Scheme Count, The number of schemes; is missing @Config Hive|\n"
       "; Config Hive, Config1; is read by no import, like the next 167 @Config Hive|\n"},
      {"Scheme Count|The number of schemes|2|", "Scheme Count|The number of schemes|3|",
       "; Config Hive, Config3; is missing @Scheme Count\n; Scheme2, Name of scheme; is missing @\n"},
      {"number of schemes|2|", "number of schemes|-2|", "*"},
      {"Name of scheme|Infants|", "Name of scheme|In\\fants|",
       "Infants; Config Hive, Config1; describes a scheme that the file does not have @Config Hive|\n"
       "In\\fants; Scheme0, Name of scheme; is no name that a scheme can have @Scheme0|Name\n"
       "In\\fants; Config Hive, In\\fants; is missing @Infants - Fo\n"
       "; Infants - FolderDisplay, RootFoldersCount; is read by no import, like the next 80 @Infants - Fo\n"},
      {"Infants|For Infants|", "Infants|" + std::string(260, 'x') + "|",
       "Infants; Config Hive, Infants; would be cut to 259 characters @Config Hive|\n"},
      {"Options Menu|56|Scheme1|", "Options Menu|56Scheme1|", "*"},
      {"Manager!|Config Hive|", "Manager!||Config Hive|", "*"},
  };
  for (const auto& damage : cases) {
    const std::string findings = Findings(Edited(ExpectedFile(), damage.From, damage.To));
    if (damage.Findings == "*") {
      EXPECT_NE(findings, "") << damage.To;
    } else {
      EXPECT_EQ(findings, damage.Findings) << damage.To;
    }
  }
}

TEST(CheckTest, FindsATornEndAndASecondSchemeOfTheName) {
  const std::string file = ExpectedFile();
  EXPECT_EQ(Findings(file.substr(0, file.size() - 1)),
            kLeo + "; " + kLeo + " - Defaults, Options Menu; is missing @" + kLeo +
                " -\n; ; The file ends inside a record @" + kLeo + " -\n");
  EXPECT_EQ(Findings(file + "x"), "; ; The file ends inside a record @x\n");
  const std::string twice = FileBytes(
      "Config Hive: Config1=A; A=; Config2=a; a=\nScheme Count: The number of "
      "schemes=2\nScheme0" +
      SchemeText("A") + "Scheme1" + SchemeText("a"));
  EXPECT_NE(Findings(twice).find("a; Scheme1, Name of scheme; is the name of an earlier scheme"),
            std::string::npos);
}

// Few bytes can state much: the search ends, and what is listed stays short.
TEST(CheckTest, EndsInAFileOfNothingButDamage) {
  std::string file = FileBytes("Scheme Count: The number of schemes=100000");
  file.resize(file.size() + 300'000, '\xAC');
  const CheckResult result = CheckRecords(SplitRecords(file));
  EXPECT_EQ(result.Findings.size(), kMaxFindings);
  const std::string longKey(100'000, 'x');
  const CheckResult stray = CheckRecords(SplitRecords(FileBytes(longKey + ": key=value")));
  EXPECT_LT(stray.Findings.back().Record.size(), 250u);
}

}  // namespace
