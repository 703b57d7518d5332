#pragma once

#include <functional>
#include <string>

// Told of each key that is not written because the key that guards it is missing. The save goes on with what
// comes next. May be empty.
using SettingsCaution = std::function<void(const std::string& keyPath)>;
