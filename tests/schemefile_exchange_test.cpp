#include "schemefile/exchange.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/unique_handle.h"
#include "schemefile/scheme_file.h"
#include "support/exchange_machine.h"
#include "support/imported_calls.h"

namespace {

class ExchangeTest : public ExchangeMachineTest {
 protected:
  // Exports the machine as the command does. False when the user would be told of a problem.
  bool Export() {
    SchemeHive hive;
    if (ReadMachine(hive, NoteSteps()) != CatalogueResult::kLoaded) return false;
    SchemeFile file;
    file.Save(hive, NoteSteps());
    return file.Write(folder_.Path(), path_);
  }
  // Imports the file as the command does.
  FileResult Import(const std::string& path) {
    SchemeFile file;
    const FileResult result = file.Read(path, path);
    if (result != FileResult::kDone) return result;
    SchemeHive hive;
    hive.Records = file.TakeRecords();
    ImportSchemes(hive, NoteSteps());
    problems_ = ApplyImport(hive, {}, NoteSteps());
    return result;
  }

  // Notes a piece of work as "0/2 1/2 2/2".
  Progress NoteSteps() {
    steps_.emplace_back();
    return [this](int done, int steps) {
      steps_.back() += std::to_string(done) + "/" + std::to_string(steps) + " ";
    };
  }

  std::vector<std::string> steps_;
  ImportProblems problems_;
};

TEST_F(ExchangeTest, StepsOnceForEachScheme) {
  Add(Scheme("Infants"));
  Add(Scheme(kLeo));
  EXPECT_TRUE(Export());
  EXPECT_EQ(Import(path_), FileResult::kDone);
  EXPECT_TRUE(problems_.None());
  EXPECT_EQ(steps_, (std::vector<std::string>{"0/2 1/2 2/2 ", "0/3 1/3 2/3 3/3 ", "0/3 1/3 2/3 3/3 ",
                                              "0/2 1/2 2/2 "}));
}

// What could not be read is not in the hive, and a file without it would look whole.
TEST_F(ExchangeTest, NoFailingCallCostsTheFileThatIsThere) {
  Add(Scheme("Infants"));
  const std::string whole = FileBytes(
      "Config Hive: Config1=Infants; Infants=For Infants\n"
      "Scheme Count: The number of schemes=1\nScheme0" +
      SchemeText("Infants"));
  constexpr char kOld[] = "the file of last year";
  for (int failing = 1;; ++failing) {
    SCOPED_TRACE(failing);
    WriteFileBytes(path_, kOld);
    ImportedCalls calls({IMPORTED(RegOpenKeyExA), IMPORTED(RegEnumValueA), IMPORTED(RegQueryValueExA),
                         IMPORTED(CreateFileA), IMPORTED(WriteFile), IMPORTED(FlushFileBuffers),
                         IMPORTED(MoveFileExA)});
    calls.FailNth(failing, ERROR_ACCESS_DENIED);
    const bool exported = Export();
    EXPECT_EQ(exported, calls.Failures() == 0);
    EXPECT_EQ(ReadFileBytes(path_), exported ? whole : kOld);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1)
        << "nothing stays beside the file";
    if (exported || HasFailure()) break;
  }
}

TEST_F(ExchangeTest, ImportLeavesAloneWhatCannotBeToldApart) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Infants"="here" [Infants])");
  const UniqueKey schemes = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS);
  const wchar_t kReadsAsInfants[] = L"\uff29nfants";  // with a letter outside the code page
  ASSERT_EQ(0, RegSetValueExW(schemes.Get(), kReadsAsInfants, 0, REG_SZ, nullptr, 0));
  WriteFileBytes(path_, ExpectedFile());
  Import(path_);
  EXPECT_EQ(problems_.Schemes, std::vector<std::string>{"Infants"});
  EXPECT_TRUE(problems_.ConfigList);
  EXPECT_EQ(ReadText(schemes.Get(), "Infants"), "here");
  EXPECT_EQ(RootCounts(), "Infants:0 " + kLeo + ":1 ");
}

}  // namespace
