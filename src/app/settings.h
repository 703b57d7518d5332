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

// Opens a page of the help: the file of that name beside the help file, or the help file itself where there
// is none or `page` is null (ShellExecuteA). Where the help file does not exist, tells the user and returns
// false; true otherwise, whatever the shell says.
bool ShowHelp(const char* page = nullptr);
