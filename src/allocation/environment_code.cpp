#include "allocation/environment_code.h"

#include <windows.h>

#include <oaidl.h>
#include <objbase.h>

#include <memory>

// The component's interface. Only the place of the one operation that is called matters: the other three are
// there to keep it. Not in the
// unnamed namespace: the compiler would see that nothing here implements it, and call nothing.
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

}  // namespace

int QueryEnvironmentCode() {
  LONG code = kUnknownEnvironment;
  const ComApartment apartment;
  try {
    void* created = nullptr;
    if (FAILED(CoCreateInstance(kEnvironmentClass, nullptr, CLSCTX_SERVER, kEnvironmentInterface, &created)))
      return kUnknownEnvironment;
    const std::unique_ptr<IEnvironment, Releaser> environment(static_cast<IEnvironment*>(created));
    environment->GetEnvironmentCode(&code);  // whatever it answers, what counts is the code
    return code;
  } catch (...) {
    return kUnknownEnvironment;
  }
}
