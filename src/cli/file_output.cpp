#include "cli/file_output.h"

#include <windows.h>

#include <utility>

#include "base/names.h"
#include "cli/machine.h"
#include "cli/progress_line.h"
#include "schemefile/scheme_file.h"

namespace {

// From the root on, as Windows reads the path (GetFullPathNameA). "" for one that is too long.
std::string FullPath(const std::string& path) {
  char full[1024];
  const DWORD length = GetFullPathNameA(path.c_str(), sizeof(full), full, nullptr);
  return length < sizeof(full) ? std::string(full, length) : std::string();
}

// The folder that the file lies in. "" where the path names no file.
std::string FolderOf(const std::string& path) {
  const std::string full = FullPath(path);
  return full.ends_with('\\') ? "" : full.substr(0, full.rfind('\\') + 1);
}

}  // namespace

bool IsSameFile(const std::string& left, const std::string& right) {
  return IsSameName(FullPath(left), FullPath(right));
}

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
