#include "allocation/environment_code.h"

#include <windows.h>

#include <oaidl.h>

#include "allocation/guarded_call.h"
#include "base/com_apartment.h"

// The component's interface. Only the place of the one operation that is called matters: the other three are
// there to keep it. Not in the unnamed namespace: the compiler would see that nothing here implements it, and
// call nothing.
struct IEnvironment : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE Unused1() = 0;
  virtual HRESULT STDMETHODCALLTYPE Unused2() = 0;
  virtual HRESULT STDMETHODCALLTYPE Unused3() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetEnvironmentCode(LONG* code) = 0;
};

namespace {

constexpr CLSID kEnvironmentClass = {
    0xE656B628, 0xC6DD, 0x4125, {0x93, 0x1C, 0x5F, 0xCA, 0x10, 0xF4, 0x7A, 0x42}};
constexpr IID kEnvironmentInterface = {
    0x99545BF5, 0x91B6, 0x4994, {0xBB, 0xE1, 0x31, 0xFD, 0x17, 0x12, 0x91, 0xD3}};

constexpr DWORD kAnyServer = CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER;

// Calls the component's code. False when it threw, crashes included.
template <class Function>
bool Guarded(Function function) {
  struct Call {
    Function& Run;
    bool Done = false;
  } call{function};
  const bool returned = CallGuarded(
      [](void* argument) {
        auto& [run, done] = *static_cast<Call*>(argument);
        try {
          run();
          done = true;
        } catch (...) {
        }
      },
      &call);
  return returned && call.Done;
}

}  // namespace

int QueryEnvironmentCode() {
  const ComApartment apartment;
  IEnvironment* environment = nullptr;
  const bool created = Guarded([&] {
    void* object = nullptr;
    if (SUCCEEDED(CoCreateInstance(kEnvironmentClass, nullptr, kAnyServer, kEnvironmentInterface, &object)))
      environment = static_cast<IEnvironment*>(object);
  });
  if (!created || !environment) return kUnknownEnvironment;
  // Whatever status comes with it, the code counts.
  LONG code = kUnknownEnvironment;
  const bool told = Guarded([&] { environment->GetEnvironmentCode(&code); });
  // What it said before counts, even if it throws now.
  (void)Guarded([&] { environment->Release(); });
  return told ? code : kUnknownEnvironment;
}
