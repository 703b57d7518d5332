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

}  // namespace

std::string ReadAccountType(const std::string& userName, int environmentCode) {
  if (IsTallowbyEnvironment(environmentCode)) {
    return ReadText(HKEY_LOCAL_MACHINE, std::string(kTallowbyAccountsKey) + "\\" + userName, kAccountType);
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

std::string ResolveSchemeForUser(SchemeProperties& scheme, int environmentCode) {
  std::string candidate;
  const auto tryScheme = [&](std::string name) {
    candidate = std::move(name);
    scheme = {};
    scheme.Name = candidate;
    return LoadSchemeProperties(candidate, scheme);
  };

  const std::string userName = LoggedOnUser();
  const std::string accountType = ReadAccountType(userName, environmentCode);
  const std::string className = IsPupil(accountType) ? ReadCurrentClass(environmentCode) : "";
  bool found = !className.empty() && tryScheme(LookupClassScheme(className));
  // The user's own choice comes before the class, and drops it even where the chosen scheme cannot be loaded.
  if (IsPerUserEnvironment(environmentCode)) found = tryScheme(ReadConfigToUse());
  if (!found) found = tryScheme(LookupUserScheme(userName));
  if (!found) found = tryScheme(LookupUserGroupScheme(accountType));
  if (!found) tryScheme(kDefaultUserScheme);
  return environmentCode == kNoEnvironment ? "Error" : candidate;
}
