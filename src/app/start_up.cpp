#include "app/start_up.h"

#include <windows.h>
#include <tlhelp32.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "app/main_dialog.h"
#include "app/settings.h"
#include "base/unique_handle.h"
#include "controls/message.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "registry/registry_access.h"

namespace {

constexpr char kMainWindowTitle[] = "Kelvanstead Scheme Manager";
constexpr char kPolicyKey[] = "Software\\Policies\\Tessaly\\Kelvanstead Scheme Manager";

// The executable names under which snapshots of the various Windows versions list the program.
constexpr const char* kProcessNames[] = {
    "Kelvanstead Scheme Manager",
    "Kelvanstead Scheme Manager.",
    "Kelvanstead Scheme Manager.exe",
    "C:\\Program Files\\Tessaly\\Kelvanstead Scheme Manager\\Kelvanstead Scheme Manager.exe",
};

bool IsThisProgram(const PROCESSENTRY32& process) {
  const UniqueProcess opened(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process.th32ProcessID));
  return opened &&
         std::any_of(std::begin(kProcessNames), std::end(kProcessNames),
                     [&process](const char* name) { return lstrcmpiA(process.szExeFile, name) == 0; });
}

void BringMainWindowToFront() {
  const HWND window = FindWindowExA(nullptr, nullptr, nullptr, kMainWindowTitle);
  if (!window) return;
  ShowWindow(window, SW_RESTORE);
  // Restoring does not raise a window that is not minimised. What its user works in may be a dialog above it.
  SetForegroundWindow(GetLastActivePopup(window));
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

bool CSchemeManagerApp::IsAlreadyRunning() {
  const UniqueFile snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snapshot) return false;
  int copies = 0;
  PROCESSENTRY32 process{};
  process.dwSize = sizeof(process);
  for (BOOL more = Process32First(snapshot.Get(), &process); more;
       more = Process32Next(snapshot.Get(), &process)) {
    if (IsThisProgram(process)) ++copies;
  }
  return copies > 1;  // this copy counts itself
}

bool CSchemeManagerApp::SchemesPresent() {
  SchemeCatalogue catalogue;
  catalogue.LoadCatalogue(false);
  if (!catalogue.Schemes.empty()) return true;
  ShowMessage(nullptr,
              "There are no Kelvanstead Schemes on this machine\n\r"
              "so Kelvanstead Scheme Manager cannot run.\n\r\n\r"
              "Please reinstall Kelvanstead.",
              "No Schemes Found");
  return false;
}

bool CSchemeManagerApp::PolicyAllows() {
  DWORD lock = 0;
  if (const UniqueKey key = OpenKey(HKEY_CURRENT_USER, kPolicyKey, KEY_READ)) {
    // Any type counts, by its raw bytes. Longer data fails the query, which allows.
    DWORD size = sizeof(lock);
    if (RegQueryValueExA(key.Get(), "Lock", nullptr, nullptr, reinterpret_cast<BYTE*>(&lock), &size) !=
        ERROR_SUCCESS) {
      lock = 0;
    }
  }
  if (lock == 0) return true;
  ShowMessage(nullptr, "Kelvanstead Scheme Manager cannot be used by pupils.", "Access Denied");
  return false;
}

bool CSchemeManagerApp::BitmapsAvailable() {
  SetCurrentDirectoryA(GetDefaultPictures().c_str());
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA("*.bmp", &found);
  if (search != INVALID_HANDLE_VALUE) {
    FindClose(search);
    return true;
  }
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
