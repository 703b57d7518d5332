#include "model/settings_caution.h"

#include <windows.h>

#include "controls/message.h"

void ShowSettingsCaution(const std::string& keyPath) {
  ShowMessage(GetActiveWindow(), "Caution: There has been a problem setting " + keyPath, "Settings Problem");
}
