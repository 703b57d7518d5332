// Reading texts out of controls, whatever their length.
#pragma once

#include <windows.h>

#include <string>

// The whole text of a window (WM_GETTEXT).
std::string WindowText(HWND window);
// The text of an entry of a combo box, "" where there is none (CB_GETLBTEXT).
std::string ComboItemText(HWND combo, int index);
