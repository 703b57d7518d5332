#include "app/exchange_commands.h"

#include <io.h>

#include <exception>
#include <optional>
#include <string>

#include "app/catalogue_messages.h"
#include "controls/command_guard.h"
#include "controls/file_dialog.h"
#include "controls/message.h"
#include "controls/progress_bar.h"
#include "controls/wait_cursor.h"
#include "schemefile/exchange.h"
#include "schemefile/records/record_store.h"
#include "schemefile/scheme_file.h"

namespace {

constexpr char kSavingText[] = "Saving your file to disk";
constexpr char kLoadingText[] = "Loading your file from disk";

// What the user is told at the end of a command.
enum class Ending { kDone, kFolderMissing, kExportProblem, kReadProblem, kFileLoadProblem, kImportProblem };

FileRequest SchemeFileRequest(HWND owner, DWORD flags) {
  return {.Owner = owner,
          .Filter = "Kelvanstead Scheme Manager file (*.ksf)\0*.ksf\0",
          .Extension = "ksf",
          .Flags = flags,
          .Path = "*.ksf"};
}

// The window for one piece of work, opened when the work tells how many steps it has.
class ProgressWindow {
 public:
  ProgressWindow(HWND owner, const char* text) : owner_(owner), text_(text) {}

  Progress Callback() {
    return [this](int done, int steps) { Show(done, steps); };
  }

 private:
  void Show(int done, int steps) {
    if (done > 0) return window_->Step();
    window_.emplace(owner_, 0, steps, 1, text_, "Kelvanstead Scheme Manager", "Cancel", 0);
    window_->SetAllowCancel(false);
  }

  const HWND owner_;
  const char* const text_;
  std::optional<CProgressBar> window_;
};

void ShowExportProblem(HWND owner) {
  ShowWarning(owner,
              "There was a problem exporting your schemes file.\n"
              "This may be due to the disk being full, corrupt or protected.\n"
              "\n"
              "If the file appears to have been created it should not be\n"
              "relied upon as correct",
              "Export Problem");
}

void ShowImportProblem(HWND owner) {
  ShowWarning(owner,
              "There was a problem importing your schemes file.\n"
              "This may be due to the disk being corrupt or protected.\n"
              "\n"
              "If the file appears to have been imported the settings should not be relied \n"
              "upon as correct",
              "Import Problem");
}

void ShowEnding(HWND owner, Ending ending) {
  switch (ending) {
    case Ending::kDone:
      return;
    case Ending::kFolderMissing:
      // The text speaks of protection where only the existence is tested; users know it so.
      ShowWarning(owner, "The folder you have specified is read only, please pick another", "Export Problem");
      return;
    case Ending::kExportProblem:
      return ShowExportProblem(owner);
    case Ending::kReadProblem:
      ShowWarning(owner,
                  "Unable to read the file specified.\n"
                  "This is due to the file being damaged,\n"
                  "protected or unreadable for another reason",
                  "Read Problem");
      return;
    case Ending::kFileLoadProblem:
      ShowMessage(owner, "This does not appear to be a valid Kelvanstead Scheme Manager File.",
                  "File Load Problem", MB_ICONEXCLAMATION);
      return;
    case Ending::kImportProblem:
      return ShowImportProblem(owner);
  }
}

CatalogueResult ReadMachine(HWND owner, SchemeHive& hive) {
  ProgressWindow progress(owner, kSavingText);
  return ReadMachine(hive, progress.Callback());
}

void Export(HWND owner, const SchemeHive& hive, SchemeFile& file) {
  ProgressWindow progress(owner, kSavingText);
  file.Save(hive, progress.Callback());
  if (TheRecordStore().ExportFailed) ShowExportProblem(nullptr);
}

Ending Save(HWND owner, const ChosenFile& chosen) {
  if (_access(chosen.Folder.c_str(), 0) != 0) return Ending::kFolderMissing;
  SchemeHive hive;
  switch (ReadMachine(owner, hive)) {
    case CatalogueResult::kLoaded:
    case CatalogueResult::kCutShort:
      break;
    case CatalogueResult::kNoSchemesKey:
      EndWithoutSchemes();
    case CatalogueResult::kReadError:
    case CatalogueResult::kNoAccess:
      return Ending::kExportProblem;
  }
  SchemeFile file;
  Export(owner, hive, file);
  return file.Write(chosen.Folder, chosen.Path) ? Ending::kDone : Ending::kExportProblem;
}

void Import(HWND owner, SchemeHive& hive) {
  ProgressWindow progress(owner, kLoadingText);
  ImportSchemes(hive, progress.Callback());
  if (TheRecordStore().ImportFailed) ShowImportProblem(nullptr);
}

Ending Read(HWND owner, const std::string& path, SchemeHive& hive) {
  try {
    SchemeFile file;
    switch (file.Read(path, path)) {
      case FileResult::kUnreadable:
        return Ending::kReadProblem;
      case FileResult::kNotASchemeFile:
        return Ending::kFileLoadProblem;
      case FileResult::kDone:
        break;
    }
    hive.Records = file.TakeRecords();
    Import(owner, hive);
    return Ending::kDone;
  } catch (const std::exception&) {  // more than memory holds
    return Ending::kReadProblem;
  }
}

// From here on something may have changed. What the registry refuses is not reported, but for the key that
// guards the config list.
Ending Apply(HWND owner, const SchemeHive& hive) {
  try {
    ProgressWindow progress(owner, kLoadingText);
    const auto caution = [](const std::string& keyPath) {
      ShowMessage(GetActiveWindow(), "Caution: There has been a problem setting " + keyPath,
                  "Settings Problem");
    };
    (void)ApplyImport(hive, caution, progress.Callback());
    return Ending::kDone;
  } catch (const std::exception&) {
    return Ending::kImportProblem;
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
    ending = Save(owner, *chosen);
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
      ending = Apply(owner, hive);
      reload();
    }
  }
  ShowEnding(owner, ending);
}
