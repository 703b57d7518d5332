#include "cli/file_output.h"

#include <windows.h>

#include <utility>

#include "base/names.h"
#include "cli/file_input.h"
#include "cli/machine.h"
#include "cli/progress_line.h"
#include "schemefile/scheme_file.h"

namespace {

// A path from the root on, as Windows reads it (GetFullPathNameA).
struct FullPath {
  explicit FullPath(const std::string& path)
      : Text(GetFullPathNameA(path.c_str(), 0, nullptr, nullptr), '\0') {
    char* name = nullptr;
    Text.resize(GetFullPathNameA(path.c_str(), static_cast<DWORD>(Text.size()), Text.data(), &name));
    if (name) Folder = Text.substr(0, static_cast<std::size_t>(name - Text.data()));
  }
  std::string Text;
  std::string Folder;  // with the backslash; "" where the path names no file
};

// Writes the file. The memory for it is free again when this returns.
SaveResult Write(std::vector<SchemeEntry> entries, const SchemeCatalogue& catalogue, const std::string& path,
                 const Options& options, Output& output) {
  ReadResult read = ReadFromRegistry(catalogue, entries, options, output);
  if (read.Refused) {
    output.Problem(path, "Nothing was written: not all could be read");
    return {ExitCode::kPartly};
  }
  SchemeHive hive;
  hive.Config.Entries = std::move(entries);
  hive.Schemes = std::move(read.Schemes);
  SchemeFile file;
  file.Save(hive, {});
  if (file.Write(FullPath(path).Folder, path)) return {read.Code, true};
  output.Problem(path, "This file cannot be written");
  return {ExitCode::kFile};
}

bool CanBeReadAgain(const std::string& path, Output& output) {
  RecordList records;
  CheckResult check;
  if (ReadAndCheck(path, records, check, output) != ExitCode::kDone) return false;
  if (check.IsWhole()) return true;
  output.Problem(path, "This file was saved, but cannot be read whole; \"ksm check\" tells where");
  return false;
}

}  // namespace

bool IsSamePath(const std::string& left, const std::string& right) {
  return IsSameName(FullPath(left).Text, FullPath(right).Text);
}

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

SaveResult SaveSchemes(const SchemeCatalogue& catalogue, const std::vector<std::string>& names,
                       const std::string& path, const Options& options, Output& output) {
  const auto chosen = ChooseSchemes(catalogue, names, output);
  if (!chosen) return {ExitCode::kNothingThere};
  const SaveResult written = Write(*chosen, catalogue, path, options, output);
  if (!written.IsWhole) return written;
  if (!CanBeReadAgain(path, output)) return {ExitCode::kPartly};
  if (!options.Quiet) output.Print("Saved " + Counted(chosen->size(), "scheme") + " to " + path);
  return written;
}
