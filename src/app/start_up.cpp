#include "app/start_up.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "app/catalogue_messages.h"
#include "app/main_dialog.h"
#include "app/settings.h"
#include "base/program_processes.h"
#include "base/unique_handle.h"
#include "controls/message.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "registry/policy.h"

namespace {

constexpr char kMainWindowTitle[] = "Kelvanstead Scheme Manager";

struct WindowSearch {
  std::vector<DWORD> Processes;
  HWND Found;
};

BOOL CALLBACK FindWindowThatTakesInput(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<WindowSearch*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const bool takesInput = IsWindowVisible(window) && IsWindowEnabled(window) &&
                          (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
  if (takesInput && std::ranges::count(search.Processes, process)) search.Found = window;
  return search.Found == nullptr;
}

// The uppermost window of another process of this program that takes input: a dialog rather than the window
// that it disables.
HWND FindWindowToRaise() {
  WindowSearch search{ProgramProcesses(), nullptr};
  std::erase(search.Processes, GetCurrentProcessId());
  EnumWindows(&FindWindowThatTakesInput, reinterpret_cast<LPARAM>(&search));
  return search.Found;
}

// Restoring does not raise a window that is not minimised. And the window of that title may be another
// program's, the folder of this one for instance.
void BringMainWindowToFront() {
  if (const HWND titled = FindWindowExA(nullptr, nullptr, nullptr, kMainWindowTitle))
    ShowWindow(titled, SW_RESTORE);
  if (const HWND window = FindWindowToRaise()) SetForegroundWindow(window);
}

}  // namespace

bool CSchemeManagerApp::InitInstance() {
  if (IsAlreadyRunning()) {
    BringMainWindowToFront();
    return false;
  }
  // The schemes come before the policy: a locked user on a machine without schemes is told of the schemes.
  if (!SchemesPresent() || !PolicyAllows() || !BitmapsAvailable()) return false;
  CopyDefaultBitmaps();
  CMainDialog().DoModal(nullptr);
  return false;
}

// This copy counts itself.
bool CSchemeManagerApp::IsAlreadyRunning() { return ProgramProcesses().size() > 1; }

bool CSchemeManagerApp::SchemesPresent() {
  constexpr std::size_t kOneIsEnough = 1;
  SchemeCatalogue catalogue;
  LoadCatalogueOrEnd(catalogue, kOneIsEnough);
  if (!catalogue.Schemes().empty()) return true;
  ShowMessage(nullptr,
              "There are no Kelvanstead Schemes on this machine\n\r"
              "so Kelvanstead Scheme Manager cannot run.\n\r\n\r"
              "Please reinstall Kelvanstead.",
              "No Schemes Found");
  return false;
}

bool CSchemeManagerApp::PolicyAllows() {
  if (!IsLockedByPolicy()) return true;
  ShowMessage(nullptr, "Kelvanstead Scheme Manager cannot be used by pupils.", "Access Denied");
  return false;
}

bool CSchemeManagerApp::BitmapsAvailable() {
  SetCurrentDirectoryA(GetDefaultPictures().c_str());
  WIN32_FIND_DATAA found{};
  if (UniqueFind(FindFirstFileA("*.bmp", &found))) return true;
  ShowMessage(nullptr,
              "There are no bitmaps available for the Scheme Manager.\n\r"
              "Please reinstall Kelvanstead.",
              "Unable to Run");
  return false;
}

void CSchemeManagerApp::CopyDefaultBitmaps() {
  const std::string target = GetDefaultPictures() + "\\";
  const std::string source = GetLocation() + "\\";
  for (const char* name : {"Closed Folder.bmp", "On-Line Resources.bmp"}) {
    const UniqueFile existing(
        CreateFileA((target + name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!existing) CopyFileA((source + name).c_str(), (target + name).c_str(), TRUE);
  }
}
