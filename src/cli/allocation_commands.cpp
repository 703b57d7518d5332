// allocations, allocate, explain.

#include <algorithm>
#include <utility>

#include "allocation/account_detection.h"
#include "allocation/environment_code.h"
#include "base/names.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/kind_words.h"
#include "cli/machine.h"

namespace {

void PrintAllocationsAsJson(const std::vector<Allocation>& allocations, Output& output) {
  std::vector<Json> list;
  for (const auto& [kind, name, scheme, isKnown] : allocations) {
    Json& row = list.emplace_back();
    row.SetText("kind", KindWord(kind)).SetText("name", name);
    scheme.empty() ? row.SetNull("scheme") : row.SetText("scheme", scheme);
    row.SetFlag("known", isKnown);
  }
  Json().SetList("allocations", std::move(list)).Print(output);
}

void PrintAllocations(const std::vector<Allocation>& allocations, Output& output) {
  std::vector<std::vector<std::string>> rows = {{"Kind", "Name", "Scheme"}};
  for (const auto& [kind, name, scheme, isKnown] : allocations)
    rows.push_back({KindWord(kind), name, scheme});
  output.PrintTable(rows);
}

bool IsKnown(AllocationKind kind, const std::string& name) {
  const std::vector<Allocation> allocations = ReadAllocations(IsNtFamily());
  return std::ranges::any_of(allocations, [&](const Allocation& allocation) {
    return allocation.Kind == kind && IsSameName(allocation.Name, name);
  });
}

const char* EnvironmentWords(int code) {
  if (IsPerUserEnvironment(code)) return "the scheme is a setting of each user";
  if (IsTallowbyEnvironment(code)) return "Tallowby and Benchspace know the classes and users";
  return IsCratelingEnvironment(code) ? "Crateling knows the classes and users" : "no environment";
}

const char* SourceWords(CandidateSource source) {
  switch (source) {
    case CandidateSource::kClass:
      return "class";
    case CandidateSource::kConfigToUse:
      return "own choice";
    case CandidateSource::kUser:
      return "user";
    case CandidateSource::kUserGroup:
      return "group";
    default:
      return "default";
  }
}

const char* OutcomeWords(CandidateOutcome outcome) {
  switch (outcome) {
    case CandidateOutcome::kLoaded:
      return "loaded";
    case CandidateOutcome::kNoScheme:
      return "no scheme";
    case CandidateOutcome::kMissing:
      return "missing";
    case CandidateOutcome::kIncomplete:
      return "incomplete";
    default:
      return "refused";
  }
}

void PrintTraceAsJson(const SchemeTrace& trace, Output& output) {
  std::vector<Json> candidates;
  for (const auto& [source, owner, scheme, outcome] : trace.Candidates) {
    candidates.emplace_back()
        .SetText("source", SourceWords(source))
        .SetText("owner", owner)
        .SetText("scheme", scheme)
        .SetText("outcome", OutcomeWords(outcome));
  }
  Json()
      .SetText("user", trace.UserName)
      .SetNumber("environmentCode", trace.EnvironmentCode)
      .SetText("accountType", trace.AccountType)
      .SetText("class", trace.ClassName)
      .SetList("candidates", std::move(candidates))
      .SetText("scheme", trace.Result)
      .Print(output);
}

// What the name of the result does not tell.
const char* Reservation(const SchemeTrace& trace) {
  if (trace.EnvironmentCode == kNoEnvironment) return ", which names no scheme: there is no environment";
  return trace.Candidates.back().Outcome == CandidateOutcome::kLoaded ? "" : ", which could not be loaded";
}

void PrintTrace(const SchemeTrace& trace, Output& output) {
  output.PrintTable({{"User", trace.UserName},
                     {"Environment",
                      std::to_string(trace.EnvironmentCode) + ": " + EnvironmentWords(trace.EnvironmentCode)},
                     {"Account type", trace.AccountType},
                     {"Class", trace.ClassName}});
  output.Print("");
  std::vector<std::vector<std::string>> rows = {{"Tried", "Of", "Scheme", "Outcome"}};
  for (const auto& [source, owner, scheme, outcome] : trace.Candidates)
    rows.push_back({SourceWords(source), owner, scheme, OutcomeWords(outcome)});
  output.PrintTable(rows);
  output.Print("");
  output.Print("This user gets " + trace.Result + Reservation(trace));
}

}  // namespace

ExitCode ListAllocations(const Options& options, Output& output) {
  if (const ExitCode code = Admit(output); code != ExitCode::kDone) return code;
  const std::vector<Allocation> allocations = ReadAllocations(IsNtFamily());
  options.Json ? PrintAllocationsAsJson(allocations, output) : PrintAllocations(allocations, output);
  ExitCode code = ExitCode::kDone;
  for (const Allocation& allocation : allocations) {
    if (allocation.Known) continue;
    output.Problem(allocation.Name,
                   "What is allocated to this " + std::string(KindWord(allocation.Kind)) + " cannot be read");
    code = ExitCode::kPartly;
  }
  return code;
}

ExitCode AllocateScheme(const Options& options, Output& output) {
  const WriteLock lock(options.Wait);
  SchemeCatalogue catalogue;
  if (const ExitCode code = OpenCatalogue(catalogue, SchemesAccess::kRead, output, Gaps::kOfNoConcern);
      code != ExitCode::kDone)
    return code;
  if (!options.Clear && !IsThere(options.Scheme, NamesOf(catalogue.Schemes()), output))
    return ExitCode::kNothingThere;
  if (!MayChange(lock, output)) return ExitCode::kPartly;
  const std::string kind = KindWord(options.Kind);
  switch (WriteAllocation(options.Kind, options.Owner, options.Scheme)) {
    case WriteResult::kNoRights:
      output.Problem(options.Owner, "This user has no right to change allocations");
      return ExitCode::kNoRights;
    case WriteResult::kFailed:
      output.Problem(options.Owner, "The registry refused to change what is allocated to this " + kind);
      return ExitCode::kPartly;
    case WriteResult::kDone:
      break;
  }
  if (!options.Clear && !IsKnown(options.Kind, options.Owner))
    output.Problem(options.Owner,
                   "This machine does not know this " + kind + "; the allocation is made all the same");
  if (!options.Quiet) {
    output.Print((options.Clear ? "Cleared " : "Allocated " + options.Scheme + " to ") + kind + " " +
                 options.Owner);
  }
  return ExitCode::kDone;
}

ExitCode ExplainScheme(const Options& options, Output& output) {
  if (const ExitCode code = Admit(output); code != ExitCode::kDone) return code;
  SchemeProperties scheme;
  SchemeTrace trace;
  ResolveSchemeForUser(scheme, QueryEnvironmentCode(), &trace);
  options.Json ? PrintTraceAsJson(trace, output) : PrintTrace(trace, output);
  return ExitCode::kDone;
}
