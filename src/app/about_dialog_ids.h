#pragma once

#define IDC_ABOUT_VERSION 1001
