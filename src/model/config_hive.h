// The schemes by name: the list of pairs kept as REG_SZ values of the Schemes key itself. The scheme list
// shows the text of a pair as the scheme's description; what else the shell makes of it does not matter here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "base/names.h"
#include "model/settings_caution.h"

struct SchemeEntry {
  std::string Name;
  std::string Description;

  bool operator==(const SchemeEntry&) const = default;
};

// What the Schemes key is opened for.
enum class SchemesAccess { kRead, kChange };

// What a walk over the values of the Schemes key met besides the schemes.
struct SchemeWalk {
  bool Opened = false;  // else nothing of the rest counts
  // Values that stand for no scheme that could be shown: without a key of their name, or of a name that a
  // value before them has already, from which they cannot be told apart.
  std::vector<std::string> Unreadable;
  // Names that more than one value enumerates under: nothing may be written or deleted through them.
  std::vector<std::string> Ambiguous;
  bool CutShort = false;  // the walk ended at a value of more than 259 characters
  bool Failed = false;    // the registry refused something that may be there
};

// What became of the pairs that were to be written.
struct ConfigHiveSaving {
  bool Complete = false;
  // The names that more than one value of the key reads as (SchemeWalk::Ambiguous).
  std::set<std::string, NameLess> Ambiguous;
};

class ConfigHive {
 public:
  // Replaces the list by the values of the Schemes key, in the registry's order (RegEnumValueA). Values
  // without a key of the same name are dropped; a name or text longer than 259 characters ends the list, as
  // does its `maxEntries`-th entry. Empty when the key cannot be opened so (KEY_READ, KEY_ALL_ACCESS).
  SchemeWalk LoadFromRegistry(SchemesAccess access, std::size_t maxEntries = SIZE_MAX);

  // Writes every pair as a value of the Schemes key; one that is a REG_SZ of that text already is left as it
  // is, so that characters outside the code page survive. Of two pairs of one name the last remains. Where
  // the key does not exist, tells `caution`; then, and where what it holds cannot be read, writes nothing.
  // Passed over, and not complete then, are names that cannot be those of schemes and names that more than
  // one value reads as.
  [[nodiscard]] ConfigHiveSaving SaveToRegistry(const SettingsCaution& caution) const;

  // Appends two records a pair to the record store.
  void WriteToFile() const;
  // Replaces the list by the pairs in the record store: as many as its "Scheme Count" states, at most as many
  // as it has records. A text is cut to 259 characters: a longer one would end every later list.
  void ReadFromFile();

  std::vector<SchemeEntry> Entries;
};
