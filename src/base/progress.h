#pragma once

#include <functional>

// Told by long work how far it is: with 0 of so many steps when it begins, then after each step. May be
// empty.
using Progress = std::function<void(int done, int steps)>;
