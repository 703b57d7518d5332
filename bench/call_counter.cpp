#include "call_counter.h"

#include <windows.h>

#include <cstddef>
#include <cstring>

namespace {

extern int counts[];

template <int Index, class Function>
struct Counted;

template <int Index, class... Arguments>
struct Counted<Index, LSTATUS WINAPI(Arguments...)> {
  static inline LSTATUS(WINAPI* original)(Arguments...) = nullptr;
  static LSTATUS WINAPI Call(Arguments... arguments) {
    ++counts[Index];
    return original(arguments...);
  }
};

struct Function {
  const char* Name;
  void* Replacement;
  void** Original;
};

template <int Index, class Signature>
Function Count(const char* name) {
  using Counter = Counted<Index, Signature>;
  return {name, reinterpret_cast<void*>(&Counter::Call), reinterpret_cast<void**>(&Counter::original)};
}
#define COUNTED(name) Count<__COUNTER__, decltype(name)>(#name)

const Function kFunctions[] = {
    COUNTED(RegCloseKey),     COUNTED(RegCreateKeyExA), COUNTED(RegDeleteKeyA),    COUNTED(RegDeleteTreeA),
    COUNTED(RegDeleteValueA), COUNTED(RegEnumKeyA),     COUNTED(RegEnumKeyExA),    COUNTED(RegEnumValueA),
    COUNTED(RegOpenKeyA),     COUNTED(RegOpenKeyExA),   COUNTED(RegQueryValueExA), COUNTED(RegSetValueExA),
};

int counts[std::size(kFunctions)];

const Function* FindFunction(const char* name) {
  for (const Function& function : kFunctions) {
    if (std::strcmp(function.Name, name) == 0) return &function;
  }
  return nullptr;
}

bool Divert(IMAGE_THUNK_DATA* slot, const char* name) {
  if (std::strncmp(name, "Reg", 3) != 0) return true;
  const Function* function = FindFunction(name);
  DWORD protection;
  if (!function || !VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) return false;
  *function->Original = reinterpret_cast<void*>(slot->u1.Function);
  slot->u1.Function = reinterpret_cast<ULONG_PTR>(function->Replacement);
  return true;
}

}  // namespace

bool StartCounting() {
  auto* base = reinterpret_cast<BYTE*>(GetModuleHandleA(nullptr));
  const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
  const auto* header = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const DWORD imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports); library->Name; ++library) {
    if (lstrcmpiA(reinterpret_cast<char*>(base + library->Name), "advapi32.dll") != 0) continue;
    auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; names->u1.AddressOfData; ++names, ++slots) {
      const auto* import = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      if (!Divert(slots, reinterpret_cast<const char*>(import->Name))) return false;
    }
  }
  return true;
}

std::map<std::string, int> CallCounts() {
  std::map<std::string, int> calls;
  for (std::size_t i = 0; i < std::size(kFunctions); ++i) {
    if (counts[i]) calls[kFunctions[i].Name] = counts[i];
  }
  return calls;
}

void ResetCounts() { std::memset(counts, 0, sizeof(counts)); }
