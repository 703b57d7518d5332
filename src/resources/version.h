// The one place of the version number, for code and resources.
#pragma once

#define VERSION_NUMBERS 2, 28, 0, 0
#define VERSION_TEXT "2.28.0.0"
