// Binds the rules of text_rules.h to edit controls.
#pragma once

#include <windows.h>

#include <string>

#include "editor/text_rules.h"

// Corrects the text of an edit control by its rule and tells the user of each correction in a message box
// owned by `dialog`, in the order that the rule gives. The caret is put back to where the user was typing.
// For EN_CHANGE: the notifications that putting the text back raises are expected and passed over here, so
// a caller that keeps the text reads it after this call.
void ApplyTextRule(HWND dialog, int controlId, const TextRule& rule);

// Whether a URL may be accepted; if not, has said why, in a box without an owner.
bool CheckUrl(const std::string& url);
