// The commands that create, edit and delete schemes. They ask the user what is to be known, in the property
// sheet or a message box, and change the catalogue; nothing is written before the user has confirmed.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

#include "editor/pictures.h"
#include "registry/catalogue/scheme_catalogue.h"

// Edits the scheme at `index` of the catalogue (SchemeCatalogue::Replace). Refused with a message: a built-in
// scheme, one that cannot be told apart from another, and one that the registry does not give. A failed write
// is told. Returns the name under which the scheme is listed now when the user confirmed.
std::optional<std::string> EditScheme(HWND owner, SchemeCatalogue& catalogue, std::size_t index,
                                      const PictureFolders& folders);

// Creates a scheme as a copy of another (SchemeCatalogue::Append), whose failed writes are not told. Refused
// with a message when the registry does not give the other one. `selectedScheme` is offered first as the one
// to copy; it may be "". Returns the name of the new scheme when the user confirmed.
std::optional<std::string> CreateScheme(HWND owner, SchemeCatalogue& catalogue,
                                        const std::string& selectedScheme, const PictureFolders& folders);

// Deletes the scheme of that name with its allocations (SchemeCatalogue::Remove) once the user has confirmed.
// Refused with a message: a blank name, a built-in scheme, and one that cannot be told apart from another.
// What the registry refuses to delete is not told: the list, loaded again, shows it. Returns whether anything
// may have changed.
bool DeleteScheme(HWND owner, SchemeCatalogue& catalogue, const std::string& name);
