#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/settings.h"
#include "app/start_up.h"
#include "base/unique_handle.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

namespace {

namespace fs = std::filesystem;

constexpr char kTessaly[] = "Software\\Tessaly";
constexpr char kTitle[] = "Kelvanstead Scheme Manager";

// A machine of two folders, for the pictures and for the program. The working directory is restored.
class StartUpTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, "[Kelvanstead\\Schemes]");
    for (const std::string& folder : {pictures_, location_})
      fs::create_directory(folder);
    Set("Software\\Tessaly\\Kelvanstead\\Settings", "Default Pictures", pictures_);
    Set("Software\\Tessaly\\Kelvanstead Scheme Manager", "Location", location_);
  }
  void TearDown() override {
    fs::current_path(workingDirectory_);
    RegistryTest::TearDown();
  }
  static void Set(const char* key, const char* value, const std::string& text) {
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, key, value, REG_SZ, text.c_str(),
                    static_cast<DWORD>(text.size() + 1));
  }

  const ScratchFolder folder_;
  const std::string pictures_ = folder_.File("Pictures");
  const std::string location_ = folder_.File("Manager");
  const fs::path workingDirectory_ = fs::current_path();
};

// Catches a check that runs out of order or goes on after a refusal, and a policy that counts wrongly.
TEST_F(StartUpTest, TheFirstRefusalEndsIt) {
  enum Refusal { kNoSchemes, kLocked, kNoBitmaps };
  const std::pair<const char*, const char*> messages[] = {
      {"No Schemes Found",
       "There are no Kelvanstead Schemes on this machine\n\rso Kelvanstead Scheme Manager cannot run.\n\r\n\r"
       "Please reinstall Kelvanstead."},
      {"Access Denied", "Kelvanstead Scheme Manager cannot be used by pupils."},
      {"Unable to Run",
       "There are no bitmaps available for the Scheme Manager.\n\rPlease reinstall Kelvanstead."}};
  const struct {
    const char* Schemes;
    const char* Policy;
    Refusal Expected;
  } cases[] = {
      {"", R"([] "Lock"=dword:1)", kNoSchemes},
      {R"("Gone"="")", "[]", kNoSchemes},
      {R"("Infants"="" [Infants])", R"([] "Lock"=dword:1)", kLocked},
      {"", R"([] "Lock"=dword:80000000)", kLocked},
      {"", R"([] "Lock"="1")", kLocked},
      {"", R"([] "Lock"=hex(3):00 00 01)", kLocked},
      {"", R"([] "Lock"=hex(3):01 00 00 00 00)", kNoBitmaps},  // too long for the query
      {"", R"([] "Lock"="locked")", kNoBitmaps},
      {"", R"([] "Lock"="")", kNoBitmaps},
      {"", R"([] "Lock"=dword:0)", kNoBitmaps},
      {"", "[]", kNoBitmaps},
      {"", "", kNoBitmaps},
  };
  constexpr char kPolicy[] = "Software\\Policies\\Tessaly\\Kelvanstead Scheme Manager";
  WriteTree(HKEY_LOCAL_MACHINE, kPolicy, R"("Lock"=dword:1)");  // the user's counts, not the machine's
  for (const auto& item : cases) {
    SCOPED_TRACE(testing::Message() << item.Schemes << " " << item.Policy);
    WriteTree(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Kelvanstead\\Schemes", item.Schemes);
    RegDeleteTreeA(HKEY_CURRENT_USER, kPolicy);
    if (*item.Policy) WriteTree(HKEY_CURRENT_USER, kPolicy, item.Policy);
    DialogScript script;
    const auto& [title, text] = messages[item.Expected];
    script.ExpectMessage(title, text);
    EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  }
}

TEST_F(StartUpTest, FillsInTheDefaultBitmapsAndShowsTheMainWindow) {
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
            R"([Kelvanstead\Schemes] "Infants"="" [Kelvanstead\Schemes\Infants])");
  WriteFileBytes(pictures_ + "\\Closed Folder.bmp", "the school's own");
  WriteFileBytes(location_ + "\\Closed Folder.bmp", "ours");
  WriteFileBytes(location_ + "\\On-Line Resources.bmp", "ours");
  DialogScript script;
  script.Expect(kTitle, [this](HWND window) {
    EXPECT_TRUE(fs::equivalent(fs::current_path(), pictures_)) << "it works in the pictures folder";
    EXPECT_EQ(ReadFileBytes(pictures_ + "\\Closed Folder.bmp"), "the school's own");
    EXPECT_EQ(ReadFileBytes(pictures_ + "\\On-Line Resources.bmp"), "ours");
    Click(window, IDOK);
  });
  EXPECT_FALSE(CSchemeManagerApp().InitInstance());
}

// Catches a count that misses the case-blind comparison, or that takes one copy for two.
TEST_F(StartUpTest, SeesASecondCopyUnderAnyCase) {
  char system[MAX_PATH] = "";
  GetSystemDirectoryA(system, sizeof(system));
  const std::string copy = location_ + "\\KELVANSTEAD scheme manager.exe";
  fs::copy_file(fs::path(system) / "cmd.exe", copy);
  std::vector<UniqueProcess> copies;
  for (const bool expected : {false, true}) {
    STARTUPINFOA start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    // A process that never begins to run needs nothing to end it by.
    ASSERT_TRUE(CreateProcessA(copy.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                               nullptr, &start, &process));
    CloseHandle(process.hThread);
    copies.emplace_back(process.hProcess);
    EXPECT_EQ(CSchemeManagerApp::IsAlreadyRunning(), expected);
  }
  DialogScript script;  // a message is a fault, and closed
  const HWND first = CreateWindowA("Static", kTitle, WS_OVERLAPPEDWINDOW | WS_MINIMIZE, 0, 0, 100, 100,
                                   nullptr, nullptr, nullptr, nullptr);
  EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  EXPECT_TRUE(IsWindowVisible(first) && !IsIconic(first)) << "only the first copy's window is shown";
  DestroyWindow(first);
  for (const UniqueProcess& process : copies) {
    TerminateProcess(process.Get(), 0);
    WaitForSingleObject(process.Get(), INFINITE);
  }
  EXPECT_FALSE(CSchemeManagerApp::IsAlreadyRunning());
}

TEST_F(RegistryTest, SettingsComeFromTheirOwnKeys) {
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly, R"(
    [KelvansteadScheme Manager] "IconPath"="icons" "GifPath"="gifs" "Formatting"="format" "Location"="wrong"
    [Kelvanstead Scheme Manager] "Location"="right" "IconPath"="wrong"
    [Kelvanstead\Settings] "Default Pictures"="default" "User Defined Pictures"="user's")");
  EXPECT_EQ(GetIconPath() + " " + GetGifPath() + " " + GetFormatting() + " " + GetLocation() + " " +
                GetDefaultPictures() + " " + GetUserDefinedPictures(),
            "icons gifs format right default user's");
}

}  // namespace
