#include "support/imported_calls.h"

#include <stdexcept>

namespace {

ImportedCalls* g_calls = nullptr;

// Calls `visit` with the name of each function that this program imports and the place of its address.
template <class Visit>
void ForEachImport(Visit visit) {
  auto* base = reinterpret_cast<BYTE*>(GetModuleHandleA(nullptr));
  const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
  const auto* header = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const DWORD imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports); library->Name; ++library) {
    auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; names->u1.AddressOfData; ++names, ++slots) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* import = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      visit(std::string(reinterpret_cast<const char*>(import->Name)),
            reinterpret_cast<void**>(&slots->u1.Function));
    }
  }
}

// Where the address of an imported function stands, null when this program does not import it.
void** FindSlot(const char* function) {
  void** found = nullptr;
  ForEachImport([&](const std::string& name, void** slot) {
    if (name == function) found = slot;
  });
  return found;
}

void* Exchange(void** slot, void* function) {
  DWORD protection = 0;
  if (!VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection))
    throw std::runtime_error("the import table is read only");
  return std::exchange(*slot, function);
}

}  // namespace

std::vector<std::string> ImportedFunctions() {
  std::vector<std::string> functions;
  ForEachImport([&](const std::string& name, void**) { functions.push_back(name); });
  return functions;
}

Diversion::Diversion(const char* function, void* replacement) : slot_(FindSlot(function)) {
  if (!slot_) throw std::runtime_error(std::string("not imported: ") + function);
  original_ = Exchange(slot_, replacement);
}

Diversion::~Diversion() { *slot_ = original_; }

ImportedCalls::ImportedCalls(std::initializer_list<ImportedFunction> functions) {
  if (g_calls) throw std::logic_error("calls are watched already");
  for (const ImportedFunction& function : functions)
    *function.Original = diversions_.emplace_back(function.Name, function.Watcher).Original();
  g_calls = this;
}

ImportedCalls::~ImportedCalls() { g_calls = nullptr; }

void ImportedCalls::FailNth(int n, DWORD error) {
  untilFailure_ = n;
  error_ = error;
}

void ImportedCalls::FailEach(std::string text, DWORD error) {
  failingText_ = std::move(text);
  error_ = error;
}

DWORD ImportedCalls::OnCall(std::string line) {
  if (!g_calls) return 0;
  ImportedCalls& calls = *g_calls;
  const bool named = !calls.failingText_.empty() && line.find(calls.failingText_) != line.npos;
  const bool counted = calls.untilFailure_ > 0 && --calls.untilFailure_ == 0;
  calls.lines_.push_back(std::move(line));
  if (!named && !counted) return 0;
  ++calls.failures_;
  return calls.error_;
}

bool imported_calls::FailsByMinusOne(const std::string& function) {
  constexpr const char* kFunctions[] = {
      "CreateFileA",        "CreateFileW",        "CreateToolhelp32Snapshot",
      "FindFirstFileA",     "FindFirstFileW",     "FindFirstFileExA",
      "GetFileAttributesA", "GetFileAttributesW", "SetFilePointer",
  };
  return std::ranges::find(kFunctions, function) != std::end(kFunctions);
}
