// Binds the rules of text_rules.h to edit controls.
#pragma once

#include <windows.h>

#include <string>

#include "controls/window_text.h"
#include "editor/text_rules.h"

// Corrects the text of an edit control by its rule and tells the user of each correction in a message box
// owned by `dialog`, in the order that the rule gives. The caret is put back to where the user was typing.
// For EN_CHANGE: the notifications that putting the text back raises are expected and passed over here, so
// a caller that keeps the text reads it after this call.
void ApplyTextRule(HWND dialog, int controlId, const TextRule& rule);

// A row of a dialog's table of text fields: the edit control, the member that it edits, and its rule.
template <class Item>
struct TextField {
  int Id;
  std::string Item::*Member;
  const TextRule& Rule;
};

// The rows of such a table: from the item to the controls, back, and for EN_CHANGE of the control `id`.
template <class Item, class Fields>
void ShowTextFields(HWND dialog, const Fields& fields, const Item& item) {
  for (const TextField<Item>& field : fields)
    SetDlgItemTextA(dialog, field.Id, (item.*field.Member).c_str());
}

template <class Item, class Fields>
void ReadTextFields(HWND dialog, const Fields& fields, Item& item) {
  for (const TextField<Item>& field : fields)
    item.*field.Member = WindowText(GetDlgItem(dialog, field.Id));
}

template <class Fields>
void ApplyTextRules(HWND dialog, const Fields& fields, int id) {
  for (const auto& field : fields)
    if (field.Id == id) ApplyTextRule(dialog, id, field.Rule);
}

// Whether a URL may be accepted; if not, has said why, in a box without an owner.
bool CheckUrl(const std::string& url);
