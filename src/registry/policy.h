#pragma once

// Whether the policy value "Lock" of the current user keeps the user out of the Scheme Manager: any value of
// up to four bytes that are not all 0, whatever its type (RegQueryValueExA below HKEY_CURRENT_USER). False
// where the value is missing, longer, or cannot be read.
bool IsLockedByPolicy();
