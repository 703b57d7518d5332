// The environment code: in which of the sibling environments this machine runs.
//
// 1 to 5: Crateling knows the accounts and classes. 6 and 7: Tallowby and Benchspace know them. 8, 9 and 99:
// the scheme is a setting of each user. 0: no environment could be told.
#pragma once

inline constexpr int kNoEnvironment = 0;
inline constexpr int kUnknownEnvironment = 99;

constexpr bool IsCratelingEnvironment(int code) { return code >= 1 && code <= 5; }
constexpr bool IsTallowbyEnvironment(int code) { return code == 6 || code == 7; }
constexpr bool IsPerUserEnvironment(int code) {
  return code == 8 || code == 9 || code == kUnknownEnvironment;
}

// Asks the environment component (CoCreateInstance). kUnknownEnvironment where the component is not
// installed, cannot be created, throws or crashes before it has told the code, or tells none. Its creation,
// the call and its release are guarded (CallGuarded), its unloading is not.
int QueryEnvironmentCode();
