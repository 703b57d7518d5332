#pragma once

// Numbers of the icon and bitmap resources.

#define IDI_APP 100
#define IDI_SCHEME 186
#define IDI_BUILT_IN_SCHEME 187
#define IDI_HELP 188
#define IDI_ALLOCATE 225
#define IDI_HELPER 226

// Rows of the allocation list, 16 by 16 pixels.
#define IDB_CLASS 209
#define IDB_USER 210
#define IDB_USER_GROUP 211

// The shell's tabs, 32 by 32 pixels.
#define IDB_TAB_LINKS 220
#define IDB_TAB_PROGRAMS 221
#define IDB_TAB_FILES 224

// Helper characters, 96 by 96 pixels. Every bitmap stands on magenta, RGB(255, 0, 255).
#define IDB_MERLIN 228
#define IDB_PEEDY 229
#define IDB_ROBBY 230
#define IDB_ROBBY_SELECTED 231
#define IDB_MERLIN_SELECTED 232
#define IDB_PEEDY_SELECTED 233
#define IDB_GENIE_SELECTED 234
#define IDB_GENIE 235
