// Counts the registry calls of this process.
#pragma once

#include <map>
#include <string>

// Diverts every Reg... function that the process' own program imports, once for its whole run, to one that
// counts and passes the call on. False when the program imports a function that is not known here, which
// would go uncounted.
[[nodiscard]] bool StartCounting();

// The calls since the last ResetCounts, by function.
std::map<std::string, int> CallCounts();
void ResetCounts();
