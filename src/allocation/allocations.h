// Which scheme is allocated to whom: the rows of the allocation dialog, read from and written to the
// registry.
#pragma once

#include <string>
#include <vector>

enum class AllocationKind { kClass, kUser, kUserGroup };

struct Allocation {
  AllocationKind Kind = AllocationKind::kClass;
  std::string Name;    // of the class, the user or the user group
  std::string Scheme;  // "" for none; it need not exist
};

// "Class Schemes", "User Schemes" or "User Group Schemes": what the user reads, and the name of the key.
const char* KindText(AllocationKind kind);

// Whether this Windows is of the NT family (GetVersionExA).
bool IsNtFamily();

// The classes, the users and the user groups of the machine, in this order, each with its allocation
// (SHRegGetUSValueA, the machine's branch only).
//
// In the NT family Tallowby knows them: a user is an account, a user group an account type, and the classes
// stand in an INI file of Tallowby. Otherwise the users are those of the logon passwords and the classes
// stand in Crateling's INI file. A name longer than 259 characters is left out, and what cannot be read is
// not there.
std::vector<Allocation> ReadAllocations(bool ntFamily);

// Writes every allocation, one without a scheme as an empty text (SHRegSetUSValueW, the machine's branch
// only). Failures are not reported.
void WriteAllocations(const std::vector<Allocation>& allocations);

// The schemes of the machine: the names of the values of the Schemes key, in the registry's order.
std::vector<std::string> SchemeNames();

// Stores the current user's own choice of a scheme (RegCreateKeyExA, RegSetValueExA). Failure is not
// reported. The counterpart of ReadConfigToUse.
void WriteConfigToUse(const std::string& scheme);
