#include "helper/helper_setting.h"

#include <windows.h>

#include <algorithm>

#include "registry/registry_access.h"
#include "registry/registry_paths.h"

namespace {

constexpr char kAgentPath[] = "msAgent Path";
constexpr std::size_t kExtensionLength = 4;  // ".acs"

// A path without any folder loses its first letter; the shell's settings always have one.
std::string NameInPath(const std::string& path) {
  if (path.size() <= kExtensionLength) return "";
  const std::string stem = path.substr(0, path.size() - kExtensionLength);
  const std::size_t separator = stem.rfind('\\');
  return stem.substr(separator == std::string::npos ? 1 : separator + 1);
}

}  // namespace

std::string ReadHelperPath() { return ReadText(HKEY_LOCAL_MACHINE, kSettingsKey, kAgentPath); }

std::optional<std::size_t> HelperOfPath(const std::string& path) {
  const auto found = std::find(kHelperNames.begin(), kHelperNames.end(), NameInPath(path));
  if (found == kHelperNames.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kHelperNames.begin());
}

std::string HelperPath(const std::string& windowsFolder, std::size_t helper) {
  return windowsFolder + "\\msagent\\chars\\" + kHelperNames.at(helper) + ".acs";
}

WriteResult WriteHelper(const std::string& windowsFolder, std::size_t helper) {
  const std::string path = HelperPath(windowsFolder, helper);
  UniqueKey key;
  LSTATUS status = OpenKey(HKEY_LOCAL_MACHINE, kSettingsKey, KEY_WRITE, key);
  // The size leaves the terminating NUL out, as it always has; the system adds it where the text has one.
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExA(key.Get(), kAgentPath, 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                            static_cast<DWORD>(path.size()));
  }
  return ResultOf(status);
}
