#include "com/ClassFactory.h"

#include "com/Failure.h"
#include "com/OwnModule.h"
#include "com/ScriptObject.h"

namespace cordboard::com {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory);
  *object = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) ClassFactory::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  HRESULT answer = S_OK;
  const HRESULT guarded = Guarded([&] {
    Pointer<ITypeLib> library;
    Pointer<ITypeInfo> type;
    answer = LoadOwnTypeLibrary(library);
    if (SUCCEEDED(answer)) answer = library->GetTypeInfoOfGuid(__uuidof(_CScript), type.Receive());
    if (SUCCEEDED(answer)) answer = Pointer<_CScript>(new ScriptObject(type))->QueryInterface(iid, object);
  });
  return FAILED(guarded) ? guarded : answer;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    InUse::Lock();
  } else {
    InUse::Unlock();
  }
  return S_OK;
}

}  // namespace cordboard::com
