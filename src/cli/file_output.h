// The schemes of this machine as a scheme file.
#pragma once

#include <string>
#include <vector>

#include "cli/options.h"
#include "registry/catalogue/scheme_catalogue.h"

// Whether both are the same path from the root on, whatever stands there. Other names of a file, by links or
// in short, are not seen through.
bool IsSamePath(const std::string& left, const std::string& right);

// "1 scheme", "2 schemes".
std::string Counted(std::size_t count, const std::string& what);

struct SaveResult {
  ExitCode Code = ExitCode::kDone;
  bool IsWhole = false;  // the file is there, and an import reads it whole
};

// Writes the schemes of those names, or all for no names, to a scheme file, byte for byte as the program with
// the windows does, and checks what it wrote. The old file stays until the new one is on the disk.
// kNothingThere for a name that is not there, kFile when the file cannot be written, kPartly when not all of
// a scheme could be read, nothing being written where the registry refused it, and when the file cannot be
// read whole: of a text with the byte that ends a field, an import sees two.
[[nodiscard]] SaveResult SaveSchemes(const SchemeCatalogue& catalogue, const std::vector<std::string>& names,
                                     const std::string& path, const Options& options, Output& output);
