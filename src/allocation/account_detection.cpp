#include "allocation/account_detection.h"

#include <windows.h>

#include <lmcons.h>

#include "allocation/environment_code.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"

namespace {

constexpr char kCratelingKey[] = "Software\\Tessaly\\Crateling\\Benchspace";
constexpr char kBenchspaceKey[] = "Software\\Tessaly\\Benchspace";
constexpr char kCurrentMode[] = "Current Mode";
constexpr char kCurrentClass[] = "Current Class";

std::string LookupScheme(const char* kind, const std::string& name) {
  return ReadText(HKEY_LOCAL_MACHINE, AllocationKeyPath(kind), name);
}

std::string LoggedOnUser() {
  char name[UNLEN + 1] = "";
  DWORD size = sizeof(name);
  return GetUserNameA(name, &size) ? name : "";
}

bool IsPupil(const std::string& accountType) {
  return lstrcmpiA(accountType.c_str(), "Pupils") == 0 || lstrcmpiA(accountType.c_str(), "Pupil") == 0;
}

CandidateOutcome Load(const std::string& name, SchemeProperties& scheme) {
  const Outcome outcome = LoadSchemeProperties(name, scheme);
  if (outcome == Outcome::kComplete) return CandidateOutcome::kLoaded;
  if (outcome == Outcome::kFailed) return CandidateOutcome::kFailed;
  if (name.empty()) return CandidateOutcome::kNoScheme;
  return FindSchemeKey(name) == Outcome::kIncomplete ? CandidateOutcome::kMissing
                                                     : CandidateOutcome::kIncomplete;
}

}  // namespace

std::string ReadAccountType(const std::string& userName, int environmentCode) {
  if (IsTallowbyEnvironment(environmentCode)) {
    return ReadText(HKEY_LOCAL_MACHINE, KeyPath({kTallowbyAccountsKey, userName}), kAccountType);
  }
  if (IsCratelingEnvironment(environmentCode))
    return ReadText(HKEY_LOCAL_MACHINE, kCratelingKey, kCurrentMode);
  return "";
}

std::string ReadCurrentClass(int environmentCode) {
  if (IsTallowbyEnvironment(environmentCode))
    return ReadText(HKEY_CURRENT_USER, kBenchspaceKey, kCurrentClass);
  if (IsCratelingEnvironment(environmentCode))
    return ReadText(HKEY_LOCAL_MACHINE, kCratelingKey, kCurrentClass);
  return "";
}

std::string ReadConfigToUse() { return ReadText(HKEY_CURRENT_USER, kProductKey, kConfigToUse); }

std::string LookupUserScheme(const std::string& userName) { return LookupScheme(kUserSchemes, userName); }
std::string LookupClassScheme(const std::string& className) { return LookupScheme(kClassSchemes, className); }
std::string LookupUserGroupScheme(const std::string& groupName) {
  return LookupScheme(kUserGroupSchemes, groupName);
}

std::string ResolveSchemeForUser(SchemeProperties& scheme, int environmentCode, SchemeTrace* trace) {
  SchemeTrace steps;
  const auto tryScheme = [&](CandidateSource source, const std::string& owner, const std::string& name) {
    scheme = {};
    scheme.Name = name;
    const CandidateOutcome outcome = Load(name, scheme);
    steps.Candidates.push_back({source, owner, name, outcome});
    return outcome == CandidateOutcome::kLoaded;
  };

  const std::string user = LoggedOnUser();
  const std::string group = ReadAccountType(user, environmentCode);
  const std::string className = IsPupil(group) ? ReadCurrentClass(environmentCode) : "";
  bool found =
      !className.empty() && tryScheme(CandidateSource::kClass, className, LookupClassScheme(className));
  // The user's own choice comes before the class, and drops it even where the chosen scheme cannot be loaded.
  if (IsPerUserEnvironment(environmentCode))
    found = tryScheme(CandidateSource::kConfigToUse, "", ReadConfigToUse());
  if (!found) found = tryScheme(CandidateSource::kUser, user, LookupUserScheme(user));
  if (!found) found = tryScheme(CandidateSource::kUserGroup, group, LookupUserGroupScheme(group));
  if (!found) tryScheme(CandidateSource::kDefault, "", kDefaultUserScheme);

  steps.EnvironmentCode = environmentCode;
  steps.UserName = user;
  steps.AccountType = group;
  steps.ClassName = className;
  steps.Result = environmentCode == kNoEnvironment ? "Error" : steps.Candidates.back().Scheme;
  if (trace) *trace = steps;
  return steps.Result;
}
