// Export and import of the schemes of the machine, by way of the record store. Shows nothing: commands open
// files, show progress and tell what happened.
#pragma once

#include <string>
#include <vector>

#include "base/progress.h"
#include "model/config_hive.h"
#include "model/scheme_properties.h"
#include "model/settings_caution.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "schemefile/records/record_list.h"

// The image of one export or import in memory.
struct SchemeHive {
  RecordList Records;
  std::string Label = "Kelvanstead Hive";
  ConfigHive Config;
  std::vector<SchemeProperties> Schemes;
};

// Fills the hive's config list and schemes from the registry, with a step for each scheme. kReadError when
// anything that may be there could not be read, be it a scheme or a part of one; such a hive is not the whole
// machine. The other results are those of SchemeCatalogue::LoadCatalogue.
[[nodiscard]] CatalogueResult ReadMachine(SchemeHive& hive, const Progress& progress,
                                          SchemesAccess access = SchemesAccess::kChange);

// Replaces the process's record store by the records of the hive's config list and schemes, with a step for
// the list and one for each scheme. Does not touch hive.Records.
void ExportSchemes(const SchemeHive& hive, const Progress& progress);

// Moves hive.Records into the process's record store and fills the hive's config list and schemes from there,
// with a step for the list and one for each scheme that the records state. A missing record yields an empty
// text or 0: damage costs what it hit. Neither the number of schemes nor that of their parts can exceed what
// ReadSchemes allows.
void ImportSchemes(SchemeHive& hive, const Progress& progress);

// Gives each scheme of the hive its description out of the config list.
void AddDescriptions(SchemeHive& hive);

// What an import could not write.
struct ImportProblems {
  bool ConfigList = false;           // one of the pairs, or all
  bool NoAccess = false;             // no right to change the Schemes key: no scheme was written
  std::vector<std::string> Schemes;  // the names of schemes that were written in part or not at all

  bool None() const { return !ConfigList && !NoAccess && Schemes.empty(); }
};

// Writes the hive's config list to the registry and saves every scheme over that of the same name, with a
// step for each scheme. Deletes nothing; goes on behind what cannot be written. A name that cannot be
// that of a scheme, or that more than one value of the Schemes key reads as, is passed over and counts as a
// problem.
ImportProblems ApplyImport(const SchemeHive& hive, const SettingsCaution& caution, const Progress& progress);
