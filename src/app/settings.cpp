#include "app/settings.h"

#include <windows.h>

#include <io.h>
#include <shellapi.h>

#include "base/com_apartment.h"
#include "controls/message.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"

namespace {

// Two different keys, with and without the blank; installers wrote some values to the one, some to the other.
constexpr char kProgramKey[] = "Software\\Tessaly\\KelvansteadScheme Manager";
constexpr char kLocationKey[] = "Software\\Tessaly\\Kelvanstead Scheme Manager";

bool Exists(const std::string& path) { return _access(path.c_str(), 0) == 0; }

// The path of a file in the folder of another.
std::string PathBeside(const std::string& path, const char* name) {
  return path.substr(0, path.find_last_of("\\/") + 1) + name;
}

}  // namespace

std::string GetFormatting() { return ReadText(HKEY_LOCAL_MACHINE, kProgramKey, "Formatting"); }
std::string GetGifPath() { return ReadText(HKEY_LOCAL_MACHINE, kProgramKey, "GifPath"); }
std::string GetIconPath() { return ReadText(HKEY_LOCAL_MACHINE, kProgramKey, "IconPath"); }
std::string GetDefaultPictures() { return ReadText(HKEY_LOCAL_MACHINE, kSettingsKey, "Default Pictures"); }
std::string GetUserDefinedPictures() {
  return ReadText(HKEY_LOCAL_MACHINE, kSettingsKey, "User Defined Pictures");
}
std::string GetLocation() { return ReadText(HKEY_LOCAL_MACHINE, kLocationKey, "Location"); }

bool ShowHelp(const char* page) {
  std::string path = ReadText(HKEY_LOCAL_MACHINE, kProgramKey, "HelpPath");
  if (!Exists(path)) {
    // The sound of a warning with the icon of an information: so it has always been.
    MessageBeep(MB_ICONEXCLAMATION);
    ShowMessage(nullptr,
                "There has been a problem locating the correct help file.\n"
                "It is recommended you inform your system administrator\n"
                "of this error",
                "Help Problem", MB_ICONINFORMATION);
    return false;
  }
  const std::string pagePath = page ? PathBeside(path, page) : path;
  if (Exists(pagePath)) path = pagePath;
  const ComApartment apartment;  // the shell may hand the file to a component
  ShellExecuteA(nullptr, "open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return true;
}
