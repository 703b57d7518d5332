#include "schemefile/exchange.h"

#include <utility>

#include "controls/message.h"
#include "controls/progress_bar.h"
#include "model/property_records.h"
#include "model/scheme_storage.h"
#include "schemefile/records/record_store.h"

namespace {

// One step for the config list and one for each scheme.
CProgressBar OpenProgress(HWND owner, std::size_t schemes, const char* text) {
  return CProgressBar(owner, 0, static_cast<int>(schemes) + 1, 1, text, "Kelvanstead Scheme Manager",
                      "Cancel", 0);
}

}  // namespace

void ExportSchemes(HWND owner, const SchemeHive& hive) {
  RecordStore& store = TheRecordStore();
  store.ClearRecordStore();
  CProgressBar progress = OpenProgress(owner, hive.Schemes.size(), "Saving your file to disk");
  progress.SetAllowCancel(false);
  hive.Config.WriteToFile();
  progress.Step();
  WriteSchemeCount(store, hive.Schemes.size());
  WriteSchemes(store, hive.Schemes, [&progress] { progress.Step(); });
  if (store.ExportFailed) ShowExportProblem(nullptr);
}

void ImportSchemes(HWND owner, SchemeHive& hive) {
  RecordStore& store = TheRecordStore();
  store.Fill(std::move(hive.Records));
  hive.Records.Clear();
  const std::int32_t count = ReadSchemeCount(store);
  CProgressBar progress = OpenProgress(owner, count, "Loading your file from disk");
  progress.SetAllowCancel(false);
  // The count stands behind the config list, which is read next.
  store.ResetReadCursor();
  hive.Config.ReadFromFile();
  progress.Step();
  hive.Schemes = ReadSchemes(store, count, [&progress] { progress.Step(); });
  if (store.ImportFailed) {
    ShowWarning(nullptr,
                "There was a problem importing your schemes file.\n"
                "This may be due to the disk being corrupt or protected.\n"
                "\n"
                "If the file appears to have been imported the settings should not be relied \n"
                "upon as correct",
                "Import Problem");
  }
}

void ApplyImport(const SchemeHive& hive) {
  // A pair or a scheme that cannot be written is not reported; the rest is written all the same.
  (void)hive.Config.SaveToRegistry();
  (void)SaveSchemes(hive.Schemes);
}

void ShowExportProblem(HWND owner) {
  ShowWarning(owner,
              "There was a problem exporting your schemes file.\n"
              "This may be due to the disk being full, corrupt or protected.\n"
              "\n"
              "If the file appears to have been created it should not be\n"
              "relied upon as correct",
              "Export Problem");
}
