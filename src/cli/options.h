// What a command line asks for. Texts are in the ANSI code page.
#pragma once

#include <string>
#include <vector>

#include "allocation/allocations.h"
#include "cli/exit_code.h"
#include "cli/output.h"

struct Options {
  // For every command.
  bool Quiet = false;
  unsigned Wait = 60;  // seconds for another ksm to end

  // For those that have it.
  bool Json = false;
  std::string File;
  std::string Scheme;
  std::vector<std::string> Schemes;  // empty for all of them
  bool DryRun = false;
  std::string Backup;
  bool KeepBuiltIn = false;
  bool AcceptDamage = false;
  bool NoVerify = false;
  AllocationKind Kind = AllocationKind::kClass;
  std::string Owner;  // the class, user or group
  bool Clear = false;
  std::string Helper;
};

using Command = ExitCode (*)(const Options&, Output&);
