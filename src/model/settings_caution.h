#pragma once

#include <string>

// Tells the user that `keyPath` could not be written because the key that guards it is missing. The only
// message of the model: the save that meets it goes on with its next section.
void ShowSettingsCaution(const std::string& keyPath);
