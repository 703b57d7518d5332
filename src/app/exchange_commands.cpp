#include "app/exchange_commands.h"

#include <exception>
#include <optional>
#include <string>

#include "app/exchange_work.h"
#include "controls/command_guard.h"
#include "controls/file_dialog.h"
#include "controls/wait_cursor.h"
#include "schemefile/scheme_file.h"

namespace {

Ending Read(HWND owner, const std::string& path, SchemeHive& hive) {
  try {
    SchemeFile file;
    const Ending read = EndingOf(file.Read(path, path));
    if (read != Ending::kDone) return read;
    hive.Records = file.TakeRecords();
    ReadRecords(owner, hive);
    return Ending::kDone;
  } catch (const std::exception&) {  // more than memory holds
    return Ending::kReadProblem;
  }
}

}  // namespace

void SaveToDisk(HWND owner) {
  const std::optional<ChosenFile> chosen = AskForFileToSave(SchemeFileRequest(owner, OFN_OVERWRITEPROMPT));
  if (!chosen) return;
  Ending ending = Ending::kExportProblem;
  try {
    const CommandGuard guard(owner);
    const WaitCursor waitCursor;
    ending = SaveMachine(owner, *chosen);
  } catch (const std::exception&) {  // more than memory holds
  }
  ShowEnding(owner, ending);
}

void LoadFromDisk(HWND owner, const std::function<void()>& reload) {
  const std::optional<ChosenFile> chosen = AskForFileToOpen(SchemeFileRequest(owner, OFN_FILEMUSTEXIST));
  if (!chosen) return;
  Ending ending = Ending::kDone;
  {
    const CommandGuard guard(owner);
    const WaitCursor waitCursor;
    SchemeHive hive;
    ending = Read(owner, chosen->Path, hive);
    if (ending == Ending::kDone) {
      ImportProblems refused;  // not told by this command
      ending = WriteAndReload(owner, hive, reload, refused);
    }
  }
  ShowEnding(owner, ending);
}
