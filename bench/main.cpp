// What the program costs: its registry work beside that of Windows' own tools, its reading of scheme files,
// its commands, its start and its size. Run by bench/run.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/unique_handle.h"
#include "changes.h"
#include "command_line.h"
#include "exchange.h"
#include "files.h"
#include "machine.h"
#include "programs.h"
#include "reading.h"
#include "registry/registry_paths.h"
#include "registry_calls.h"
#include "report.h"

namespace {

void MakeMachine() {
  CreateDirectoryA(kFolder, nullptr);
  std::ofstream(InFolder("a.bmp")).flush();
  WriteTree(MakeShell(kFolder));
}

std::string CommandLine(const char* path) { return "\"" + std::filesystem::absolute(path).string() + "\""; }

}  // namespace

int main(int argc, char** argv) {
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&classes);
  const std::string command = argc > 2 ? argv[1] : "";
  if (argc == 4 && command == kReadCommand) return ReadOnce(argv[2], std::atoi(argv[3]));
  if (argc == 3 && command == kExportCommand) return ExportOnce(argv[2]);
  if (argc == 3 && command == kImportCommand) return ImportOnce(argv[2]);
  if (argc != 5) {
    std::puts("usage: bench PROGRAM_X86 PROGRAM_X64 KSM_X86 KSM_X64");
    return 2;
  }
  UniqueKey shell;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kSchemesKey, 0, KEY_READ, shell.Put()) == ERROR_SUCCESS) {
    std::puts("This machine has schemes, which the benchmark would destroy.");
    return 2;
  }
  MakeMachine();
  const std::string manager = CommandLine(argv[2]), ksm = CommandLine(argv[4]);
  Report report;
  ReportExchange(report, ksm);
  ReportCommandLine(report, ksm);
  ReportReading(report);
  ReportChanges(report);
  ReportStarts(report, manager);
  ReportSizes(report, {argv[1], argv[2], argv[3], argv[4]});
  ReportRegistryCalls(report);
  EmptyKey(kProductKey);
  report.End();
}
