#include <windows.h>
#include <commctrl.h>

#include "app/command_line.h"
#include "app/start_up.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS |
                                                          ICC_UPDOWN_CLASS | ICC_BAR_CLASSES |
                                                          ICC_TAB_CLASSES};
  InitCommonControlsEx(&classes);
  // Now, as the start moves to the pictures folder.
  CSchemeManagerApp(FileToOpen(GetCommandLineW())).InitInstance();
  return 0;
}
