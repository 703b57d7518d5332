#include "support/watchdog.h"

#include <windows.h>

#include <cstdio>

#include "base/unique_handle.h"

namespace Watchdog {
namespace {

constexpr DWORD kPatienceMs = 60'000;
constexpr UINT kHungExitCode = 99;

HANDLE FedEvent() {
  static const UniqueHandle<HANDLE, &CloseHandle> event(CreateEventA(nullptr, FALSE, FALSE, nullptr));
  return event.Get();
}

DWORD WINAPI Watch(void*) {
  while (WaitForSingleObject(FedEvent(), kPatienceMs) == WAIT_OBJECT_0) {
  }
  std::puts("[  HUNG    ] no test and no dialog for a minute");
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), kHungExitCode);
  return 0;
}

}  // namespace

void Start() { CloseHandle(CreateThread(nullptr, 0, &Watch, nullptr, 0, nullptr)); }
void Feed() { SetEvent(FedEvent()); }

}  // namespace Watchdog
