#include "cli/file_output.h"

#include <windows.h>

#include <utility>

#include "cli/machine.h"
#include "cli/progress_line.h"
#include "schemefile/scheme_file.h"

namespace {

// The folder that the file lies in (GetFullPathNameA). "" where the path names no file.
std::string FolderOf(const std::string& path) {
  char full[1024];
  char* name = nullptr;
  const DWORD length = GetFullPathNameA(path.c_str(), sizeof(full), full, &name);
  if (length == 0 || length >= sizeof(full) || !name) return {};
  return {full, name};
}

}  // namespace

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

SaveResult SaveSchemes(const SchemeCatalogue& catalogue, const std::vector<std::string>& names,
                       const std::string& path, const Options& options, Output& output) {
  const auto chosen = ChooseSchemes(catalogue, names, output);
  if (!chosen) return {ExitCode::kNothingThere};
  ReadResult read = ReadFromRegistry(catalogue, *chosen, options, output);
  if (read.Refused) {
    output.Problem(path, "Nothing was written: not all could be read");
    return {ExitCode::kPartly};
  }
  SchemeHive hive;
  hive.Config.Entries = *chosen;
  hive.Schemes = std::move(read.Schemes);
  SchemeFile file;
  file.Save(hive, {});
  if (!file.Write(FolderOf(path), path)) {
    output.Problem(path, "This file cannot be written");
    return {ExitCode::kFile};
  }
  if (!options.Quiet) output.Print("Saved " + Counted(chosen->size(), "scheme") + " to " + path);
  return {read.Code, true};
}
