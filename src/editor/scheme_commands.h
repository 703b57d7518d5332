// The commands that create and edit schemes. They show the sheet, settle the scheme's name and write to the
// registry; nothing is written before the user has confirmed.
//
// A scheme's value below the Schemes key holds its description and is its entry in the config hive as well;
// both commands keep the catalogue's schemes and its hive in step with it. A failed write is not reported,
// but the catalogue is loaded afresh, so that it shows what the registry holds.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

#include "editor/pictures.h"
#include "registry/catalogue/scheme_catalogue.h"

// Edits the scheme at `index` of the catalogue; a built-in one is refused with a message. True when the user
// confirmed: then catalogue.Schemes[index] is the edited scheme, unless the catalogue was loaded afresh.
//
// The value of the old name is replaced by one of the new name only if it could be deleted
// (RegDeleteValueA). On a change of the name the key of the old one stays behind, with the sections that the
// editor does not know and the allocations.
bool EditScheme(HWND owner, SchemeCatalogue& catalogue, std::size_t index, const PictureFolders& folders);

// Creates a scheme as a copy of another and appends it to the catalogue. Answers its name when the user
// confirmed. `selectedScheme` is offered first as the one to copy; it may be "".
std::optional<std::string> CreateScheme(HWND owner, SchemeCatalogue& catalogue,
                                        const std::string& selectedScheme, const PictureFolders& folders);
