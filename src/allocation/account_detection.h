// Which scheme a user gets: the readers that find each candidate, and the resolver that tries them in order.
//
// The readers read one text each (RegOpenKeyExA, RegQueryValueExA), whatever the value's type. They return ""
// where the key or the value is missing or the text is longer than 259 characters.
#pragma once

#include <string>
#include <vector>

#include "model/scheme_properties.h"

// Below HKEY_LOCAL_MACHINE: one subkey an account.
inline constexpr char kTallowbyAccountsKey[] = "Software\\Tessaly\\Tallowby\\Accounts";
// A text in each of them.
inline constexpr char kAccountType[] = "Account Type";
// Below kProductKey of HKEY_CURRENT_USER: the scheme chosen for this user.
inline constexpr char kConfigToUse[] = "ConfigToUse";

// "" for an environment that holds no accounts.
std::string ReadAccountType(const std::string& userName, int environmentCode);
std::string ReadCurrentClass(int environmentCode);
std::string ReadConfigToUse();

// The scheme allocated to a user, a class, or a user group, which is an account type.
std::string LookupUserScheme(const std::string& userName);
std::string LookupClassScheme(const std::string& className);
std::string LookupUserGroupScheme(const std::string& groupName);

// Where a candidate for the user's scheme comes from.
enum class CandidateSource { kClass, kConfigToUse, kUser, kUserGroup, kDefault };

// What became of a candidate.
enum class CandidateOutcome {
  kLoaded,
  kNoScheme,    // its source names none
  kMissing,     // there is no scheme of that name
  kIncomplete,  // some of the scheme's settings are missing or damaged
  kFailed,      // the system refused to read some of them
};

struct Candidate {
  CandidateSource Source = CandidateSource::kDefault;
  std::string Owner;   // the class, user or group that the source was asked for; "" for the other sources
  std::string Scheme;  // what the source names
  CandidateOutcome Outcome = CandidateOutcome::kNoScheme;
};

// All that decides which scheme a user gets.
struct SchemeTrace {
  int EnvironmentCode = 0;
  std::string UserName;
  std::string AccountType;
  std::string ClassName;              // of a pupil; "" for everybody else
  std::vector<Candidate> Candidates;  // in the order in which they were tried
  std::string Result;
};

// Finds the scheme of the logged-on user (GetUserNameA): the class's for a pupil, in a per-user environment
// the user's own choice in its stead, then the user's, then the group's, and failing all these the scheme
// "Default User". A candidate counts when all of it loads. Returns the name tried last and leaves `scheme`
// holding what that attempt loaded; without an environment (code 0) it returns "Error" all the same. What
// led there goes to `trace`, if there is one.
std::string ResolveSchemeForUser(SchemeProperties& scheme, int environmentCode, SchemeTrace* trace = nullptr);
