#include "com/LateCall.h"

#include <vector>

#include "com/Variant.h"

namespace cordboard::com {

namespace {

// The description of one method, returned to its owner at the end.
class Method {
 public:
  Method(ITypeInfo* type, DISPID id) : type_(type) {
    for (UINT index = 0; SUCCEEDED(type->GetFuncDesc(index, &description_)); ++index) {
      if (description_->memid == id) return;
      type->ReleaseFuncDesc(description_);
    }
    description_ = nullptr;
  }
  ~Method() {
    if (description_ != nullptr) type_->ReleaseFuncDesc(description_);
  }
  Method(const Method&) = delete;
  Method& operator=(const Method&) = delete;

  // The type of an argument, VT_BYREF with it where it is declared as a reference; VT_EMPTY where there is none.
  VARTYPE TypeOf(UINT position) const {
    if (description_ == nullptr || position >= static_cast<UINT>(description_->cParams)) return VT_EMPTY;
    const ELEMDESC& parameter = description_->lprgelemdescParam[position];
    if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) return VT_EMPTY;
    const TYPEDESC& type = parameter.tdesc;
    if (type.vt != VT_PTR) return type.vt;
    // A pointer to an interface is the object itself.
    const VARTYPE target = type.lptdesc->vt;
    return target == VT_USERDEFINED ? VARTYPE{VT_DISPATCH} : static_cast<VARTYPE>(target | VT_BYREF);
  }

 private:
  ITypeInfo* type_;
  FUNCDESC* description_ = nullptr;
};

// Named arguments stand first and tell their positions; the others follow, from the last to the first.
UINT PositionOf(const DISPPARAMS& given, UINT index) {
  return index < given.cNamedArgs ? static_cast<UINT>(given.rgdispidNamedArgs[index]) : given.cArgs - 1 - index;
}

// The content of `source` in the type `type`.
HRESULT Convert(VARIANT& target, const VARIANT& source, VARTYPE type) {
  const HRESULT copied = VariantCopyInd(&target, Read(source));
  if (FAILED(copied) || type == VT_VARIANT) return copied;
  return VariantChangeType(&target, &target, 0, type);
}

// What is handed to the method: the content, or a reference to it.
Variant Argument(Variant& content, VARTYPE declared) {
  if (declared == (VT_BYREF | VT_VARIANT)) return Variant::ReferenceTo(content);
  Variant argument;
  if (declared & VT_BYREF) {
    argument.byref = &content.llVal;
    argument.vt = declared;
  } else {
    VariantCopy(&argument, &content);
  }
  return argument;
}

}  // namespace

HRESULT Perform(ITypeInfo* type, void* object, const LateCall& call) {
  const Method method(type, call.method);
  const DISPPARAMS& given = *call.given;
  std::vector<Variant> contents(given.cArgs);
  std::vector<Variant> arguments;
  for (UINT index = 0; index < given.cArgs; ++index) {
    const VARTYPE declared = method.TypeOf(PositionOf(given, index));
    if (declared == VT_EMPTY) return DISP_E_BADPARAMCOUNT;
    const HRESULT converted = Convert(contents[index], given.rgvarg[index], static_cast<VARTYPE>(declared & ~VT_BYREF));
    if (FAILED(converted)) {
      if (call.wrong != nullptr) *call.wrong = index;
      return converted;
    }
    arguments.push_back(Argument(contents[index], declared));
  }
  DISPPARAMS params{arguments.data(), given.rgdispidNamedArgs, given.cArgs, given.cNamedArgs};
  return type->Invoke(object, call.method, call.flags, &params, call.result, call.failure, call.wrong);
}

}  // namespace cordboard::com
