// What the transcripts need and no command of the system does.
//
//   guard rights KEY RIGHTS   leaves everybody just these rights to the key of HKEY_LOCAL_MACHINE and what is
//                             below it ("KR" to read it, "KA" all; SDDL)
//   guard hold MUTEX          holds the mutex until standard input ends; prints a line as soon as it does
#include <windows.h>

#include <sddl.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

LSTATUS SetRights(const char* path, const char* rights) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (!ConvertStringSecurityDescriptorToSecurityDescriptorA(
          (std::string("D:P(A;CI;") + rights + ";;;WD)").c_str(), SDDL_REVISION_1, &descriptor, nullptr)) {
    return static_cast<LSTATUS>(GetLastError());
  }
  HKEY key = nullptr;
  const LSTATUS opened = RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, WRITE_DAC, &key);
  return opened != ERROR_SUCCESS ? opened : RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor);
}

int Hold(const char* mutex) {
  if (WaitForSingleObject(CreateMutexA(nullptr, FALSE, mutex), 0) != WAIT_OBJECT_0) return 1;
  std::puts("held");
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count == 4 && !std::strcmp(arguments[1], "rights")) return SetRights(arguments[2], arguments[3]);
  if (count == 3 && !std::strcmp(arguments[1], "hold")) return Hold(arguments[2]);
  return 2;
}
