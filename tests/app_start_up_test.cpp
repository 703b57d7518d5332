#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "app/settings.h"
#include "app/start_up.h"
#include "base/unique_handle.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

namespace fs = std::filesystem;

constexpr char kPolicyPath[] = "Software\\Policies\\Tessaly\\Kelvanstead Scheme Manager";
constexpr char kNoSchemes[] =
    "There are no Kelvanstead Schemes on this machine\n\rso Kelvanstead Scheme Manager cannot "
    "run.\n\r\n\rPlease "
    "reinstall Kelvanstead.";
constexpr char kNoBitmaps[] =
    "There are no bitmaps available for the Scheme Manager.\n\rPlease reinstall Kelvanstead.";
constexpr char kLocked[] = "Kelvanstead Scheme Manager cannot be used by pupils.";

std::string Escaped(const std::string& path) {
  std::string escaped;
  for (const char c : path)
    escaped += c == '\\' ? "\\\\" : std::string(1, c);
  return escaped;
}

// A machine of two folders, for the pictures and for the program, and one scheme. The working directory is
// restored.
class StartUpTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    workingDirectory_ = fs::current_path();
    folder_ = fs::temp_directory_path() / "kelvanstead start up";
    fs::remove_all(folder_);
    fs::create_directories(Pictures());
    fs::create_directories(Location());
    WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly",
              "[Kelvanstead\\Settings]\n\"Default Pictures\"=\"" + Escaped(Pictures().string()) +
                  "\"\n[Kelvanstead Scheme Manager]\n\"Location\"=\"" + Escaped(Location().string()) +
                  "\"\n[Kelvanstead\\Schemes]\n\"Infants\"=\"\"\n[Kelvanstead\\Schemes\\Infants]\n");
  }

  void TearDown() override {
    fs::current_path(workingDirectory_);
    fs::remove_all(folder_);
    RegistryTest::TearDown();
  }

  fs::path Pictures() const { return folder_ / "Pictures"; }
  fs::path Location() const { return folder_ / "Manager"; }

  static void WriteFile(const fs::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }
  static std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  fs::path workingDirectory_;
  fs::path folder_;
};

// Catches a check that runs out of order, or goes on after a refusal.
TEST_F(StartUpTest, TheFirstRefusalEndsIt) {
  WriteTree(HKEY_CURRENT_USER, kPolicyPath, "[]\n\"Lock\"=dword:1\n");
  {
    DialogScript script;
    script.ExpectMessage("Access Denied", kLocked);
    EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  }
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Kelvanstead\\Schemes\\Infants");
  {
    DialogScript script;
    script.ExpectMessage("No Schemes Found", kNoSchemes);
    EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  }
  WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Kelvanstead\\Schemes\\Infants", "[]\n");
  WriteTree(HKEY_CURRENT_USER, kPolicyPath, "[]\n\"Lock\"=dword:0\n");
  {
    DialogScript script;
    script.ExpectMessage("Unable to Run", kNoBitmaps);
    EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  }
}

TEST_F(StartUpTest, LockCountsByItsRawBytes) {
  const struct {
    const char* lock;
    bool allowed;
  } cases[] = {
      {"", true},
      {"\"Lock\"=dword:0", true},
      {"\"Lock\"=dword:1", false},
      {"\"Lock\"=dword:80000000", false},
      {"\"Lock\"=\"1\"", false},
      {"\"Lock\"=\"\"", true},
      {"\"Lock\"=hex(3):00 00 01", false},
      {"\"Lock\"=hex(3):01 00 00 00 00", true},  // too long for the query
      {"\"Lock\"=\"locked\"", true},
  };
  EXPECT_TRUE(CSchemeManagerApp::PolicyAllows()) << "without the key";
  WriteTree(HKEY_LOCAL_MACHINE, kPolicyPath, "[]\n\"Lock\"=dword:1\n");
  for (const auto& [lock, allowed] : cases) {
    SCOPED_TRACE(lock);
    RegDeleteTreeA(HKEY_CURRENT_USER, kPolicyPath);
    WriteTree(HKEY_CURRENT_USER, kPolicyPath, std::string("[]\n") + lock + "\n");
    DialogScript script;
    if (!allowed) script.ExpectMessage("Access Denied", kLocked);
    EXPECT_EQ(CSchemeManagerApp::PolicyAllows(), allowed);
  }
}

