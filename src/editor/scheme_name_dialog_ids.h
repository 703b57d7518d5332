#pragma once

#define IDC_NEW_SCHEME_NAME 1101
