#include "changes.h"

#include <algorithm>
#include <string>

#include "machine.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "stopwatch.h"

namespace {

constexpr int kSchemes = 400;
constexpr char kSource[] = "Scheme 001";
constexpr char kCreated[] = "A new scheme";

struct Work {
  const char* What;
  const char* BareWalk;
  Series Times = {}, BareWalks = {};
};

bool Create(SchemeCatalogue& catalogue) {
  SchemeProperties scheme;
  const auto source = catalogue.Find(kSource);
  if (!source || catalogue.ReadScheme(catalogue.Schemes()[*source], scheme) != Outcome::kComplete)
    return false;
  scheme.Name = kCreated;
  return !catalogue.IsTaken(kCreated) && catalogue.Append(scheme) == ChangeResult::kDone;
}

bool Edit(SchemeCatalogue& catalogue) {
  SchemeProperties scheme;
  const auto index = catalogue.Find(kSource);
  return index && catalogue.ReadScheme(catalogue.Schemes()[*index], scheme) == Outcome::kComplete &&
         catalogue.Replace(*index, scheme) == ChangeResult::kDone;
}

void WalkNames() {
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ);
  ForEachValue(key.Get(), [](const ListedValue& value) {
    return static_cast<bool>(OpenKey(HKEY_LOCAL_MACHINE, SchemeKeyPath(value.Name), KEY_READ));
  });
}

}  // namespace

void ReportChanges(Report& report) {
  EmptyKey(kSchemesKey);
  WriteTree(MakeSchemes(kSchemes));
  const RegistryTree before = ReadTree(kSchemesKey);
  const RegistryTree source = MakeScheme(kSource, 1), created = MakeScheme(kCreated, 1);
  RegistryTree after = before;
  after.insert(after.end(), created.begin() + 1, created.end());  // but for the Schemes key itself
  std::ranges::sort(after);

  Work create{"Create", "read 400 schemes, write one"}, edit{"Edit", "read one scheme, write it"},
      list{"the list, after each", "enumerate 400 values, open 400 keys"};
  SchemeCatalogue catalogue;
  bool sound = catalogue.LoadCatalogue() == CatalogueResult::kLoaded;
  for (int round = 0; round < kRounds; ++round) {
    create.Times.Add(Time([&] { sound &= Create(catalogue); }));
    sound &= ReadTree(kSchemesKey) == after && catalogue.Remove(kCreated) == ChangeResult::kDone;
    create.BareWalks.Add(Time([&] {
      ReadTree(kSchemesKey);
      WriteTree(created);
    }));
    sound &= catalogue.Remove(kCreated) == ChangeResult::kDone;
    edit.Times.Add(Time([&] { sound &= Edit(catalogue); }));
    sound &= ReadTree(kSchemesKey) == before;
    edit.BareWalks.Add(Time([&] {
      ReadTree(SchemeKeyPath(kSource));
      WriteTree(source);
    }));
    list.Times.Add(Time([&] { sound &= catalogue.LoadCatalogue() == CatalogueResult::kLoaded; }));
    list.BareWalks.Add(Time(&WalkNames));
  }
  report.Demand(sound, "Create or Edit has lost something.");

  report.Table("Create and Edit with 400 schemes, without their windows",
               "work | median in ms | bare walk | its median in ms | ratio");
  for (const Work& work : {create, edit, list}) {
    report.Row("%s | %.1f | %s | %.1f | %.2f", work.What, work.Times.Median(), work.BareWalk,
               work.BareWalks.Median(), work.Times.Over(work.BareWalks).Median());
  }
}
