#include "schemefile/exchange.h"

#include <windows.h>

#include <cstddef>
#include <map>
#include <utility>

#include "base/names.h"
#include "model/property_records.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "schemefile/records/record_store.h"

namespace {

// Counts the steps of one piece of work.
class Steps {
 public:
  Steps(const Progress& progress, std::size_t steps) : progress_(progress), steps_(static_cast<int>(steps)) {
    Tell();
  }
  void Step() {
    ++done_;
    Tell();
  }

 private:
  void Tell() const {
    if (progress_) progress_(done_, steps_);
  }

  const Progress& progress_;
  const int steps_;
  int done_ = 0;
};

}  // namespace

CatalogueResult ReadMachine(SchemeHive& hive, const Progress& progress, SchemesAccess access) {
  SchemeCatalogue catalogue;
  CatalogueResult result = catalogue.LoadCatalogue(SIZE_MAX, access);
  hive.Config = catalogue.Config();
  hive.Schemes.clear();
  hive.Schemes.reserve(catalogue.Schemes().size());
  Steps steps(progress, catalogue.Schemes().size());
  for (const SchemeEntry& entry : catalogue.Schemes()) {
    SchemeProperties& scheme = hive.Schemes.emplace_back();
    scheme.Name = entry.Name;
    scheme.Description = entry.Description;
    if (LoadSchemeProperties(entry.Name, scheme) == Outcome::kFailed) result = CatalogueResult::kReadError;
    steps.Step();
  }
  return result;
}

void ExportSchemes(const SchemeHive& hive, const Progress& progress) {
  RecordStore& store = TheRecordStore();
  store.ClearRecordStore();
  Steps steps(progress, hive.Schemes.size() + 1);
  hive.Config.WriteToFile();
  steps.Step();
  WriteSchemeCount(store, hive.Schemes.size());
  WriteSchemes(store, hive.Schemes, [&steps] { steps.Step(); });
}

void ImportSchemes(SchemeHive& hive, const Progress& progress) {
  RecordStore& store = TheRecordStore();
  store.Fill(std::move(hive.Records));
  hive.Records.Clear();
  const std::int32_t count = ReadSchemeCount(store);
  Steps steps(progress, static_cast<std::size_t>(count) + 1);
  // The count stands behind the config list, which is read next.
  store.ResetReadCursor();
  hive.Config.ReadFromFile();
  steps.Step();
  hive.Schemes = ReadSchemes(store, count, [&steps] { steps.Step(); });
}

void AddDescriptions(SchemeHive& hive) {
  std::map<std::string, const std::string*, NameLess> descriptions;
  for (const SchemeEntry& entry : hive.Config.Entries)
    descriptions[entry.Name] = &entry.Description;
  for (SchemeProperties& scheme : hive.Schemes) {
    const auto found = descriptions.find(scheme.Name);
    if (found != descriptions.end()) scheme.Description = *found->second;
  }
}

ImportProblems ApplyImport(const SchemeHive& hive, const SettingsCaution& caution, const Progress& progress) {
  ImportProblems problems;
  const ConfigHiveSaving list = hive.Config.SaveToRegistry(caution);
  problems.ConfigList = !list.Complete;
  // This key lies below the shell's own: where it opens, the shell is present.
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS);
  problems.NoAccess = !key;
  if (!key) return problems;
  Steps steps(progress, hive.Schemes.size());
  for (const SchemeProperties& scheme : hive.Schemes) {
    if (list.Ambiguous.contains(scheme.Name) || !SaveSchemeOfMany(scheme))
      problems.Schemes.push_back(scheme.Name);
    steps.Step();
  }
  return problems;
}
