// A real environment component, served by this process while the object lives.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <functional>
#include <utility>

// It is its own class factory: nobody calls the two entries of a factory at the component, of whose entries
// after those of IUnknown the eighth counts. Without a call there is no component.
struct EnvironmentComponent : IClassFactory {
  static constexpr CLSID kClass{0xE656B628, 0xC6DD, 0x4125, {0x93, 0x1C, 0x5F, 0xCA, 0x10, 0xF4, 0x7A, 0x42}};
  static constexpr IID kInterface{
      0x99545BF5, 0x91B6, 0x4994, {0xBB, 0xE1, 0x31, 0xFD, 0x17, 0x12, 0x91, 0xD3}};

  using Call = std::function<HRESULT(LONG* code)>;
  explicit EnvironmentComponent(Call call) : call_(std::move(call)) {
    CoInitialize(nullptr);
    if (call_) CoRegisterClassObject(kClass, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
  }
  ~EnvironmentComponent() {
    CoRevokeClassObject(registration_);
    CoUninitialize();
  }

  HRESULT WINAPI QueryInterface(REFIID, void** object) override { return AddRef(), *object = this, S_OK; }
  ULONG WINAPI AddRef() override { return 2; }
  ULONG WINAPI Release() override { return 1; }
  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** object) override {
    return id == kInterface ? QueryInterface(id, object) : E_NOINTERFACE;
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
  // A call of another leaves the code as it was.
  virtual void WINAPI Third() {}
  virtual void WINAPI Fourth() {}
  virtual void WINAPI Fifth() {}
  virtual void WINAPI Sixth() {}
  virtual void WINAPI Seventh() {}
  virtual HRESULT WINAPI Eighth(LONG* code) { return call_(code); }

 private:
  const Call call_;
  DWORD registration_ = 0;
};
