#include "cli/write_lock.h"

#include <sddl.h>

#include <algorithm>

namespace {

constexpr wchar_t kName[] = L"Global\\Kelvanstead Scheme Manager, command line";
constexpr DWORD kAccess = SYNCHRONIZE | MUTEX_MODIFY_STATE;
// Just that access for everybody: a mutex of the system's account would otherwise shut administrators out.
constexpr wchar_t kSecurity[] = L"D:(A;;0x100001;;;WD)";

UniqueFile OpenMutexForAll() {
  SECURITY_ATTRIBUTES security{sizeof(security), nullptr, FALSE};
  ConvertStringSecurityDescriptorToSecurityDescriptorW(kSecurity, SDDL_REVISION_1,
                                                       &security.lpSecurityDescriptor, nullptr);
  UniqueFile mutex(CreateMutexExW(&security, kName, 0, kAccess));
  LocalFree(security.lpSecurityDescriptor);
  return mutex;
}

}  // namespace

WriteLock::WriteLock(unsigned seconds) : mutex_(OpenMutexForAll()) {
  constexpr unsigned kMaxSeconds = 1'000'000;
  const DWORD result =
      mutex_ ? WaitForSingleObject(mutex_.Get(), std::min(seconds, kMaxSeconds) * 1000) : WAIT_FAILED;
  isHeld_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

WriteLock::~WriteLock() {
  if (isHeld_) ReleaseMutex(mutex_.Get());
}
