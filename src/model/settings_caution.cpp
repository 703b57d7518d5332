#include "model/settings_caution.h"

#include <windows.h>

void ShowSettingsCaution(const std::string& keyPath) {
  const std::string text = "Caution: There has been a problem setting " + keyPath;
  MessageBoxA(GetActiveWindow(), text.c_str(), "Settings Problem", MB_OK);
}
