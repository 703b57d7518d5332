// What `ksm` ends with. The numbers are documented: scripts depend on them.
#pragma once

enum class ExitCode {
  kDone = 0,
  kFound = 1,         // damage in a file, or differences
  kUsage = 2,         // arguments that make no command
  kFile = 3,          // a file that cannot be read or written, or is no scheme file
  kNothingThere = 4,  // the shell is not installed, or there is no such scheme
  kNoRights = 5,      // the registry or the policy refuses this user, or the scheme is built in
  kPartly = 6,        // not all of it could be done
};
