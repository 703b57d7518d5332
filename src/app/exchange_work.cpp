#include "app/exchange_work.h"

#include <io.h>

#include <exception>
#include <optional>

#include "app/catalogue_messages.h"
#include "controls/command_guard.h"
#include "controls/message.h"
#include "controls/progress_bar.h"
#include "schemefile/records/record_store.h"

namespace {

constexpr char kSavingText[] = "Saving your file to disk";
constexpr char kLoadingText[] = "Loading your file from disk";

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

void Export(HWND owner, const SchemeHive& hive, SchemeFile& file) {
  ProgressWindow progress(owner, kSavingText);
  file.Save(hive, progress.Callback());
  if (!TheRecordStore().ExportFailed) return;
  DropInput();
  ShowExportProblem(nullptr);
}

ImportProblems WriteToRegistry(HWND owner, const SchemeHive& hive) {
  ProgressWindow progress(owner, kLoadingText);
  const auto caution = [](const std::string& keyPath) {
    DropInput();
    ShowMessage(GetActiveWindow(), "Caution: There has been a problem setting " + keyPath,
                "Settings Problem");
  };
  return ApplyImport(hive, caution, progress.Callback());
}

bool Completes(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const std::exception&) {  // more than memory holds
    return false;
  }
}

}  // namespace

FileRequest SchemeFileRequest(HWND owner, DWORD flags) {
  return {.Owner = owner,
          .Filter = "Kelvanstead Scheme Manager file (*.ksf)\0*.ksf\0",
          .Extension = "ksf",
          .Flags = flags,
          .Path = "*.ksf"};
}

Ending EndingOf(FileResult result) {
  switch (result) {
    case FileResult::kUnreadable:
      return Ending::kReadProblem;
    case FileResult::kNotASchemeFile:
      return Ending::kFileLoadProblem;
    default:
      return Ending::kDone;
  }
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

CatalogueResult ReadMachineOrEnd(HWND owner, SchemeHive& hive, const char* text) {
  CatalogueResult result;
  {
    ProgressWindow progress(owner, text);
    result = ReadMachine(hive, progress.Callback());
  }
  if (result == CatalogueResult::kNoSchemesKey) EndWithoutSchemes();
  return result;
}

Ending SaveMachine(HWND owner, const ChosenFile& chosen) {
  if (_access(chosen.Folder.c_str(), 0) != 0) return Ending::kFolderMissing;
  SchemeHive hive;
  const CatalogueResult result = ReadMachineOrEnd(owner, hive, kSavingText);
  if (result != CatalogueResult::kLoaded && result != CatalogueResult::kCutShort)
    return Ending::kExportProblem;
  SchemeFile file;
  Export(owner, hive, file);
  return file.Write(chosen.Folder, chosen.Path) ? Ending::kDone : Ending::kExportProblem;
}

void ReadRecords(HWND owner, SchemeHive& hive) {
  ProgressWindow progress(owner, kLoadingText);
  ImportSchemes(hive, progress.Callback());
  if (!TheRecordStore().ImportFailed) return;
  DropInput();
  ShowImportProblem(nullptr);
}

Ending WriteAndReload(HWND owner, const SchemeHive& hive, const std::function<void()>& reload,
                      ImportProblems& problems) {
  const bool written = Completes([&] { problems = WriteToRegistry(owner, hive); });
  const bool reloaded = Completes(reload);
  return written && reloaded ? Ending::kDone : Ending::kImportProblem;
}
