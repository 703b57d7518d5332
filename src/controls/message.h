// Message boxes in the two shapes that the program uses.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

// The longest text that a message box is given, in characters: its window would grow beyond the largest that
// there is. Who lists names ends the list in time; a longer text is cut.
inline constexpr std::size_t kMaxMessageLength = 32'000;

// MessageBoxW, as the ANSI call fails on a text of more than 32,767 characters. `owner` may be null: then
// every window of the program waits for the answer, so that no command starts inside another. `style` is any
// combination of MB_ flags. Returns the button's id.
int ShowMessage(HWND owner, const std::string& text, const char* title, UINT style = MB_OK);

// Sounds the exclamation beep, then shows a message with the exclamation icon and, unless `buttons` says
// otherwise, an OK button.
int ShowWarning(HWND owner, const std::string& text, const char* title, UINT buttons = MB_OK);
