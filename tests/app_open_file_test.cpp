// How a file comes to the main window: by the command line, from a second copy of the program, and dropped.
#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/main_dialog.h"
#include "app/running_copy.h"
#include "app/start_up.h"
#include "base/names.h"
#include "controls/window_text.h"
#include "editor_driver.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/imported_calls.h"
#include "support/list_driver.h"
#include "support/program_copies.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"
#include "support/scratch_folder.h"

namespace {

constexpr char kTitle[] = "Kelvanstead Scheme Manager";
constexpr char kLoadTitle[] = "Load Schemes";
constexpr int kList = 1021, kAbout = 32772;
constexpr ULONG_PTR kOpenFile = 0x4B534601;
const MessageStyle kNoOwner = kWarning;

TEST(CommandLineTest, NamesTheFileByItsFullPath) {
  const std::wstring folder = std::filesystem::current_path().wstring();
  const std::wstring root = folder.substr(0, 3);
  const std::pair<const wchar_t*, std::wstring> cases[] = {
      {L"program.exe", L""},
      {L"program.exe \"\"", L""},
      {L"\"C:\\Program Files\\program.exe\" \"C:\\My schemes\\\u0142.ksf\" more",
       L"C:\\My schemes\\\u0142.ksf"},
      {L"program.exe  a.ksf", folder + L"\\a.ksf"},
      {L"program.exe \\b\\..\\a.ksf", root + L"a.ksf"},
  };
  for (const auto& [line, expected] : cases)
    EXPECT_EQ(FileToOpen(line), expected) << line;
}

// Windows that appear to be another process's.
DWORD g_process = 0;
HWND g_foreign[2] = {};
decltype(&GetWindowThreadProcessId) g_getProcess = nullptr;

DWORD WINAPI ProcessOfWindow(HWND window, DWORD* process) {
  const DWORD thread = g_getProcess(window, process);
  if (window && (window == g_foreign[0] || window == g_foreign[1])) *process = g_process;
  return thread;
}

OfferResult g_reply = OfferResult::kNotTaken;
std::wstring g_offered;

LRESULT CALLBACK ReplyToOffer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_COPYDATA) return DefWindowProcA(window, message, wParam, lParam);
  g_foreign[1] = reinterpret_cast<HWND>(wParam);
  g_offered =
      OfferedPath(g_foreign[1], *reinterpret_cast<const COPYDATASTRUCT*>(lParam)).value_or(L"nothing");
  return static_cast<LRESULT>(g_reply);
}

