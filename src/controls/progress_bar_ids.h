#pragma once

// Controls of the progress window. The button is IDCANCEL.
#define IDC_PROGRESS_TEXT 1001
#define IDC_PROGRESS_BAR 1002
