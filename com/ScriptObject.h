// The class CScript of the type library: cordboard::CScript for callers of the component object model.
#pragma once

#include <atomic>

#include "com/InUse.h"
#include "com/Interface.h"
#include "com/Pointer.h"
#include "entry/CScript.h"

namespace cordboard::com {

// Every method that runs code of the library or its host holds the object, which the host may let go meanwhile.
class ScriptObject final : public _CScript, public ISupportErrorInfo {
 public:
  // `type` describes _CScript.
  explicit ScriptObject(Pointer<ITypeInfo> type) : type_(std::move(type)) {}
  virtual ~ScriptObject() = default;

  STDMETHOD(QueryInterface)(REFIID iid, void** object) override;
  STDMETHOD_(ULONG, AddRef)() override;
  STDMETHOD_(ULONG, Release)() override;

  STDMETHOD(GetTypeInfoCount)(UINT* count) override;
  STDMETHOD(GetTypeInfo)(UINT index, LCID locale, ITypeInfo** type) override;
  STDMETHOD(GetIDsOfNames)(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHOD(Invoke)
  (DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result, EXCEPINFO* failure,
   UINT* wrong) override;

  STDMETHOD(Run)
  (LONG* Definition, BSTR* oaRelease, BSTR* FunctionName, BSTR* CmdName, LONG* CmdId, VARIANT* ParamList,
   VARIANT* Result) override;
  STDMETHOD(AddObject)(IDispatch* MMLObj) override;
  STDMETHOD(Destroy)() override;

  STDMETHOD(InterfaceSupportsErrorInfo)(REFIID iid) override;

 private:
  InUse in_use_;
  std::atomic<ULONG> references_ = 0;
  Pointer<ITypeInfo> type_;
  CScript script_;
};

}  // namespace cordboard::com
