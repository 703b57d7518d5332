// Message boxes in the two shapes that the program uses.
#pragma once

#include <windows.h>

#include <string>

// MessageBoxA. `owner` may be null: then every window of the program waits for the answer, so that no command
// starts inside another. `style` is any combination of MB_ flags. Answers the button's id.
int ShowMessage(HWND owner, const std::string& text, const char* title, UINT style = MB_OK);

// Sounds the exclamation beep, then shows a message with the exclamation icon and, unless `buttons` says
// otherwise, an OK button.
int ShowWarning(HWND owner, const std::string& text, const char* title, UINT buttons = MB_OK);
