// Tests of ksm as a script's author sees it: the built program as a process, on this machine's registry.
//
// The fixture's machine has the shell with nothing in it; a machine with a shell of its own is refused.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "base/unique_handle.h"
#include "support/scratch_folder.h"

struct CommandResult {
  DWORD Code;
  std::string Results;   // what came out, in UTF-8, with LF for CR LF
  std::string Problems;  // the same of standard error
};

// A command under way.
class RunningCommand {
 public:
  // `arguments` as they stand behind the program's name. It runs in `folder`, where its output goes to files.
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

  static void ClearSchemes();
  // The environment component that lies beside the tests. It tells the code that Tallowby's key states.
  static void InstallEnvironment();
  // The sample scheme under that name, described as "For" it.
  static void Add(const std::string& name);
  // Everything of the product that the machine has.
  static std::string Machine();

  const ScratchFolder folder_;
  const std::string file_ = folder_.File("schemes.ksf");  // which commands call by its name alone
};
