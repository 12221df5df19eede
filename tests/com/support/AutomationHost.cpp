#include "com/support/AutomationHost.h"

#include <utility>

#include "com/Array.h"
#include "com/WideText.h"
#include "script/TracingHost.h"

namespace cordboard::com {

std::string ObjectCall::Text() const {
  std::string text;
  for (const VARIANT* argument : arguments) {
    if (argument->vt == VT_ERROR && argument->scode == DISP_E_PARAMNOTFOUND) continue;
    if (!text.empty()) text += ", ";
    if (argument->vt & VT_BYREF) {
      text += "out";
    } else if (argument->vt & VT_ARRAY) {
      text += TraceText(ToList(*argument));
    } else {
      text += TraceText(ToValue(*argument));
    }
  }
  return name + "(" + text + ")";
}

void ObjectCall::Give(std::size_t place, Variant value) const {
  VARIANT* out = arguments.at(place)->pvarVal;
  std::swap(static_cast<VARIANT&>(value), *out);
}

void ObjectCall::Answer(Variant value) const { std::swap(static_cast<VARIANT&>(value), *result); }

Pointer<AutomationHost> AutomationHost::Make(Answering answering) {
  return Pointer<AutomationHost>(new AutomationHost(std::move(answering)));
}

STDMETHODIMP AutomationHost::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch);
  *object = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) AutomationHost::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) AutomationHost::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP AutomationHost::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP AutomationHost::GetTypeInfo(UINT, LCID, ITypeInfo**) { return DISP_E_BADINDEX; }

STDMETHODIMP AutomationHost::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  const std::string name = FromWide(names[0]);
  if (!answering_) return DISP_E_UNKNOWNNAME;
  names_.push_back(name);
  ids[0] = static_cast<DISPID>(names_.size() - 1);
  return S_OK;
}

STDMETHODIMP AutomationHost::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                                    EXCEPINFO* failure, UINT*) {
  if (flags != DISPATCH_METHOD || given->cNamedArgs != 0) return DISP_E_MEMBERNOTFOUND;
  ObjectCall call{names_.at(id), {}, result, failure};
  for (UINT index = given->cArgs; index > 0; --index) call.arguments.push_back(&given->rgvarg[index - 1]);
  return answering_(call);
}

Pointer<AutomationHost> AgreeingHost() {
  return AutomationHost::Make([](const ObjectCall& call) {
    call.Answer(Variant(Value(true)));
    return S_OK;
  });
}

Variant Rows(const std::vector<std::vector<Value>>& columns, LONG lower_column, LONG lower_row) {
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(columns.size()), lower_column},
                             {static_cast<ULONG>(columns.front().size()), lower_row}};
  Variant rows;
  rows.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  rows.vt = VT_ARRAY | VT_VARIANT;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    for (std::size_t row = 0; row < columns[column].size(); ++row) {
      LONG index[] = {lower_column + static_cast<LONG>(column), lower_row + static_cast<LONG>(row)};
      Variant cell(columns[column][row]);
      SafeArrayPutElement(rows.parray, index, &cell);
    }
  }
  return rows;
}

}  // namespace cordboard::com
