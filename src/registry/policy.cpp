#include "registry/policy.h"

#include "registry/registry_access.h"

bool IsLockedByPolicy() {
  const UniqueKey key =
      OpenKey(HKEY_CURRENT_USER, "Software\\Policies\\Tessaly\\Kelvanstead Scheme Manager", KEY_READ);
  if (!key) return false;
  // Longer data fails the query, which allows.
  DWORD lock = 0;
  DWORD size = sizeof(lock);
  return RegQueryValueExA(key.Get(), "Lock", nullptr, nullptr, reinterpret_cast<BYTE*>(&lock), &size) ==
             ERROR_SUCCESS &&
         lock != 0;
}
