// Tests of ksm as a script's author sees it: the built program as a process, on this machine's registry.
//
// The fixture takes away what the machine has of the product and of the environment component, and puts it
// back afterwards, also what a run that crashed has taken away.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "base/unique_handle.h"
#include "model/scheme_properties.h"
#include "support/scratch_folder.h"

struct CommandResult {
  DWORD Code;
  std::string Results;   // what came out, in UTF-8, with LF for CR LF
  std::string Problems;  // the same of standard error
};

// A command under way.
class RunningCommand {
 public:
  // `arguments` as they stand behind the program's name. Output goes to files in `folder`.
  RunningCommand(const std::wstring& arguments, const ScratchFolder& folder);

  // Waits for its end.
  CommandResult Finish();
  // Ends it at once. False when it had ended by itself.
  bool Kill();

 private:
  std::string resultsPath_, problemsPath_;
  UniqueProcess process_;
};

class CommandLineTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  CommandResult Run(const std::string& arguments);

  // The shell, with nothing in it.
  static void InstallShell();
  // The environment component that lies beside the tests. It tells the code that Tallowby's key states.
  static void InstallEnvironment();
  // The scheme in the registry, with its description.
  static void Add(const SchemeProperties& scheme);
  // Everything of the product that the machine has.
  static std::string Machine();

  const ScratchFolder folder_;
  const std::string file_ = folder_.File("schemes.ksf");
};
