// The environment component of the sample school: an in-process COM server that tells the code of a machine
// whose classes and users Tallowby and Benchspace know. With it the allocation window lists them; without it
// the scheme is a setting of each user.
#include <windows.h>

#include <oaidl.h>
#include <unknwn.h>

namespace {

constexpr DWORD kTallowbyAndBenchspace = 6;

// The code is another one where the machine states so.
LONG Code() {
  DWORD code = kTallowbyAndBenchspace, size = sizeof(code);
  RegGetValueA(HKEY_LOCAL_MACHINE, "Software\\Tessaly\\Tallowby", "Environment Code", RRF_RT_REG_DWORD,
               nullptr, &code, &size);
  return static_cast<LONG>(code);
}

// One object for the class and its factory, never destroyed.
struct Environment : IDispatch {
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }
  virtual HRESULT STDMETHODCALLTYPE Unused1() { return E_NOTIMPL; }
  virtual HRESULT STDMETHODCALLTYPE Unused2() { return E_NOTIMPL; }
  virtual HRESULT STDMETHODCALLTYPE Unused3() { return E_NOTIMPL; }
  virtual HRESULT STDMETHODCALLTYPE GetEnvironmentCode(LONG* code) {
    *code = Code();
    return S_OK;
  }
};

struct Factory : IClassFactory {
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** object) override {
    static Environment environment;
    *object = &environment;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID, REFIID, void** object) {
  static Factory factory;
  *object = &factory;
  return S_OK;
}
