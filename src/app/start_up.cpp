#include "app/start_up.h"

#include <windows.h>

#include <cstddef>
#include <string>

#include "app/catalogue_messages.h"
#include "app/exchange_work.h"
#include "app/main_dialog.h"
#include "app/running_copy.h"
#include "app/settings.h"
#include "base/program_processes.h"
#include "base/unique_handle.h"
#include "controls/message.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "registry/policy.h"

namespace {

constexpr char kTitle[] = "Load Schemes";

// The other copy has been brought to the front, so a message must ask for its place there.
void ShowOfferResult(OfferResult result) {
  switch (result) {
    case OfferResult::kTaken:
      return;
    case OfferResult::kNotFound:
      return ShowEnding(nullptr, Ending::kReadProblem);
    case OfferResult::kBusy:
      ShowWarning(nullptr,
                  "Kelvanstead Scheme Manager is open, and one of its windows waits for you.\n"
                  "Please close that window, then open the file again.",
                  kTitle, MB_OK | MB_SETFOREGROUND);
      return;
    default:
      ShowWarning(nullptr,
                  "Kelvanstead Scheme Manager is open already, but cannot be asked to open this file.\n"
                  "Please close it, then open the file again.",
                  kTitle, MB_OK | MB_SETFOREGROUND);
  }
}

}  // namespace

bool CSchemeManagerApp::InitInstance() {
  if (IsAlreadyRunning()) {
    BringRunningCopyToFront();
    if (!file_.empty()) ShowOfferResult(OfferFile(file_));
    return false;
  }
  // The schemes come before the policy: a locked user on a machine without schemes is told of the schemes.
  if (!SchemesPresent() || !PolicyAllows() || !BitmapsAvailable()) return false;
  CopyDefaultBitmaps();
  CMainDialog(file_).DoModal(nullptr);
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
