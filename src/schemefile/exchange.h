// Export and import of every scheme of the machine, by way of the record store.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "model/config_hive.h"
#include "model/scheme_properties.h"
#include "schemefile/records/record_list.h"

// The image of one export or import in memory.
struct SchemeHive {
  RecordList Records;
  std::string Label = "Kelvanstead Hive";
  ConfigHive Config;
  std::vector<SchemeProperties> Schemes;
};

// Replaces the process's record store by the records of the hive's config list and schemes, behind a progress
// window over `owner`, which is disabled meanwhile. Does not touch hive.Records.
void ExportSchemes(HWND owner, const SchemeHive& hive);

// Moves hive.Records into the process's record store and fills the hive's config list and schemes from there,
// behind a progress window over `owner`. A missing record yields an empty text or 0: damage costs what it
// hit. Neither the number of schemes nor that of their parts can exceed what ReadSchemes allows.
void ImportSchemes(HWND owner, SchemeHive& hive);

// Writes the hive's config list to the registry and saves every scheme over that of the same name. Deletes
// nothing. Names that cannot name a scheme are passed over; failures are not reported, but for the settings
// caution of ConfigHive.
void ApplyImport(const SchemeHive& hive);

// Warns that the exported file is not to be relied upon. `owner` may be null.
void ShowExportProblem(HWND owner);
