// Which scheme is allocated to whom: the rows of the allocation dialog, read from and written to the
// registry.
#pragma once

#include <string>
#include <vector>

#include "base/write_result.h"

enum class AllocationKind { kClass, kUser, kUserGroup };

struct Allocation {
  AllocationKind Kind = AllocationKind::kClass;
  std::string Name;    // of the class, the user or the user group
  std::string Scheme;  // "" for none; it need not exist
  // False where something is stored that is no text or could not be read; Scheme is "" then.
  bool Known = true;
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

// Stores one allocation, one without a scheme as an empty text (SHRegSetUSValueW, the machine's branch only).
// The name need not be one that ReadAllocations knows, nor need the scheme exist; a name without characters
// or one of the two longer than 259 fails. The key of the kind is created where it is missing, but not the
// shell's own, without which this fails. On failure the allocation stays as it was.
[[nodiscard]] WriteResult WriteAllocation(AllocationKind kind, const std::string& name,
                                          const std::string& scheme);

// The names of the values of the Schemes key, whether each stands for a scheme or not, in the registry's
// order.
std::vector<std::string> SchemeNames();

// Stores the current user's own choice of a scheme (RegCreateKeyExA with full access, RegSetValueExA). The
// counterpart of ReadConfigToUse. On failure the choice stays as it was.
[[nodiscard]] WriteResult WriteConfigToUse(const std::string& scheme);
