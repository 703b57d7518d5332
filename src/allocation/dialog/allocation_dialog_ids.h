#pragma once

// Controls of the allocation dialog.

// Who gets which scheme.
#define IDC_ALLOCATION_GROUP 1147
#define IDC_ALLOCATION_HINT 1125
#define IDC_ALLOCATION_LIST 1124
#define IDC_ALLOCATION_CHANGE 1126

// The scheme of the current user.
#define IDC_CURRENT_USER_GROUP 1143
#define IDC_CURRENT_USER_EXPLANATION 1144
#define IDC_CURRENT_USER_LABEL 1145
#define IDC_CURRENT_USER_SCHEME 1023
#define IDC_CURRENT_USER_APPLY 1127
