#include "app/load_schemes_command.h"

#include <exception>
#include <optional>
#include <utility>

#include "app/catalogue_messages.h"
#include "app/exchange_work.h"
#include "app/load_plan.h"
#include "app/load_schemes_dialog.h"
#include "controls/command_guard.h"
#include "controls/message.h"
#include "controls/wait_cursor.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/scheme_file.h"

namespace {

constexpr char kTitle[] = "Load Schemes";

// The path in the code page. Nothing when that does not have all of its characters.
std::optional<std::string> ToCodePage(const std::wstring& text) {
  std::string bytes(text.size() * 2, '\0');
  BOOL isChanged = FALSE;
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
                          bytes.data(), static_cast<int>(bytes.size()), nullptr, &isChanged)));
  if (isChanged || bytes.empty()) return std::nullopt;
  return bytes;
}

struct OpenedFile {
  SchemeHive Hive;
  LoadPlan Plan;
};

Ending ReadAndCompare(HWND owner, const std::string& path, OpenedFile& file) {
  std::string bytes;
  const Ending read = EndingOf(ReadSchemeFile(path, bytes));
  if (read != Ending::kDone) return read;
  file.Hive.Records = SplitRecords(std::move(bytes));
  const CheckResult check = CheckRecords(file.Hive.Records);
  ReadRecords(owner, file.Hive);
  AddDescriptions(file.Hive);

  SchemeHive machine;
  // Of what cannot be read the dialog says that it would change.
  ReadMachineOrEnd(owner, machine, "Comparing the schemes");
  SchemeCatalogue catalogue;
  catalogue.LoadProtectedSchemes();
  SYSTEMTIME now{};
  GetLocalTime(&now);
  file.Plan = MakeLoadPlan(path, file.Hive, check, machine, catalogue, now);
  return Ending::kDone;
}

Ending Open(HWND owner, const std::string& path, OpenedFile& file) {
  const CommandGuard guard(owner);
  const WaitCursor waitCursor;
  try {
    return ReadAndCompare(owner, path, file);
  } catch (const std::exception&) {  // more than memory holds
    return Ending::kReadProblem;
  }
}

// Whether an import reads the file whole. Of a text with the byte that ends a field it would see two.
bool CanBeReadAgain(const std::string& path) {
  std::string bytes;
  return ReadSchemeFile(path, bytes) == FileResult::kDone &&
         CheckRecords(SplitRecords(std::move(bytes))).IsWhole();
}

enum class CopyResult { kSafe, kNotSaved, kUnreadable };

CopyResult SaveCopy(HWND owner, const ChosenFile& copy) {
  const CommandGuard guard(owner);
  const WaitCursor waitCursor;
  try {
    if (copy.Path.empty() || SaveMachine(owner, copy) != Ending::kDone) return CopyResult::kNotSaved;
    return CanBeReadAgain(copy.Path) ? CopyResult::kSafe : CopyResult::kUnreadable;
  } catch (const std::exception&) {  // more than memory holds
    return CopyResult::kNotSaved;
  }
}

// Asks until the schemes that are there are safe, or nobody wants to load any.
bool Choose(HWND owner, LoadPlan& plan) {
  while (CLoadSchemesDialog(plan).DoModal(owner) == IDOK) {
    const CopyResult copy = plan.KeepsCopy ? SaveCopy(owner, CopyOf(plan)) : CopyResult::kSafe;
    if (copy == CopyResult::kSafe) return true;
    ShowWarning(owner,
                copy == CopyResult::kNotSaved
                    ? "The copy of the present schemes could not be saved, so nothing was loaded.\n"
                      "Please choose another place for it."
                    : "The copy of the present schemes was saved, but cannot be read whole, so nothing was "
                      "loaded.\nOne of their names or texts has a character that no scheme file can hold.",
                kTitle);
  }
  return false;
}

Ending Load(HWND owner, OpenedFile& file, const std::function<void()>& reload, ImportProblems& problems) {
  const CommandGuard guard(owner);
  const WaitCursor waitCursor;
  try {
    KeepChosen(file.Plan, file.Hive);
  } catch (const std::exception&) {  // more than memory holds
    return Ending::kImportProblem;
  }
  return WriteAndReload(owner, file.Hive, reload, problems);
}

void ShowProblems(HWND owner, const ImportProblems& problems) {
  if (problems.NoAccess) {
    ShowWarning(owner, "You do not have the rights to change the schemes, so nothing was loaded.", kTitle);
  } else if (!problems.Schemes.empty()) {
    ShowWarning(owner,
                "The following scheme/s could not be loaded completely:\n" + JoinNames(problems.Schemes) +
                    ".\n\nThe list shows what is stored now.",
                kTitle);
  } else if (problems.ConfigList) {
    ShowWarning(owner, "Not all of the descriptions could be written.\nThe list shows what is stored now.",
                kTitle);
  }
}

}  // namespace

void OpenSchemeFile(HWND owner, const std::wstring& path, const std::function<void()>& reload) {
  const std::optional<std::string> known = ToCodePage(path);
  if (!known) {
    ShowWarning(owner,
                "The path of this file has characters that this program does not know.\n"
                "Please copy the file to a folder and a name without them, and open it there.",
                kTitle);
    return;
  }
  OpenedFile file;
  const Ending opened = Open(owner, *known, file);
  if (opened != Ending::kDone) return ShowEnding(owner, opened);
  if (!Choose(owner, file.Plan)) return;
  ImportProblems problems;
  const Ending loaded = Load(owner, file, reload, problems);
  ShowEnding(owner, loaded);
  ShowProblems(owner, problems);
}
