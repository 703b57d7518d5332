// The schemes of this machine against those of a file, for diff and for an import that writes nothing.
#pragma once

#include "cli/options.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "schemefile/exchange.h"
#include "schemefile/scheme_comparison.h"

// Prints how the schemes of options.Schemes differ, or all of either side, but for those that are built in
// here where they are to be kept. kFound when some do, kNothingThere for a name that neither side has,
// kPartly when not all of a scheme could be read.
[[nodiscard]] ExitCode PrintDifferences(const SchemeCatalogue& catalogue, const SchemeHive& hive,
                                        const Options& options, Output& output);

// "Folder 1: Path: "C:\Old" -> "C:\New"".
std::string InOneLine(const Difference& difference);