TEST_F(StartUpTest, FillsInTheDefaultBitmapsThatAreMissing) {
  WriteFile(Pictures() / "Closed Folder.bmp", "the school's own");
  WriteFile(Location() / "Closed Folder.bmp", "ours");
  WriteFile(Location() / "On-Line Resources.bmp", "ours");
  EXPECT_TRUE(CSchemeManagerApp::BitmapsAvailable());
  EXPECT_TRUE(fs::equivalent(fs::current_path(), Pictures())) << "the program works in the pictures folder";
  CSchemeManagerApp::CopyDefaultBitmaps();
  EXPECT_EQ(ReadFile(Pictures() / "Closed Folder.bmp"), "the school's own");
  EXPECT_EQ(ReadFile(Pictures() / "On-Line Resources.bmp"), "ours");
}

// Catches a count that misses the case-blind comparison, or that takes one copy for two.
TEST_F(StartUpTest, SeesASecondCopyUnderAnyCase) {
  char system[MAX_PATH] = "";
  GetSystemDirectoryA(system, sizeof(system));
  const fs::path copy = Location() / "KELVANSTEAD scheme manager.exe";
  fs::copy_file(fs::path(system) / "cmd.exe", copy);

  std::vector<UniqueProcess> copies;
  std::vector<UniqueFile> inputs;
  for (const bool expected : {false, true}) {
    SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
    UniqueFile read;
    UniqueFile write;
    ASSERT_TRUE(CreatePipe(read.Put(), write.Put(), &inheritable, 0));
    SetHandleInformation(write.Get(), HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = read.Get();
    PROCESS_INFORMATION process{};
    std::string command = copy.string();
    command.insert(0, 1, '"').append("\" /c set /p waits=");
    ASSERT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                               nullptr, &start, &process));
    CloseHandle(process.hThread);
    copies.emplace_back(process.hProcess);
    inputs.push_back(std::move(write));
    EXPECT_EQ(CSchemeManagerApp::IsAlreadyRunning(), expected);
  }
  const HWND first = CreateWindowA("Static", "Kelvanstead Scheme Manager", WS_OVERLAPPEDWINDOW | WS_MINIMIZE,
                                   0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
  EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  EXPECT_TRUE(IsWindowVisible(first) && !IsIconic(first)) << "only the first copy's window is shown";
  DestroyWindow(first);
  inputs.clear();  // the end of their input ends them
  for (const UniqueProcess& process : copies) {
    if (WaitForSingleObject(process.Get(), 5'000) != WAIT_OBJECT_0) TerminateProcess(process.Get(), 1);
    WaitForSingleObject(process.Get(), 5'000);
  }
  EXPECT_FALSE(CSchemeManagerApp::IsAlreadyRunning());
}

TEST_F(RegistryTest, SettingsComeFromTheirOwnKeys) {
  WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly", R"(
    [KelvansteadScheme Manager]
    "IconPath"="icons"
    "GifPath"="gifs"
    "Formatting"="formatting"
    "Location"="wrong"
    [Kelvanstead Scheme Manager]
    "Location"="right"
    "IconPath"="wrong"
    [Kelvanstead\Settings]
    "Default Pictures"="default"
    "User Defined Pictures"=")" + std::string(260, 'x') + "\"\n");
  EXPECT_EQ(GetIconPath(), "icons");
  EXPECT_EQ(GetGifPath(), "gifs");
  EXPECT_EQ(GetFormatting(), "formatting");
  EXPECT_EQ(GetLocation(), "right");
  EXPECT_EQ(GetDefaultPictures(), "default");
  EXPECT_EQ(GetUserDefinedPictures(), "") << "longer than the buffer";

  WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\KelvansteadScheme Manager",
            "[]\n\"HelpPath\"=\"C:\\\\none.htm\"\n");
  DialogScript script;
  script.ExpectMessage(
      "Help Problem",
      "There has been a problem locating the correct help file.\nIt is recommended you inform your "
      "system administrator\nof this error");
  EXPECT_FALSE(ShowHelp());
}

}  // namespace
