#pragma once

// Controls of the helper chooser.

#define IDC_HELPER_PEEDY 1141
#define IDC_HELPER_MERLIN 1144
#define IDC_HELPER_ROBBY 1143
#define IDC_HELPER_GENIE 1145
#define IDC_HELPER_SELECTED_LABEL 1122
#define IDC_HELPER_SELECTED 1142
