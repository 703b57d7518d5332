// The program's machine-wide settings, as the installer left them. Never written, never cached: each call
// reads the registry afresh (RegOpenKeyExA, RegQueryValueExA below HKEY_LOCAL_MACHINE). A value that is
// missing or longer than 259 characters is the empty text.
#pragma once

#include <string>

std::string GetFormatting();           // nothing reads the result today
std::string GetGifPath();              // nothing reads the result today
std::string GetIconPath();             // folder of icon files
std::string GetDefaultPictures();      // folder of the bitmaps that come with the product
std::string GetUserDefinedPictures();  // folder of bitmaps added by the school
std::string GetLocation();             // the program's own folder

// Opens the help file (ShellExecuteA). Where it does not exist, tells the user and answers false; true
// otherwise, whatever the shell says.
bool ShowHelp();
