// The schemes of the machine: the list that the main window shows and the commands work on, and the
// operations that change it. The list holds names and descriptions; what else a scheme holds is read when it
// is asked for.
//
// List and registry change together: each operation that changes schemes writes to the registry and lets the
// list follow. Nothing here speaks to the user.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "model/config_hive.h"
#include "model/scheme_properties.h"

enum class CatalogueResult {
  kLoaded,
  kCutShort,      // loaded up to a value of more than 259 characters, which ends the walk
  kReadError,     // loaded, but the registry refused something that may be a scheme
  kNoAccess,      // empty: no right to open the Schemes key so
  kNoSchemesKey,  // empty: the shell is not installed
};

enum class ChangeResult {
  kDone,
  kIncomplete,  // begun, and something of it was refused
  kRefused,     // nothing was changed
};

class SchemeCatalogue {
 public:
  // Rebuilds the list from the registry, in one walk over the values of the Schemes key (RegEnumValueA),
  // which ends once it has found as many schemes as asked for. A value with a subkey of its name is a scheme,
  // with the value's text as its description. A value without one is unreadable. `access` is what the key is
  // opened for (KEY_ALL_ACCESS, KEY_READ): without the right to change schemes the program shows none.
  [[nodiscard]] CatalogueResult LoadCatalogue(std::size_t maxSchemes = SIZE_MAX,
                                              SchemesAccess access = SchemesAccess::kChange);

  // The schemes in the order of the registry's values.
  const std::vector<SchemeEntry>& Schemes() const { return hive_.Entries; }
  // The same as the config hive, which goes into scheme files.
  const ConfigHive& Config() const { return hive_; }
  // The names of the values that are no readable schemes.
  const std::vector<std::string>& Unreadable() const { return walk_.Unreadable; }
  // The position of the last scheme of that name; case matters.
  std::optional<std::size_t> Find(const std::string& name) const;

  // Rebuilds the list of built-in schemes. Empty when its key cannot be opened so (KEY_ALL_ACCESS, KEY_READ).
  void LoadProtectedSchemes(SchemesAccess access = SchemesAccess::kChange);
  // Whether the name is on the list of built-in schemes; case matters.
  bool IsProtected(const std::string& name) const { return protectedSchemes_.contains(name); }
  // Whether more than one value reads as this name. Nothing is written or deleted through such a name.
  bool IsAmbiguous(const std::string& name) const;
  // Whether a scheme of that name is on the list, in any case, or in the registry with both its value and its
  // key, where a walk that was cut short does not show it. True also where the registry does not tell.
  bool IsTaken(const std::string& name) const;

  // Reads all of a listed scheme, as the registry has it now. What could not be read of its key is empty or
  // 0, and its description that of the list; of a scheme that failed, nothing should be written back.
  Outcome ReadScheme(const SchemeEntry& entry, SchemeProperties& scheme) const;

  // Makes the list anew and writes a new scheme: its value and its key. Then adds to each other scheme what
  // its key lacks, and makes each listed value a REG_SZ. Refused for an ambiguous name and without the right
  // to change the Schemes key. Whether the name is taken is for the caller to ask.
  ChangeResult Append(const SchemeProperties& scheme);

  // Writes an edited scheme in place of the one at `index`. The value of the old name is replaced by one of
  // the new name if it could be deleted, else it stays; the key is written in either case. Where the new
  // value cannot be written, the old one is put back and nothing more is done. On a change of the name the
  // key of the old one stays behind. Refused where one of the names is ambiguous.
  ChangeResult Replace(std::size_t index, const SchemeProperties& scheme);

  // Removes the class and user allocations of the scheme (whose case may differ), its value, and its key with
  // everything below. Refused for a name that cannot be the name of a scheme (see IsSchemeName) or that is
  // ambiguous, and without the right to change the Schemes key (RegOpenKeyExA with KEY_ALL_ACCESS).
  ChangeResult Remove(const std::string& name);

  // Deletes every subkey, at any depth, of the scheme's key. Stops at a key that cannot be deleted, and at
  // one whose first subkey has a name of 128 characters or more.
  static void DeleteSchemeKeyTree(const std::string& name);

 private:
  bool SaveCatalogue(const SchemeProperties& added) const;

  ConfigHive hive_;
  SchemeWalk walk_;
  std::set<std::string> protectedSchemes_;
};
