// Which scheme a user gets: the readers that find each candidate, and the resolver that tries them in order.
//
// The readers read one text each (RegOpenKeyExA, RegQueryValueExA), whatever the value's type. They answer ""
// where the key or the value is missing or the text is longer than 259 characters.
#pragma once

#include <string>

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

// Finds the scheme of the logged-on user (GetUserNameA): the class's for a pupil, in a per-user environment
// the user's own choice in its stead, then the user's, then the group's, and failing all these the scheme
// "Default User". A candidate counts when all of it loads. Answers the name tried last and leaves `scheme`
// holding what that attempt loaded; without an environment (code 0) it answers "Error" all the same.
std::string ResolveSchemeForUser(SchemeProperties& scheme, int environmentCode);
