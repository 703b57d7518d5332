// A real environment component, served by this process (CoRegisterClassObject) while the object lives.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

#include <functional>

// Its own class factory: nobody calls the two entries of a factory at the component, of whose entries after
// those of IUnknown the eighth counts.
class EnvironmentComponent : IClassFactory {
 public:
  using Operation = std::function<HRESULT(LONG* code)>;

  explicit EnvironmentComponent(Operation operation) : operation_(std::move(operation)) {
    CoInitialize(nullptr);
    CLSID id;
    CLSIDFromString(L"{E656B628-C6DD-4125-931C-5FCA10F47A42}", &id);
    CoRegisterClassObject(id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
  }
  ~EnvironmentComponent() {
    CoRevokeClassObject(registration_);
    CoUninitialize();
    EXPECT_EQ(references_, 0u) << "the component was not released";
  }

 private:
  HRESULT WINAPI QueryInterface(REFIID, void** object) override { return AddRef(), *object = this, S_OK; }
  ULONG WINAPI AddRef() override { return ++references_; }
  ULONG WINAPI Release() override { return --references_; }
  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** object) override {
    IID component;
    IIDFromString(L"{99545BF5-91B6-4994-BBE1-31FD171291D3}", &component);
    return id == component ? QueryInterface(id, object) : E_NOINTERFACE;
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
  // A call of another leaves the code as it was.
  virtual void WINAPI Third() {}
  virtual void WINAPI Fourth() {}
  virtual void WINAPI Fifth() {}
  virtual void WINAPI Sixth() {}
  virtual void WINAPI Seventh() {}
  virtual HRESULT WINAPI Eighth(LONG* code) { return operation_(code); }

  const Operation operation_;
  ULONG references_ = 0;
  DWORD registration_ = 0;
};
