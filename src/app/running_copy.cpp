#include "app/running_copy.h"

#include <shlwapi.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "base/program_processes.h"
#include "base/unique_handle.h"
#include "controls/callback.h"
#include "controls/window_text.h"

namespace {

constexpr char kMainWindowTitle[] = "Kelvanstead Scheme Manager";

constexpr ULONG_PTR kOpenFile = 0x4B534601;  // the kind of offer
constexpr std::size_t kMaxPathLength = 32'767;
constexpr UINT kPatience = 5'000;  // milliseconds

using UniqueWindow = UniqueHandle<HWND, &DestroyWindow>;

std::vector<DWORD> OtherProcesses() {
  std::vector<DWORD> processes = ProgramProcesses();
  std::erase(processes, GetCurrentProcessId());
  return processes;
}

bool BelongsTo(HWND window, const std::vector<DWORD>& processes) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return std::ranges::count(processes, process) > 0;
}

struct WindowSearch {
  const std::vector<DWORD> Processes;
  bool (*IsWanted)(HWND);
  HWND Found;
};

BOOL CALLBACK Examine(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<WindowSearch*>(parameter);
  return GuardCallback(TRUE, [&] {
    if (search.IsWanted(window) && BelongsTo(window, search.Processes)) search.Found = window;
    return search.Found == nullptr;
  });
}

// The uppermost such window of another copy.
HWND FindWindowOfOtherCopy(bool (*isWanted)(HWND)) {
  WindowSearch search{OtherProcesses(), isWanted, nullptr};
  EnumWindows(&Examine, reinterpret_cast<LPARAM>(&search));
  return search.Found;
}

// A dialog rather than the window that it disables.
bool TakesInput(HWND window) {
  return IsWindowVisible(window) && IsWindowEnabled(window) &&
         (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

// A progress window has the same title, and an owner.
bool IsMainWindow(HWND window) {
  return !GetWindow(window, GW_OWNER) && WindowText(window) == kMainWindowTitle;
}

}  // namespace

// Restoring does not raise a window that is not minimised. And the window of that title may be another
// program's, the folder of this one for instance.
void BringRunningCopyToFront() {
  if (const HWND titled = FindWindowExA(nullptr, nullptr, nullptr, kMainWindowTitle))
    ShowWindow(titled, SW_RESTORE);
  const HWND window = FindWindowOfOtherCopy(&TakesInput);
  if (!window) return;
  if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
  SetForegroundWindow(window);
}

OfferResult OfferFile(const std::wstring& path) {
  const HWND mainWindow = FindWindowOfOtherCopy(&IsMainWindow);
  // The other copy knows by its sender whose the offer is.
  const UniqueWindow sender(
      CreateWindowA("Static", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  if (!mainWindow || !sender) return OfferResult::kNotTaken;
  const COPYDATASTRUCT offer{kOpenFile, static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)),
                             const_cast<wchar_t*>(path.c_str())};
  DWORD_PTR result = 0;
  SendMessageTimeoutA(mainWindow, WM_COPYDATA, reinterpret_cast<WPARAM>(sender.Get()),
                      reinterpret_cast<LPARAM>(&offer), SMTO_ABORTIFHUNG, kPatience, &result);
  return static_cast<OfferResult>(result);
}

std::optional<std::wstring> OfferedPath(HWND sender, const COPYDATASTRUCT& offer) {
  const std::size_t length = offer.cbData / sizeof(wchar_t);
  if (offer.dwData != kOpenFile || offer.cbData % sizeof(wchar_t) != 0 || length > kMaxPathLength + 1)
    return std::nullopt;
  std::wstring path(static_cast<const wchar_t*>(offer.lpData), length);
  if (path.find(L'\0') != path.size() - 1) return std::nullopt;
  path.pop_back();
  if (PathIsRelativeW(path.c_str()) || !BelongsTo(sender, OtherProcesses())) return std::nullopt;
  return path;
}
