// The one place of the version number and the publisher, for code, resources and the package.
#pragma once

#define VERSION_NUMBERS 2, 28, 0, 0
#define VERSION_TEXT "2.28.0.0"
#define PUBLISHER_TEXT "Tessaly"
