// The schemes of the machine, in memory: the list that the main window shows and the commands work on.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/config_hive.h"
#include "model/scheme_properties.h"

class SchemeCatalogue {
 public:
  // Rebuilds the list of schemes and the config hive from the registry, in one walk over the values of the
  // Schemes key (RegEnumValueA). A value with a subkey of its name is a scheme, loaded whether or not all of
  // its sections can be read, with the value's text as its description. A value without one is unreadable:
  // skipped, and if `reportUnreadable`, named in one message at the end. Where the Schemes key itself is
  // missing, says so and ends the process with exit code 0. Without the right to change the key the list is
  // empty.
  void LoadCatalogue(bool reportUnreadable);

  // Saves every scheme. Writes nothing, and answers false, without the right to change the Schemes key. True
  // when everything was written.
  bool SaveCatalogue() const;

  // Rebuilds the list of built-in schemes. Empty when its key cannot be opened.
  void LoadProtectedSchemes();
  // Whether the name is on the list of built-in schemes; case matters.
  bool IsProtected(const std::string& name) const { return protectedSchemes_.contains(name); }

  // Removes the class and user allocations of the scheme (whose case may differ), its value and its key with
  // everything below, and its entries in this object. Failures of the registry are not reported. Does nothing
  // for a name that cannot be the name of a scheme (see IsSchemeName).
  void DeleteScheme(const std::string& name);

  // Deletes every subkey, at any depth, of the scheme's key. Stops at a key that cannot be deleted, and at
  // one whose first subkey has a name of 128 characters or more.
  static void DeleteSchemeKeyTree(const std::string& name);

  std::vector<SchemeProperties> Schemes;  // in the order of the registry's values
  ConfigHive Config;

 private:
  std::set<std::string> protectedSchemes_;
};
