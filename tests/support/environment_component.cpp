#include "support/environment_component.h"

#include <gtest/gtest.h>

namespace {

CLSID ClassId() {
  CLSID id;
  CLSIDFromString(L"{E656B628-C6DD-4125-931C-5FCA10F47A42}", &id);
  return id;
}

IID InterfaceId() {
  IID id;
  IIDFromString(L"{99545BF5-91B6-4994-BBE1-31FD171291D3}", &id);
  return id;
}

// Entries of an interface that nobody is to call.
HRESULT Unexpected() {
  ADD_FAILURE() << "a call of another operation of the component";
  return E_NOTIMPL;
}

// The interface as its maker's compiler lays it out: eight entries follow the three of IUnknown.
struct IEntries : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) { return Unexpected(); }
  virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) { return Unexpected(); }
  virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return Unexpected();
  }
  virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                           UINT*) {
    return Unexpected();
  }
  virtual HRESULT STDMETHODCALLTYPE Fifth() { return Unexpected(); }
  virtual HRESULT STDMETHODCALLTYPE Sixth() { return Unexpected(); }
  virtual HRESULT STDMETHODCALLTYPE Seventh() { return Unexpected(); }
  virtual HRESULT STDMETHODCALLTYPE Eighth(LONG* code) = 0;
};

// Counts references for the test's sake; the component owns the object.
template <class Interface>
class Counted : public Interface {
 public:
  explicit Counted(REFIID id) : id_(id) {}
  ULONG References() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == id_ || id == IID_IUnknown;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

 private:
  const IID id_;
  ULONG references_ = 0;
};

}  // namespace

class EnvironmentComponent::Object : public Counted<IEntries> {
 public:
  explicit Object(Operation operation) : Counted(InterfaceId()), operation_(std::move(operation)) {}
  HRESULT STDMETHODCALLTYPE Eighth(LONG* code) override { return operation_(code); }

 private:
  const Operation operation_;
};

class EnvironmentComponent::Factory : public Counted<IClassFactory> {
 public:
  explicit Factory(Object* object) : Counted(IID_IClassFactory), object_(object) {}
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return object_->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  Object* const object_;
};

EnvironmentComponent::EnvironmentComponent(Operation operation)
    : object_(std::make_unique<Object>(std::move(operation))),
      factory_(std::make_unique<Factory>(object_.get())) {
  CoInitialize(nullptr);
  EXPECT_EQ(CoRegisterClassObject(ClassId(), factory_.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                  &registration_),
            S_OK);
}

EnvironmentComponent::~EnvironmentComponent() {
  CoRevokeClassObject(registration_);
  CoUninitialize();
  EXPECT_EQ(object_->References(), 0u) << "the component was not released";
}
