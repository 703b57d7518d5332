// A real environment component, served by this process (CoRegisterClassObject) while the object lives.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <oaidl.h>
#include <objbase.h>

#include <functional>

// The component's interface: eight entries after those of IUnknown, and the last of them counts.
struct IEnvironmentComponent : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE Fifth() = 0;
  virtual HRESULT STDMETHODCALLTYPE Sixth() = 0;
  virtual HRESULT STDMETHODCALLTYPE Seventh() = 0;
  virtual HRESULT STDMETHODCALLTYPE Eighth(LONG* code) = 0;
};

class EnvironmentComponent final : IClassFactory, IEnvironmentComponent {
 public:
  using Operation = std::function<HRESULT(LONG* code)>;

  explicit EnvironmentComponent(Operation operation) : operation_(std::move(operation)) {
    CoInitialize(nullptr);
    CLSID id;
    CLSIDFromString(L"{E656B628-C6DD-4125-931C-5FCA10F47A42}", &id);
    IClassFactory* factory = this;
    EXPECT_EQ(CoRegisterClassObject(id, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_),
              0);
  }
  ~EnvironmentComponent() {
    CoRevokeClassObject(registration_);
    CoUninitialize();
    EXPECT_EQ(references_, 0u) << "the component was not released";
  }

 private:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    IID component;
    IIDFromString(L"{99545BF5-91B6-4994-BBE1-31FD171291D3}", &component);
    *object = nullptr;
    if (id == component) *object = static_cast<IEnvironmentComponent*>(this);
    if (id == IID_IUnknown || id == IID_IClassFactory) *object = static_cast<IClassFactory*>(this);
    return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  // A call of any other entry fails in the caller: the code stays as it was.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Fifth() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Sixth() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Seventh() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Eighth(LONG* code) override { return operation_(code); }

  const Operation operation_;
  ULONG references_ = 0;
  DWORD registration_ = 0;
};
