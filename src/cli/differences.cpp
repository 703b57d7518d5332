#include "cli/differences.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/names.h"
#include "cli/json.h"
#include "cli/machine.h"

namespace {

const char* StateWord(SchemeState state) {
  switch (state) {
    case SchemeState::kNew:
      return "new";
    case SchemeState::kChanged:
      return "changed";
    case SchemeState::kSame:
      return "same";
    default:
      return "only here";
  }
}

void PrintAsJson(const std::vector<SchemeComparison>& comparisons, const Options& options, Output& output) {
  std::vector<Json> schemes;
  for (const SchemeComparison& scheme : comparisons) {
    std::vector<Json> differences;
    for (const Difference& difference : scheme.Differences) {
      differences.emplace_back()
          .SetText("setting", difference.Setting)
          .SetText("here", difference.Here)
          .SetText("file", difference.InFile);
    }
    schemes.emplace_back()
        .SetText("name", scheme.Name)
        .SetText("state", StateWord(scheme.State))
        .SetList("differences", std::move(differences));
  }
  Json().SetText("file", options.File).SetList("schemes", std::move(schemes)).Print(output);
}

void Print(const std::vector<SchemeComparison>& comparisons, Output& output) {
  for (const SchemeComparison& scheme : comparisons) {
    std::string state = StateWord(scheme.State);
    state.resize(sizeof("only here  ") - 1, ' ');
    output.Print(state + scheme.Name);
    for (const Difference& difference : scheme.Differences)
      output.Print("  " + InOneLine(difference));
  }
}

using Names = std::set<std::string, NameLess>;

std::vector<std::string> NamesOfEither(const SchemeCatalogue& catalogue, const SchemeHive& hive) {
  std::vector<std::string> names = NamesOf(catalogue.Schemes());
  for (const SchemeProperties& scheme : hive.Schemes)
    names.push_back(scheme.Name);
  return names;
}

}  // namespace

std::string InOneLine(const Difference& difference) {
  return difference.Setting + ": \"" + difference.Here + "\" -> \"" + difference.InFile + "\"";
}

ExitCode PrintDifferences(const SchemeCatalogue& catalogue, const SchemeHive& hive, const Options& options,
                          Output& output) {
  if (!AreThere(options.Schemes, NamesOfEither(catalogue, hive), output)) return ExitCode::kNothingThere;
  const Names wanted(options.Schemes.begin(), options.Schemes.end());
  const auto isUnwanted = [&](const auto& scheme) {
    return !wanted.empty() && !wanted.contains(scheme.Name);
  };
  std::vector<SchemeEntry> entries = catalogue.Schemes();
  std::erase_if(entries, [&](const SchemeEntry& entry) {
    return isUnwanted(entry) || (options.KeepBuiltIn && catalogue.IsProtected(entry.Name));
  });
  std::vector<SchemeProperties> inFile = hive.Schemes;
  std::erase_if(inFile, isUnwanted);
  const ReadResult read = ReadFromRegistry(catalogue, entries, options, output);
  const std::vector<SchemeComparison> comparisons = CompareSchemes(read.Schemes, inFile);
  options.Json ? PrintAsJson(comparisons, options, output) : Print(comparisons, output);
  const bool isSame = std::ranges::all_of(
      comparisons, [](const SchemeComparison& scheme) { return scheme.State == SchemeState::kSame; });
  return std::max(read.Code, isSame ? ExitCode::kDone : ExitCode::kFound);
}
