#include "app/load_plan.h"

#include <shlwapi.h>

#include <cstdio>
#include <map>
#include <set>
#include <utility>

#include "base/names.h"

namespace {

using Names = std::set<std::string, NameLess>;

// What stands in front of a path's last part, with the backslash.
std::string FolderOf(const std::string& path) { return path.substr(0, path.find_last_of("\\/") + 1); }

std::string NameWithTime(const SYSTEMTIME& time) {
  char name[40];
  std::snprintf(name, sizeof(name), "Schemes of %04d-%02d-%02d %02d.%02d.%02d.ksf", time.wYear, time.wMonth,
                time.wDay, time.wHour, time.wMinute, time.wSecond);
  return name;
}

Names BuiltInNames(const SchemeHive& machine, const SchemeCatalogue& catalogue) {
  Names names;
  for (const SchemeEntry& entry : machine.Config.Entries) {
    if (catalogue.IsProtected(entry.Name)) names.insert(entry.Name);
  }
  return names;
}

LoadEffect EffectOf(SchemeState state, bool isBuiltIn) {
  switch (state) {
    case SchemeState::kNew:
      return LoadEffect::kNew;
    case SchemeState::kChanged:
      return isBuiltIn ? LoadEffect::kBuiltInChanged : LoadEffect::kChanged;
    default:
      return LoadEffect::kSame;
  }
}

const char* Word(LoadEffect effect) {
  switch (effect) {
    case LoadEffect::kNew:
      return "New";
    case LoadEffect::kChanged:
      return "Changed";
    case LoadEffect::kBuiltInChanged:
      return "Built in and changed";
    default:
      return "Same";
  }
}

// The name of the scheme, with which most of its records begin, stands beside it.
std::string InWords(const Finding& finding) {
  if (finding.Record.empty()) return finding.Text;
  const std::string owner = finding.Scheme + " - ";
  const bool isOwned = finding.Record.starts_with(owner);
  return '"' + finding.Record.substr(isOwned ? owner.size() : 0) + "\" " + finding.Text;
}

}  // namespace

std::string SchemeToLoad::EffectInWords() const {
  return std::string(Word(Effect)) + (IsDamaged ? ", damaged" : "");
}

LoadPlan MakeLoadPlan(const std::string& path, const SchemeHive& file, const CheckResult& check,
                      const SchemeHive& machine, const SchemeCatalogue& catalogue, const SYSTEMTIME& now) {
  const Names builtIn = BuiltInNames(machine, catalogue);
  Names damaged;
  for (const Finding& finding : check.Findings)
    damaged.insert(finding.Scheme);
  const bool allFound = check.Findings.size() < kMaxFindings;

  std::map<std::string, std::string, NameLess> descriptions;
  for (const SchemeProperties& scheme : file.Schemes)
    descriptions[scheme.Name] = scheme.Description;

  LoadPlan plan;
  plan.File = path;
  plan.CopyFile = FolderOf(path) + NameWithTime(now);
  for (const Finding& finding : check.Findings)
    plan.Damage.push_back({finding.Scheme, InWords(finding)});
  if (!allFound) plan.Damage.push_back({"", "There may be more damage"});
  for (SchemeComparison& comparison : CompareSchemes(machine.Schemes, file.Schemes)) {
    if (comparison.State == SchemeState::kOnlyHere || !IsSchemeName(comparison.Name)) continue;
    SchemeToLoad& scheme = plan.Schemes.emplace_back();
    scheme.Name = std::move(comparison.Name);
    scheme.Description = descriptions[scheme.Name];
    scheme.Effect = EffectOf(comparison.State, builtIn.contains(scheme.Name));
    scheme.IsDamaged = damaged.contains(scheme.Name);
    scheme.IsChosen = allFound && !scheme.IsDamaged &&
                      (scheme.Effect == LoadEffect::kNew || scheme.Effect == LoadEffect::kChanged);
    scheme.Differences = std::move(comparison.Differences);
  }
  return plan;
}

void KeepChosen(const LoadPlan& plan, SchemeHive& hive) {
  Names chosen;
  hive.Config.Entries.clear();
  for (const SchemeToLoad& scheme : plan.Schemes) {
    if (!scheme.IsChosen) continue;
    chosen.insert(scheme.Name);
    hive.Config.Entries.push_back({scheme.Name, scheme.Description});
  }
  std::erase_if(hive.Schemes, [&](const SchemeProperties& scheme) { return !chosen.contains(scheme.Name); });
}

ChosenFile CopyOf(const LoadPlan& plan) {
  const bool isRelative = PathIsRelativeA(plan.CopyFile.c_str());
  const std::string path = isRelative ? FolderOf(plan.File) + plan.CopyFile : plan.CopyFile;
  char full[1024];
  char* name = nullptr;
  const DWORD length = GetFullPathNameA(path.c_str(), sizeof(full), full, &name);
  if (length == 0 || length >= sizeof(full) || !name) return {};
  return {full, std::string(full, name - 1)};
}
