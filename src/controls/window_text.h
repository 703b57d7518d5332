// Reading texts and selections out of controls, whatever their length.
#pragma once

#include <windows.h>

#include <string>

// The whole text of a window (WM_GETTEXT).
std::string WindowText(HWND window);
// The text of an entry of a combo box, "" where there is none (CB_GETLBTEXT).
std::string ComboItemText(HWND combo, int index);
// The text of a cell of a list view, "" where there is none (LVM_GETITEMTEXTA). Cut at 64 KiB.
std::string ListCellText(HWND listView, int row, int column);
// The first selected row of a list view, or -1.
int SelectedRow(HWND listView);
