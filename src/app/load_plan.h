// What loading a scheme file would change, scheme by scheme, and what the user has chosen of it. Shows
// nothing and writes nothing.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "controls/file_dialog.h"
#include "registry/catalogue/scheme_catalogue.h"
#include "schemefile/check.h"
#include "schemefile/exchange.h"
#include "schemefile/scheme_comparison.h"

enum class LoadEffect { kNew, kChanged, kSame, kBuiltInChanged };

struct SchemeToLoad {
  std::string Name;
  std::string Description;  // the file's
  LoadEffect Effect = LoadEffect::kNew;
  bool IsDamaged = false;  // the check found something of it
  bool IsChosen = false;
  std::vector<Difference> Differences;

  // "Built in and changed, damaged".
  std::string EffectInWords() const;
};

struct LoadDamage {
  std::string Scheme;  // "" for what concerns no scheme in particular
  std::string Text;
};

struct LoadPlan {
  std::string File;                   // its full path
  std::vector<SchemeToLoad> Schemes;  // in the file's order, without those whose name no scheme can have
  std::vector<LoadDamage> Damage;
  bool KeepsCopy = true;  // of the schemes as they are, before they are changed
  std::string CopyFile;   // as the user typed it
};

// Compares the schemes of `file`, which have their descriptions and were found to be as `check` says, with
// those of the machine; `catalogue` knows which are built in. A scheme is chosen if it would change
// something, is not built in and not damaged; none is in a file with more damage than the check lists. The
// copy lies beside the file, named with the time `now`.
LoadPlan MakeLoadPlan(const std::string& path, const SchemeHive& file, const CheckResult& check,
                      const SchemeHive& machine, const SchemeCatalogue& catalogue, const SYSTEMTIME& now);

// Leaves in the hive what is chosen, each scheme with its description.
void KeepChosen(const LoadPlan& plan, SchemeHive& hive);

// Where the copy is to lie: a text that is no full path counts from the file's folder (GetFullPathNameA).
// Empty where no path can be made of it.
ChosenFile CopyOf(const LoadPlan& plan);
