// The copy of the program that runs already: a second one brings it to the front and has it open files
// (WM_COPYDATA).
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// Restores the window that bears the main window's title, and raises the uppermost window of another process
// of this program that takes input.
void BringRunningCopyToFront();

// What became of a file that was offered to the running copy. A window of an earlier version returns 0.
enum class OfferResult : LRESULT { kNotTaken = 0, kTaken, kBusy, kNotFound };

// Offers the file of that full path to the main window of the other copy, and waits a few seconds for its
// word.
OfferResult OfferFile(const std::wstring& path);

// The path that an offer is about. Nothing unless it comes from a window of another process of this program
// and is one text with its NUL, a full path of what Windows allows at most.
std::optional<std::wstring> OfferedPath(HWND sender, const COPYDATASTRUCT& offer);
