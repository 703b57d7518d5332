// Numbers of dialogs and menus. Pictures have theirs in picture_ids.h; the controls of a dialog have theirs
// beside the dialog, since the same number may mean different things on different dialogs.
#pragma once

#define IDD_ABOUT 100
#define IDD_MAIN 102
#define IDD_LOAD_SCHEMES 103
#define IDD_SCHEME_CREATION 106
#define IDD_GENERAL_PAGE 107
#define IDD_ITEM_LIST_PAGE 108
#define IDD_ROOT_PROPERTIES 160
#define IDD_ICON_PICKER 161
#define IDD_ALLOCATION 165
#define IDD_SCHEME_SELECTOR 166
#define IDD_WEB_LINK 168
#define IDD_HELPER_CHOOSER 170
#define IDD_SCHEME_NAME_PROBLEM 180
#define IDD_PROGRESS 182

#define IDM_HELP_MENU 190

// Controls that no code speaks to.
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
