#pragma once

// Controls of the scheme selector.

#define IDC_SELECTOR_LIST 1128
