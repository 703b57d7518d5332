// What the program asks of list views in report or icon view, as functions over the list's window.
#pragma once

#include <windows.h>

#include <string>

// Columns and rows go in at the given place. `text` is copied unless it is LPSTR_TEXTCALLBACKA; `image` is an
// index of the list's image list, I_IMAGECALLBACK or I_IMAGENONE (LVM_INSERTCOLUMNA, LVM_INSERTITEMA,
// LVM_SETITEMTEXTA).
void InsertListColumn(HWND list, int index, const char* title, int width);
void InsertListRow(HWND list, int row, const char* text, int image, LPARAM data = 0);
void SetListCell(HWND list, int row, int column, const char* text);

// Gives a column the width that the others leave in the list, less the scroll bar where there is one; a
// little where they leave none (LVM_SETCOLUMNWIDTH).
void StretchListColumn(HWND list, int column);

// The text of a cell, "" where there is none. Cut at 64 KiB (LVM_GETITEMTEXTA).
std::string ListCellText(HWND list, int row, int column);

// The first selected row, or -1.
int SelectedRow(HWND list);
// Selects a row, gives it the keyboard's place and brings it into view.
void SelectRow(HWND list, int row);
// Gives the first row the keyboard's place without selecting it, so that the arrow keys have a start.
void FocusFirstRow(HWND list);
