#include "registry_calls.h"

#include <windows.h>
#include <shlwapi.h>

#include <algorithm>
#include <map>
#include <string>

#include "app/start_up.h"
#include "machine.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/imported_calls.h"

namespace {

const std::initializer_list<ImportedFunction> kRegistryFunctions = {
    IMPORTED(RegCloseKey),      IMPORTED(RegCreateKeyExA),  IMPORTED(RegDeleteKeyA),
    IMPORTED(RegDeleteTreeA),   IMPORTED(RegDeleteValueA),  IMPORTED(RegEnumKeyA),
    IMPORTED(RegEnumKeyExA),    IMPORTED(RegEnumValueA),    IMPORTED(RegOpenKeyA),
    IMPORTED(RegOpenKeyExA),    IMPORTED(RegQueryValueExA), IMPORTED(RegQueryValueExW),
    IMPORTED(RegSetValueExA),   IMPORTED(RegSetValueExW),   IMPORTED(SHRegGetUSValueA),
    IMPORTED(SHRegSetUSValueW),
};

bool IsCounted(const std::string& function) {
  return std::ranges::any_of(kRegistryFunctions,
                             [&](const ImportedFunction& counted) { return function == counted.Name; });
}

bool AllAreCounted() {
  return std::ranges::all_of(ImportedFunctions(), [](const std::string& function) {
    return !(function.starts_with("Reg") || function.starts_with("SHReg")) || IsCounted(function);
  });
}

template <class Work>
void ReportCalls(Report& report, const char* what, Work work) {
  std::map<std::string, int> counts;
  {
    ImportedCalls calls(kRegistryFunctions);
    work();
    for (const std::string& line : calls.Lines())
      ++counts[line.substr(0, line.find(' '))];
  }
  int total = 0;
  std::string details;
  for (const auto& [name, count] : counts) {
    total += count;
    details += (details.empty() ? "" : ", ") + std::to_string(count) + " " + name;
  }
  report.Row("%s | %d | %s", what, total, details.c_str());
}

void ReportScheme(Report& report) {
  EmptyKey(kSchemesKey);
  WriteTree(MakeSchemes(1));
  const std::string name = "Scheme 001";
  const RegistryTree tree = ReadTree(SchemeKeyPath(name));
  const auto keys = std::ranges::count(tree, kKeyOnly, &RegistryValue::Type);

  report.Table("Registry calls of one scheme", "work | calls | of which");
  report.Row("keys and values that it has | %zu | %d keys, %d values", tree.size(), static_cast<int>(keys),
             static_cast<int>(std::ssize(tree) - keys));
  ReportCalls(report, "bare walk, reading", [&] { ReadTree(SchemeKeyPath(name)); });
  SchemeProperties scheme;
  scheme.Name = name;
  bool sound = true;
  ReportCalls(report, "load", [&] { sound &= LoadSchemeProperties(name, scheme) == Outcome::kComplete; });
  ReportCalls(report, "bare walk, writing", [&] { WriteTree(tree); });
  ReportCalls(report, "save", [&] { sound &= SaveSchemeProperties(name, scheme); });
  ReportCalls(report, "what is missing of a whole one", [&] { sound &= AddMissingProperties(name); });
  EmptyKey(SchemeKeyPath(name));
  ReportCalls(report, "save of a scheme that is new", [&] { sound &= SaveSchemeProperties(name, scheme); });
  report.Demand(sound && ReadTree(SchemeKeyPath(name)) == tree,
                "The scheme saved is not the one that was loaded.");
}

// Posted by a timer, WM_CLOSE comes when the window has painted itself.
void CALLBACK CloseActiveWindow(HWND, UINT, UINT_PTR, DWORD) {
  PostMessageA(GetActiveWindow(), WM_CLOSE, 0, 0);
}

void ReportStarts(Report& report) {
  report.Table("Registry calls of a start", "schemes | calls | of which");
  for (const int schemes : {4, 50, 400}) {
    EmptyKey(kSchemesKey);
    WriteTree(MakeSchemes(schemes));
    const UINT_PTR timer = SetTimer(nullptr, 0, 500, &CloseActiveWindow);
    ReportCalls(report, std::to_string(schemes).c_str(), [] { CSchemeManagerApp().InitInstance(); });
    KillTimer(nullptr, timer);
  }
}

}  // namespace

void ReportRegistryCalls(Report& report) {
  report.Demand(AllAreCounted(), "Not every registry call is counted.");
  ReportScheme(report);
  ReportStarts(report);
}
