#include "schemefile/exchange.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/unique_handle.h"
#include "schemefile/records/record_store.h"
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

TEST_F(ExchangeTest, WritesEveryRecordAndRestoresAWipedMachine) {
  Add(Scheme("Infants"));
  Add(Scheme(kLeo));
  const std::string schemes = Schemes();
  EXPECT_TRUE(Export());
  EXPECT_EQ(ReadFileBytes(path_), ExpectedFile());
  ClearSchemes();
  EXPECT_EQ(Import(path_), FileResult::kDone);
  EXPECT_EQ(Schemes(), schemes);
  EXPECT_TRUE(problems_.None());
  EXPECT_EQ(TheRecordStore().ReadCursor(), TheRecordStore().Count())
      << "every look-up for a scheme found its record at the cursor";
  EXPECT_EQ(steps_, (std::vector<std::string>{"0/2 1/2 2/2 ", "0/3 1/3 2/3 3/3 ", "0/3 1/3 2/3 3/3 ",
                                              "0/2 1/2 2/2 "}));

  ClearSchemes();
  EXPECT_TRUE(Export());
  EXPECT_EQ(ReadFileBytes(path_), FileBytes("Scheme Count: The number of schemes=0"));
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

TEST_F(ExchangeTest, AnImportTellsWhatItCouldNotWrite) {
  WriteFileBytes(path_, ExpectedFile());
  ImportedCalls calls({IMPORTED(RegSetValueExA), IMPORTED(RegOpenKeyExA)});
  calls.FailEach("RegSetValueExA WebLinksCount", ERROR_DISK_FULL);
  Import(path_);
  EXPECT_EQ(problems_.Schemes, (std::vector<std::string>{"Infants", kLeo}));
  EXPECT_FALSE(problems_.ConfigList || problems_.NoAccess);
  EXPECT_EQ(RootCounts(), "Infants:1 " + kLeo + ":1 ") << "the rest is written all the same";
  calls.FailEach("RegSetValueExA Infants", ERROR_DISK_FULL);
  ClearSchemes();
  Import(path_);
  EXPECT_TRUE(problems_.ConfigList && problems_.Schemes.empty());
  calls.FailEach(kSchemesKey, ERROR_ACCESS_DENIED);
  Import(path_);
  EXPECT_TRUE(problems_.NoAccess);
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

TEST_F(ExchangeTest, ImportReplacesOnlyTheSchemesOfTheFileProtectedOnesToo) {
  SchemeProperties other = Scheme("Other"), infants = Scheme("Infants");
  infants.FolderRoots.resize(2);
  Add(other);
  Add(infants);
  WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Infants"="")");
  WriteFileBytes(path_, ExpectedFile());
  EXPECT_EQ(Import(path_), FileResult::kDone);
  EXPECT_EQ(RootCounts(), "Infants:1 " + kLeo + ":1 Other:1 ");
  EXPECT_NE(Schemes().find("[Infants\\FolderDisplay\\Root 2]"), std::string::npos)
      << "what is beyond the new count stays behind";
}

TEST_F(ExchangeTest, DamageCostsWhatItHit) {
  const std::string first = "Infants:1 ", both = first + kLeo + ":1 ";
  const std::string name = "Scheme1|Name of scheme|", second = name + kLeo + "|";
  // The first occurrence of a text gives way to another; nothing is left behind `to` when `cut`.
  const struct {
    const char* what;
    std::string from, to;
    bool cut;
    std::string schemes;
    bool refused = false;
  } cases[] = {
      {"shorter than the signature", "!|", "!", true, "", true},
      {"empty first key", "!|", "!||", false, both},
      {"cut inside the roots", "RootPath", "", true, first},
      {"no count", "schemes|2", "schools|2", false, ""},
      {"count negative", "schemes|2", "schemes|-2", false, ""},
      {"count absurd", "schemes|2", "schemes|99999999999", false, both},
      {"roots missing", "Count|1", "Count|3", false, "Infants:3 " + kLeo + ":1 "},
      {"number of roots nonsense", "Count|1", "Count|one", false, "Infants:0 " + kLeo + ":1 "},
      {"more roots than can be", "Count|1", "Count|1001", false, both},
      {"number of roots absurd", "Count|1", "Count|99999999999", false, both},
      {"number of roots negative", "Count|1", "Count|-1", false, "Infants:0 " + kLeo + ":1 "},
      {"description too long", "For Infants|", std::string(300, 'x') + "|", false, both},
      {"blank name", second, name + "|", false, first},
      {"name with a backslash", second, name + "a\\b|", false, first},
      {"name with a NUL", second, name + std::string("a\0b|", 4), false, first},
      {"over-long name", second, name + std::string(256, 'n') + "|", false, first},
      {"terminator in a name", second, name + "Up||", false, first + "Up:0 "},
  };
  for (const auto& damage : cases) {
    SCOPED_TRACE(damage.what);
    ClearSchemes();
    std::string file = ExpectedFile();
    const std::size_t place = file.find(Bytes(damage.from));
    ASSERT_NE(place, std::string::npos);
    file.replace(place, damage.cut ? std::string::npos : damage.from.size(), Bytes(damage.to));
    WriteFileBytes(path_, file);
    EXPECT_EQ(Import(path_), damage.refused ? FileResult::kNotASchemeFile : FileResult::kDone);
    EXPECT_EQ(RootCounts(), damage.schemes);
    EXPECT_EQ(SchemeCatalogue().LoadCatalogue(), CatalogueResult::kLoaded) << "what is stored can be listed";
  }
}

TEST_F(ExchangeTest, RefusesFilesThatCannotBeRead) {
  EXPECT_EQ(Import(folder_.Path()), FileResult::kUnreadable);
  WriteFileBytes(path_, ExpectedFile() + std::string(12'000'000, '\xAC'));
  EXPECT_EQ(Import(path_), FileResult::kUnreadable);
  WriteFileBytes(path_, ExpectedFile());
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Import(path_), FileResult::kUnreadable);
  EXPECT_FALSE(Export()) << "a protected file is not replaced either";
  EXPECT_EQ(ReadFileBytes(path_), ExpectedFile());
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
  const UniqueFile inUse(CreateFileA(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(Import(path_), FileResult::kUnreadable);
  EXPECT_EQ(RootCounts(), "");
}

}  // namespace
