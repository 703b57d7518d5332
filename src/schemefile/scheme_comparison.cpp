#include "schemefile/scheme_comparison.h"

#include <map>

#include "base/names.h"

namespace {

using SchemesByName = std::map<std::string, const SchemeProperties*, NameLess>;

SchemesByName ByName(const std::vector<SchemeProperties>& schemes) {
  SchemesByName byName;
  for (const SchemeProperties& scheme : schemes)
    byName.insert_or_assign(scheme.Name, &scheme);
  return byName;
}

SchemeComparison Compare(const SchemeProperties* here, const SchemeProperties& inFile) {
  if (!here) return {inFile.Name, SchemeState::kNew, {}};
  std::vector<Difference> differences = CompareScheme(*here, inFile);
  const SchemeState state = differences.empty() ? SchemeState::kSame : SchemeState::kChanged;
  return {inFile.Name, state, std::move(differences)};
}

}  // namespace

std::vector<SchemeComparison> CompareSchemes(const std::vector<SchemeProperties>& here,
                                             const std::vector<SchemeProperties>& inFile) {
  const SchemesByName fromHere = ByName(here), fromFile = ByName(inFile);
  std::vector<SchemeComparison> comparisons;
  for (const SchemeProperties& scheme : inFile) {
    if (fromFile.at(scheme.Name) != &scheme) continue;
    const auto found = fromHere.find(scheme.Name);
    comparisons.push_back(Compare(found == fromHere.end() ? nullptr : found->second, scheme));
  }
  for (const SchemeProperties& scheme : here) {
    if (!fromFile.contains(scheme.Name)) comparisons.push_back({scheme.Name, SchemeState::kOnlyHere, {}});
  }
  return comparisons;
}