// A machine with Infants and a file of Infants and Leo.
class OpenFileTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kProductKey, R"([Schemes] "Infants"="" [Schemes\Infants])");
    WriteFileBytes(path_, ExpectedFile());
    g_process = copies_.Start();
    g_getProcess = reinterpret_cast<decltype(g_getProcess)>(diversion_.Original());
  }
  void TearDown() override {
    if (g_foreign[0]) DestroyWindow(g_foreign[0]);
    g_foreign[0] = g_foreign[1] = nullptr;
    g_offered.clear();
    RegistryTest::TearDown();
  }
  // A window of another copy.
  static HWND ForeignWindow(const char* title = "", WNDPROC procedure = nullptr) {
    g_foreign[0] = CreateWindowA("Static", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                                 nullptr, nullptr, nullptr);
    if (procedure) SetWindowLongPtrA(g_foreign[0], GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    return g_foreign[0];
  }
  static OfferResult Offer(HWND window, HWND sender, const std::wstring& text) {
    COPYDATASTRUCT offer{kOpenFile, static_cast<DWORD>(text.size() * sizeof(wchar_t)),
                         const_cast<wchar_t*>(text.data())};
    return static_cast<OfferResult>(SendMessageA(window, WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                                                 reinterpret_cast<LPARAM>(&offer)));
  }
  // As the system drops files, whose paths stand one behind the other.
  static void Drop(HWND window, const std::wstring& paths) {
    const std::size_t size = sizeof(DROPFILES) + (paths.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    PostMessageA(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    Pump();
  }

  void Run(const std::function<void(HWND window)>& use) {
    script_.Expect(kTitle, [&](HWND window) {
      use(window);
      EXPECT_EQ(script_.Remaining(), 0u);
      Click(window, IDOK);
    });
    CMainDialog().DoModal(nullptr);
  }
  void ExpectLoading(int button = IDCANCEL) {
    script_.Expect(kLoadTitle, [button](HWND dialog) {
      EXPECT_EQ(WindowText(GetWindow(dialog, GW_OWNER)), kTitle);
      Click(dialog, button);
    });
  }

  const ScratchFolder folder_;
  const std::string path_ = folder_.File("schemes.ksf");
  const std::wstring widePath_ = Widen(path_);
  ProgramCopies copies_{folder_.Path()};
  const Diversion diversion_{"GetWindowThreadProcessId", reinterpret_cast<void*>(&ProcessOfWindow)};
  DialogScript script_;
};

TEST_F(OpenFileTest, OpensTheFileOfTheCommandLineAndShowsWhatItBrought) {
  script_.Expect(kTitle, AfterItsMessages([](HWND window) {
                   const HWND list = GetDlgItem(window, kList);
                   EXPECT_EQ(ListCellText(list, 0, 1) + ListCellText(list, 1, 1), "For InfantsFor " + kLeo);
                   Click(window, IDOK);
                 }));
  ExpectLoading(IDOK);
  CMainDialog(widePath_).DoModal(nullptr);
}

TEST_F(OpenFileTest, OpensWhatIsDropped) {
  Run([this](HWND window) {
    EXPECT_TRUE(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    ExpectLoading();
    Drop(window, widePath_ + L'\0');
    script_.ExpectMessage(kWarning.OwnedBy(kTitle), kLoadTitle, "Please drop one scheme file at a time.");
    Drop(window, widePath_ + L'\0' + widePath_ + L'\0');
  });
}

TEST_F(OpenFileTest, OpensWhatASecondCopyOffers) {
  const HWND sender = ForeignWindow();
  Run([&](HWND window) {
    EXPECT_EQ(Offer(window, sender, widePath_ + L'\0'), OfferResult::kTaken);
    EXPECT_EQ(Offer(window, sender, widePath_ + L'\0'), OfferResult::kBusy) << "one file at a time";
    ExpectLoading();
    Pump();
    EXPECT_EQ(Offer(window, sender, widePath_ + L".none" + L'\0'), OfferResult::kNotFound);
    script_.Expect("About Kelvanstead Scheme Manager", [&](HWND about) {
      EXPECT_EQ(TakeBeeps(), (std::vector<UINT>{0})) << "the default sound";
      EXPECT_EQ(Offer(window, sender, widePath_ + L'\0'), OfferResult::kBusy);
      Click(about, IDOK);
    });
    SendMessageA(window, WM_COMMAND, kAbout, 0);
    EXPECT_EQ(Offer(window, window, widePath_ + L'\0'), OfferResult::kNotTaken) << "not another copy's";
    EXPECT_EQ(Offer(window, nullptr, widePath_ + L'\0'), OfferResult::kNotTaken);
  });
}

TEST_F(OpenFileTest, TakesNoMisshapenOffer) {
  const HWND sender = ForeignWindow();
  const auto offered = [&](std::wstring text, ULONG_PTR kind = kOpenFile, DWORD lessBytes = 0) {
    const COPYDATASTRUCT offer{kind, static_cast<DWORD>(text.size() * sizeof(wchar_t)) - lessBytes,
                               text.data()};
    return OfferedPath(sender, offer).value_or(L"nothing");
  };
  const std::wstring longest = L"C:\\" + std::wstring(32'764, L'x');
  EXPECT_EQ(offered(L"C:\\a.ksf" + std::wstring(1, L'\0')), L"C:\\a.ksf");
  EXPECT_EQ(offered(longest + L'\0'), longest);
  EXPECT_EQ(offered(longest + L"x" + L'\0'), L"nothing") << "longer than any path";
  EXPECT_EQ(offered(L"C:\\a.ksf" + std::wstring(1, L'\0'), 1), L"nothing") << "another kind";
  EXPECT_EQ(offered(L"C:\\a.ksf"), L"nothing") << "no NUL";
  EXPECT_EQ(offered(L"C:\\a.ksf" + std::wstring(2, L'\0'), kOpenFile, 1), L"nothing") << "half a character";
  EXPECT_EQ(offered(L"C:\\a" + std::wstring(1, L'\0') + L"b" + L'\0'), L"nothing") << "two texts";
  EXPECT_EQ(offered(L"a.ksf" + std::wstring(1, L'\0')), L"nothing") << "counts from an unknown folder";
  EXPECT_EQ(offered(L""), L"nothing");
  EXPECT_EQ(offered(std::wstring(1, L'\0')), L"nothing");
}

TEST_F(OpenFileTest, TheSecondCopyTellsWhatBecameOfItsFile) {
  copies_.Start();
  script_.ExpectMessage(kNoOwner, kLoadTitle,
                        "Kelvanstead Scheme Manager is open already, but cannot be asked to open this file.\n"
                        "Please close it, then open the file again.");
  CSchemeManagerApp(widePath_).InitInstance();

  ForeignWindow(kTitle, &ReplyToOffer);
  const struct {
    OfferResult Reply;
    const char* Title;
    const char* Text;
  } cases[] = {
      {OfferResult::kTaken, nullptr, nullptr},
      {OfferResult::kBusy, kLoadTitle,
       "Kelvanstead Scheme Manager is open, and one of its windows waits for you.\n"
       "Please close that window, then open the file again."},
      {OfferResult::kNotFound, "Read Problem",
       "Unable to read the file specified.\nThis is due to the file being damaged,\n"
       "protected or unreadable for another reason"},
      {OfferResult::kNotTaken, kLoadTitle,
       "Kelvanstead Scheme Manager is open already, but cannot be asked to open this file.\n"
       "Please close it, then open the file again."},
  };
  for (const auto& [reply, title, text] : cases) {
    g_reply = reply;
    g_offered.clear();
    if (title) script_.ExpectMessage(kNoOwner, title, text);
    CSchemeManagerApp(widePath_).InitInstance();
    EXPECT_EQ(g_offered, widePath_);
  }
}

// The first window of that title may be a folder's. It is restored all the same, but not raised.
TEST_F(OpenFileTest, TheSecondCopyRestoresAndRaisesTheFirst) {
  copies_.Start();
  const HWND titled = CreateWindowA("Static", kTitle, WS_OVERLAPPEDWINDOW | WS_MINIMIZE, 0, 0, 100, 100,
                                    nullptr, nullptr, nullptr, nullptr);
  ImportedCalls calls({IMPORTED(SetForegroundWindow)});
  EXPECT_FALSE(CSchemeManagerApp().InitInstance());
  EXPECT_TRUE(IsWindowVisible(titled) && !IsIconic(titled));
  EXPECT_TRUE(calls.Lines().empty()) << "it is no window of this program";

  const HWND window = ForeignWindow(kTitle, &ReplyToOffer);
  for (const bool enabled : {false, true}) {
    EnableWindow(window, enabled);
    EXPECT_FALSE(CSchemeManagerApp().InitInstance());
    EXPECT_EQ(calls.Lines().size(), enabled ? 1u : 0u) << "not one that a dialog has disabled";
  }
  EXPECT_EQ(g_offered, L"") << "without a file, nothing is asked or told";
  DestroyWindow(titled);
}

}  // namespace
