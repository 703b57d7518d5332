// The style and the font that the dialog templates share. A template adds WS_SYSMENU for a close box.
#pragma once

#define DIALOG_STYLE DS_SETFONT | DS_MODALFRAME | DS_CENTER | WS_POPUP | WS_CAPTION
#define PAGE_STYLE DS_SETFONT | WS_CHILD | WS_DISABLED | WS_CAPTION
#define DIALOG_FONT 8, "MS Sans Serif"
