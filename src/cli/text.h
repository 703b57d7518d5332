// Text at the edge of the program: UTF-16 comes in, UTF-8 and UTF-16 go out, ANSI is what the core takes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The text in the ANSI code page. Nothing where that has no character for one of the text's
// (WideCharToMultiByte without its best fits).
std::optional<std::string> ToAnsi(const std::wstring& text);

// From UTF-16, and from the ANSI code page.
std::string ToUtf8(const std::wstring& text);
std::string ToUtf8(const std::string& ansi);

std::wstring WidenUtf8(std::string_view utf8);

// The text with a question mark for each control character, so that it fills one line and no more.
std::string OneLine(std::string text);
