// The list of (scheme name, text) pairs kept as REG_SZ values of the Schemes key itself. The text is opaque
// here; the same value is the description that the scheme list shows.
#pragma once

#include <string>
#include <vector>

struct ConfigHiveEntry {
  std::string SchemeName;
  std::string ConfigText;

  bool operator==(const ConfigHiveEntry&) const = default;
};

class ConfigHive {
 public:
  // Replaces the list by the values of the Schemes key, in the registry's order. Values without a key of the
  // same name are dropped; a name or text longer than 259 characters ends the list. Empty when the key cannot
  // be opened.
  void LoadFromRegistry();

  // Writes every pair as a value of the Schemes key. Where that key does not exist, shows the settings
  // caution and writes nothing. Pairs without a usable scheme name are passed over. True when everything was
  // written.
  bool SaveToRegistry() const;

  // Appends two records a pair to the record store.
  void WriteToFile() const;
  // Replaces the list by the pairs in the record store: as many as its "Scheme Count" states, at most as many
  // as it has records. A text is cut to 259 characters: a longer one would end every later list.
  void ReadFromFile();

  std::vector<ConfigHiveEntry> Entries;
};
