#include <windows.h>
#include <gtest/gtest.h>
#include <tlhelp32.h>

#include <filesystem>
#include <string>

#include "app/settings.h"
#include "app/start_up.h"
#include "base/program_processes.h"
#include "support/dialog_script.h"
#include "support/imported_calls.h"
#include "support/program_copies.h"
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
    script.ExpectMessage(kPlain, title, text);
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

TEST_F(StartUpTest, SeesASecondCopyAsLongAsItRuns) {
  {
    ProgramCopies copies(location_);
    for (const bool expected : {false, true}) {
      copies.Start();
      EXPECT_EQ(CSchemeManagerApp::IsAlreadyRunning(), expected);
    }
  }
  EXPECT_FALSE(CSchemeManagerApp::IsAlreadyRunning());
}

const char* g_listed = "";
BOOL WINAPI ListOneProcess(HANDLE, PROCESSENTRY32* process) {
  lstrcpyA(process->szExeFile, g_listed);
  process->th32ProcessID = GetCurrentProcessId();
  return TRUE;
}

TEST(ProgramProcessesTest, KnowsTheNameOfEachKindOfWindows) {
  const Diversion diversion("Process32First", reinterpret_cast<void*>(&ListOneProcess));
  for (const char* name :
       {"KELVANSTEAD scheme manager", "Kelvanstead Scheme Manager.", "Kelvanstead Scheme Manager.exe",
        "C:\\Program Files\\Tessaly\\Kelvanstead Scheme Manager\\Kelvanstead Scheme Manager.exe"}) {
    g_listed = name;
    EXPECT_EQ(ProgramProcesses(), std::vector{GetCurrentProcessId()}) << name;
  }
  g_listed = "Kelvanstead Scheme Manager.ex";
  EXPECT_TRUE(ProgramProcesses().empty());
}

TEST(VersionResourceTest, NamesMakerProductAndVersion) {
  const HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(1), RT_VERSION);
  ASSERT_NE(resource, nullptr);
  std::wstring text(static_cast<const wchar_t*>(LockResource(LoadResource(nullptr, resource))),
                    SizeofResource(nullptr, resource) / sizeof(wchar_t));
  std::erase(text, L'\0');
  for (const wchar_t* value : {L"CompanyNameTessaly", L"ProductNameKelvanstead Scheme Manager",
                               L"FileVersion2.28.0.0", L"ProductVersion2.28.0.0"})
    EXPECT_NE(text.find(value), text.npos) << value;
}

TEST_F(RegistryTest, SettingsComeFromTheirOwnKeys) {
  WriteTree(HKEY_LOCAL_MACHINE, kTessaly, R"(
    [KelvansteadScheme Manager] "IconPath"="icons" "GifPath"=hex(3):67 69 66 73
      "Formatting"="format" "Location"="wrong"
    [Kelvanstead Scheme Manager] "Location"="right" "IconPath"="wrong"
    [Kelvanstead\Settings] "Default Pictures"="default" "User Defined Pictures"="user's")");
  EXPECT_EQ(GetIconPath() + " " + GetGifPath() + " " + GetFormatting() + " " + GetLocation() + " " +
                GetDefaultPictures() + " " + GetUserDefinedPictures(),
            "icons gifs format right default user's")
      << "whatever the type";
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Kelvanstead Scheme Manager");
  EXPECT_EQ(GetLocation(), "") << "not that of the other key";
}

}  // namespace
