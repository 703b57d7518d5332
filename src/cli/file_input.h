// A scheme file as a command reads it.
#pragma once

#include <string>
#include <vector>

#include "cli/options.h"
#include "schemefile/check.h"
#include "schemefile/exchange.h"

struct FileInput {
  SchemeHive Hive;  // each scheme with its description
  CheckResult Check;
};

// Reads and checks options.File. kFile, after a line, when it cannot be read or is no scheme file.
[[nodiscard]] ExitCode ReadInput(const Options& options, FileInput& file, Output& output);
// The same without the schemes.
[[nodiscard]] ExitCode ReadAndCheck(const std::string& path, RecordList& records, CheckResult& check,
                                    Output& output);

// Leaves only the schemes of those names, with their descriptions; all for no names. False, after a line for
// each, where one is not there.
[[nodiscard]] bool KeepSchemes(const std::vector<std::string>& names, SchemeHive& hive, Output& output);

// Leaves only the schemes and descriptions whose name `keep` is true for.
template <class Keep>
void FilterHive(SchemeHive& hive, const Keep& keep) {
  std::erase_if(hive.Schemes, [&](const SchemeProperties& scheme) { return !keep(scheme.Name); });
  std::erase_if(hive.Config.Entries, [&](const SchemeEntry& entry) { return !keep(entry.Name); });
}

// "Staff - Tabs, Page2 at byte 1234 is missing".
std::string InOneLine(const Finding& finding);

// kDone for a file that is whole, else kFound after a line that says so.
[[nodiscard]] ExitCode TellDamage(const Options& options, const FileInput& file, Output& output);
