// The machine that a command works on: who may use it, what schemes it has, and how they are read. What
// stands in the way is told in lines of its own.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "cli/write_lock.h"
#include "model/scheme_properties.h"
#include "registry/catalogue/scheme_catalogue.h"

// kDone, kNoRights for a user whom the policy locks out, or kNothingThere without the shell.
[[nodiscard]] ExitCode Admit(Output& output);
// The same for commands that need no shell.
[[nodiscard]] ExitCode AdmitUser(Output& output);

// Whether a command that opens the catalogue is concerned by what the list lacks.
enum class Gaps { kTold, kOfNoConcern };

// Admits the user and loads the catalogue, to read the schemes or to change them. With kPartly, after a line
// for each scheme that could not be read, the others are there and the command can go on; with any other code
// but kDone it cannot. Gaps of no concern are passed over.
[[nodiscard]] ExitCode OpenCatalogue(SchemeCatalogue& catalogue, SchemesAccess access, Output& output,
                                     Gaps gaps = Gaps::kTold);

// Whether a command that got this code goes on to its end.
constexpr bool GoesOn(ExitCode code) { return code == ExitCode::kDone || code == ExitCode::kPartly; }

// Whether the lock is held and changing can begin, with a line otherwise. Also tells when the program with
// the windows is open.
[[nodiscard]] bool MayChange(const WriteLock& lock, Output& output);

// Whether `wanted` is one of `names`. Tells when it is not, with the name that differs in case only if there
// is one.
[[nodiscard]] bool IsThere(const std::string& wanted, const std::vector<std::string>& names, Output& output);
// The same for each of several.
[[nodiscard]] bool AreThere(const std::vector<std::string>& wanted, const std::vector<std::string>& names,
                            Output& output);
std::vector<std::string> NamesOf(const std::vector<SchemeEntry>& schemes);

// The schemes of those names, in the registry's order; all of them for no names. Nothing, after a line for
// each, where one is not there.
[[nodiscard]] std::optional<std::vector<SchemeEntry>> ChooseSchemes(const SchemeCatalogue& catalogue,
                                                                    const std::vector<std::string>& names,
                                                                    Output& output);

// Schemes as they were read from the registry.
struct ReadResult {
  std::vector<SchemeProperties> Schemes;
  ExitCode Code = ExitCode::kDone;  // kPartly after a line for each that was not read whole
  bool Refused = false;             // the registry refused to read something that may be there
};
[[nodiscard]] ReadResult ReadFromRegistry(const SchemeCatalogue& catalogue,
                                          const std::vector<SchemeEntry>& schemes, const Options& options,
                                          Output& output);
