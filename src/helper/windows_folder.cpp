#include "helper/windows_folder.h"

namespace {

constexpr int kWindowsFolder = 0x24;  // CSIDL_WINDOWS

HMODULE g_library = nullptr;

GetFolderPathFunction LoadFrom(const char* library) {
  g_library = LoadLibraryA(library);
  if (!g_library) return nullptr;
  return reinterpret_cast<GetFolderPathFunction>(
      reinterpret_cast<void*>(GetProcAddress(g_library, "SHGetFolderPathA")));
}

}  // namespace

GetFolderPathFunction GetFolderPathProc() {
  if (!g_library) {
    if (const auto function = LoadFrom("Shell32.dll")) return function;
  }
  if (g_library) FreeLibrary(g_library);
  return LoadFrom("SHFolder.dll");
}

std::string WindowsFolder() {
  const GetFolderPathFunction getFolderPath = GetFolderPathProc();
  if (!getFolderPath) return "";
  char folder[MAX_PATH] = "";
  return getFolderPath(nullptr, kWindowsFolder, nullptr, 0, folder) == S_OK ? folder : "C:\\Windows";
}
