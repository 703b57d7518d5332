// list, show, delete.

#include <algorithm>
#include <utility>

#include "base/names.h"
#include "cli/commands.h"
#include "cli/file_input.h"
#include "cli/json.h"
#include "cli/kind_words.h"
#include "cli/machine.h"
#include "schemefile/compare.h"

namespace {

struct ListedScheme {
  SchemeEntry Entry;
  bool IsBuiltIn;
  std::vector<Allocation> AllocatedTo;
};

std::vector<ListedScheme> ListOf(const SchemeCatalogue& catalogue) {
  std::vector<ListedScheme> list;
  const std::vector<Allocation> allocations = ReadAllocations(IsNtFamily());
  for (const SchemeEntry& entry : catalogue.Schemes()) {
    ListedScheme& scheme = list.emplace_back(ListedScheme{entry, catalogue.IsProtected(entry.Name), {}});
    std::ranges::copy_if(allocations, std::back_inserter(scheme.AllocatedTo),
                         [&](const Allocation& allocation) {
                           return !allocation.Scheme.empty() && IsSameName(allocation.Scheme, entry.Name);
                         });
  }
  return list;
}

void PrintListAsJson(const std::vector<ListedScheme>& list, Output& output) {
  std::vector<Json> schemes;
  for (const ListedScheme& scheme : list) {
    std::vector<Json> allocatedTo;
    for (const Allocation& allocation : scheme.AllocatedTo)
      allocatedTo.emplace_back().SetText("kind", KindWord(allocation.Kind)).SetText("name", allocation.Name);
    schemes.emplace_back()
        .SetText("name", scheme.Entry.Name)
        .SetText("description", scheme.Entry.Description)
        .SetFlag("builtIn", scheme.IsBuiltIn)
        .SetList("allocatedTo", std::move(allocatedTo));
  }
  Json().SetList("schemes", std::move(schemes)).Print(output);
}

void PrintList(const std::vector<ListedScheme>& list, Output& output) {
  std::vector<std::vector<std::string>> rows = {{"Name", "Description", "Built in", "Allocated to"}};
  for (const ListedScheme& scheme : list) {
    std::string allocatedTo;
    for (const Allocation& allocation : scheme.AllocatedTo) {
      if (!allocatedTo.empty()) allocatedTo += ", ";
      allocatedTo += KindWord(allocation.Kind) + (" " + allocation.Name);
    }
    rows.push_back({scheme.Entry.Name, scheme.Entry.Description, scheme.IsBuiltIn ? "yes" : "", allocatedTo});
  }
  output.PrintTable(rows);
}

void PrintScheme(const SchemeProperties& scheme, bool asJson, Output& output) {
  const std::vector<Setting> settings = DescribeScheme(scheme);
  if (asJson) {
    std::vector<Json> list;
    for (const Setting& setting : settings)
      list.emplace_back().SetText("setting", setting.Label()).SetText("value", setting.Value);
    return Json().SetText("name", scheme.Name).SetList("settings", std::move(list)).Print(output);
  }
  std::vector<std::vector<std::string>> rows = {{"Name", scheme.Name}};
  for (const Setting& setting : settings)
    rows.push_back({setting.Label(), setting.Value});
  output.PrintTable(rows);
}

ExitCode ShowSchemeOfFile(const Options& options, Output& output) {
  if (const ExitCode code = AdmitUser(output); code != ExitCode::kDone) return code;
  FileInput file;
  if (const ExitCode code = ReadInput(options, file, output); code != ExitCode::kDone) return code;
  if (!KeepSchemes({options.Scheme}, file.Hive, output)) return ExitCode::kNothingThere;
  PrintScheme(file.Hive.Schemes.back(), options.Json, output);
  return TellDamage(options, file, output);
}

ExitCode DeleteScheme(const std::string& name, SchemeCatalogue& catalogue, const Options& options,
                      Output& output) {
  if (catalogue.Remove(name) != ChangeResult::kDone) {
    output.Problem(name, "The registry refused to delete all of this scheme");
    return ExitCode::kPartly;
  }
  if (!options.Quiet) output.Print("Deleted " + name);
  return ExitCode::kDone;
}

}  // namespace

ExitCode ListSchemes(const Options& options, Output& output) {
  SchemeCatalogue catalogue;
  const ExitCode code = OpenCatalogue(catalogue, SchemesAccess::kRead, output);
  if (!GoesOn(code)) return code;
  const std::vector<ListedScheme> list = ListOf(catalogue);
  options.Json ? PrintListAsJson(list, output) : PrintList(list, output);
  return code;
}

ExitCode ShowScheme(const Options& options, Output& output) {
  if (!options.File.empty()) return ShowSchemeOfFile(options, output);
  SchemeCatalogue catalogue;
  if (const ExitCode code = OpenCatalogue(catalogue, SchemesAccess::kRead, output); !GoesOn(code))
    return code;
  const auto chosen = ChooseSchemes(catalogue, {options.Scheme}, output);
  if (!chosen) return ExitCode::kNothingThere;
  const ReadResult read = ReadFromRegistry(catalogue, *chosen, options, output);
  PrintScheme(read.Schemes.back(), options.Json, output);
  return read.Code;
}

ExitCode DeleteSchemes(const Options& options, Output& output) {
  if (const ExitCode code = Admit(output); code != ExitCode::kDone) return code;
  const WriteLock lock(options.Wait);
  if (!MayChange(lock, output)) return ExitCode::kPartly;
  SchemeCatalogue catalogue;
  if (const ExitCode code = OpenCatalogue(catalogue, SchemesAccess::kChange, output); !GoesOn(code))
    return code;
  const auto chosen = ChooseSchemes(catalogue, options.Schemes, output);
  if (!chosen) return ExitCode::kNothingThere;
  bool isBuiltIn = false;
  for (const SchemeEntry& scheme : *chosen) {
    if (!catalogue.IsProtected(scheme.Name)) continue;
    output.Problem(scheme.Name, "This scheme is built in; nothing was deleted");
    isBuiltIn = true;
  }
  if (isBuiltIn) return ExitCode::kNoRights;
  ExitCode code = ExitCode::kDone;
  for (const SchemeEntry& scheme : *chosen)
    code = std::max(code, DeleteScheme(scheme.Name, catalogue, options, output));
  return code;
}
