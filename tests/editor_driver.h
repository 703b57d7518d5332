// What the tests of the editor's windows share.
#pragma once

#include <windows.h>

#include <utility>

#include "editor/pictures.h"
#include "support/dialog_script.h"

inline const PictureFolders kNoPictures{"", "", ""};

// A step for a window over which messages come as soon as it is there: acts once they are gone.
inline DialogScript::Action AfterItsMessages(DialogScript::Action act) {
  return [act = std::move(act)](HWND window) {
    static DialogScript::Action waiting;
    waiting = act;
    SetTimer(window, 1, USER_TIMER_MINIMUM, [](HWND timed, UINT, UINT_PTR id, DWORD) {
      if (!IsWindowEnabled(timed)) return;
      KillTimer(timed, id);
      std::exchange(waiting, {})(timed);
    });
  };
}

inline void PressOK(HWND dialog) { Click(dialog, IDOK); }
inline void PressCancel(HWND dialog) { Click(dialog, IDCANCEL); }
