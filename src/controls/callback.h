// The boundary of every function that Windows calls: dialog procedures, subclass procedures, hooks.
//
// An exception must not pass through Windows' own frames. It ends what the user was about to do, with a beep,
// and not the program.
#pragma once

#include <windows.h>

// Returns what `function` returns, or `onFailure` when it throws, whatever it throws.
template <class Result, class Function>
Result GuardCallback(Result onFailure, const Function& function) noexcept {
  try {
    return function();
  } catch (...) {
    MessageBeep(MB_ICONERROR);
    return onFailure;
  }
}
