// The application object: its admission checks and the main window.
#pragma once

#include <string>
#include <utility>

class CSchemeManagerApp {
 public:
  // `file` is the full path of a scheme file to open (OpenSchemeFile), "" for none.
  explicit CSchemeManagerApp(std::wstring file = {}) : file_(std::move(file)) {}

  // Runs the whole program: the checks below in this order, the default bitmaps, the main window until it
  // closes. The first check that refuses ends it; where another copy runs, that one is brought to the front
  // and asked to open the file, and the user is told when it does not. Always returns false: there is no
  // message loop to enter afterwards.
  bool InitInstance();

  // Whether another process of the program's file name runs, whatever its case (CreateToolhelp32Snapshot).
  // Processes that cannot be opened do not count; without a snapshot nothing does.
  [[nodiscard]] static bool IsAlreadyRunning();
  // False, after telling the user, when no scheme can be loaded. Ends the process where the schemes' key is
  // missing.
  [[nodiscard]] static bool SchemesPresent();
  // False, after telling the user, when the policy value "Lock" of the current user holds anything but 0.
  [[nodiscard]] static bool PolicyAllows();
  // False, after telling the user, when the pictures folder holds no bitmap. Makes that folder the process's
  // working directory, and leaves it so.
  [[nodiscard]] static bool BitmapsAvailable();
  // Copies the two bitmaps that the shell expects by name from the program's folder, where they are missing.
  static void CopyDefaultBitmaps();

 private:
  const std::wstring file_;
};
