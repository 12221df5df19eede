#include "com/ScriptObject.h"

#include <memory>

#include "com/Array.h"
#include "com/DispatchHost.h"
#include "com/Failure.h"
#include "com/LateCall.h"
#include "com/WideText.h"

namespace cordboard::com {

STDMETHODIMP ScriptObject::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(_CScript)) {
    *object = static_cast<_CScript*>(this);
  } else if (iid == __uuidof(ISupportErrorInfo)) {
    *object = static_cast<ISupportErrorInfo*>(this);
  } else {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ScriptObject::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) ScriptObject::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    // The end drops the host, which may take and return references to this object once more.
    references_ = 1;
    delete this;
  }
  return left;
}

STDMETHODIMP ScriptObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP ScriptObject::GetTypeInfo(UINT index, LCID, ITypeInfo** type) {
  if (type == nullptr) return E_POINTER;
  *type = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  *type = type_.get();
  (*type)->AddRef();
  return S_OK;
}

STDMETHODIMP ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  return type_->GetIDsOfNames(names, count, ids);
}

STDMETHODIMP ScriptObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                                  EXCEPINFO* failure, UINT* wrong) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (given == nullptr) return E_POINTER;
  const Pointer<_CScript> self(this);
  HRESULT answer = S_OK;
  const HRESULT guarded = Guarded([&] {
    answer = Perform(type_.get(), static_cast<_CScript*>(this), {id, flags, given, result, failure, wrong});
  });
  return FAILED(guarded) ? guarded : answer;
}

STDMETHODIMP ScriptObject::Run(LONG* Definition, BSTR* oaRelease, BSTR* FunctionName, BSTR* CmdName, LONG* CmdId,
                               VARIANT* ParamList, VARIANT* Result) {
  if (!Definition || !oaRelease || !FunctionName || !CmdName || !CmdId || !ParamList || !Result) return E_POINTER;
  VariantInit(Result);
  const Pointer<_CScript> self(this);
  return Guarded([&] {
    const bool truth = script_.Run(*Definition, FromBstr(*oaRelease), FromBstr(*FunctionName), FromBstr(*CmdName),
                                   *CmdId, ToList(*ParamList));
    Result->boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    Result->vt = VT_BOOL;
  });
}

STDMETHODIMP ScriptObject::AddObject(IDispatch* MMLObj) {
  const Pointer<_CScript> self(this);
  return Guarded([&] {
    if (MMLObj == nullptr) return script_.Destroy();
    script_.AddObject(std::make_shared<DispatchHost>(Pointer<IDispatch>(MMLObj)));
  });
}

STDMETHODIMP ScriptObject::Destroy() {
  const Pointer<_CScript> self(this);
  return Guarded([&] { script_.Destroy(); });
}

STDMETHODIMP ScriptObject::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == __uuidof(_CScript) || iid == __uuidof(IDispatch) ? S_OK : S_FALSE;
}

}  // namespace cordboard::com
