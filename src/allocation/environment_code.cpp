#include "allocation/environment_code.h"

#include <windows.h>

#include <oaidl.h>
#include <objbase.h>

#include <csetjmp>
#include <memory>

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

class ComApartment {
 public:
  ComApartment() : initialised_(SUCCEEDED(CoInitialize(nullptr))) {}
  ~ComApartment() {
    if (initialised_) CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  const bool initialised_;
};

struct Releaser {
  void operator()(IUnknown* object) const { object->Release(); }
};

std::jmp_buf g_beforeCall;

LONG WINAPI GiveUpCall(EXCEPTION_POINTERS*) { std::longjmp(g_beforeCall, 1); }

// Asks for the code, whatever status comes with it. False when the call threw. What a component of another
// compiler throws passes the catch clauses of this one: it comes out as an unhandled exception.
bool AskForCode(IEnvironment& environment, LONG& code) {
  const auto before = SetUnhandledExceptionFilter(&GiveUpCall);
  bool answered = false;
  if (setjmp(g_beforeCall) == 0) {
    try {
      environment.GetEnvironmentCode(&code);
      answered = true;
    } catch (...) {
    }
  }
  SetUnhandledExceptionFilter(before);
  return answered;
}

}  // namespace

int QueryEnvironmentCode() {
  const ComApartment apartment;
  void* created = nullptr;
  if (FAILED(CoCreateInstance(kEnvironmentClass, nullptr, kAnyServer, kEnvironmentInterface, &created)))
    return kUnknownEnvironment;
  const std::unique_ptr<IEnvironment, Releaser> environment(static_cast<IEnvironment*>(created));
  LONG code = kUnknownEnvironment;
  return AskForCode(*environment, code) ? code : kUnknownEnvironment;
}
