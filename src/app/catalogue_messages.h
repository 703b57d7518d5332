// What the user is told of the catalogue of schemes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "registry/catalogue/scheme_catalogue.h"

// Says that the shell's settings are missing or damaged, and ends the process with exit code 0.
[[noreturn]] void EndWithoutSchemes();

// SchemeCatalogue::LoadCatalogue. Where the Schemes key is missing, ends the program (EndWithoutSchemes).
void LoadCatalogueOrEnd(SchemeCatalogue& catalogue, std::size_t maxSchemes = SIZE_MAX);

// The names with commas between them, a NUL in one as "?"; of very many, the first and how many more there
// are.
std::string JoinNames(const std::vector<std::string>& names);

// Names the schemes of the catalogue that could not be read, in one message; none where there are none. Of
// very many it names the first and tells how many more there are.
void ReportUnreadableSchemes(const SchemeCatalogue& catalogue);
