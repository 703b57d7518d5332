// What the tests of the editor's windows share.
#pragma once

#include <windows.h>

#include <utility>

#include "editor/pictures.h"
#include "support/dialog_script.h"

inline const PictureFolders kNoPictures{"", "", ""};

inline DialogScript::Action g_waitingAction;

inline void CALLBACK ActOnceItCanBeUsed(HWND window, UINT, UINT_PTR timer, DWORD) {
  if (!IsWindowEnabled(window)) return;
  KillTimer(window, timer);
  std::exchange(g_waitingAction, {})(window);
}

// A step for a window over which messages come as soon as it is there: acts once they are gone.
inline DialogScript::Action AfterItsMessages(DialogScript::Action act) {
  return [act = std::move(act)](HWND window) {
    g_waitingAction = act;
    SetTimer(window, 1, USER_TIMER_MINIMUM, &ActOnceItCanBeUsed);
  };
}

inline void PressOK(HWND dialog) { Click(dialog, IDOK); }
inline void PressCancel(HWND dialog) { Click(dialog, IDCANCEL); }
