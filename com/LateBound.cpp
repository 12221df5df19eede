#include "com/LateBound.h"

#include <algorithm>
#include <cstdio>

#include "com/WideText.h"
#include "script/RunTimeFailure.h"

namespace cordboard::com {

namespace {

// What the object tells of its failure; the texts are owned.
struct Failure : EXCEPINFO {
  Failure() : EXCEPINFO{} {}
  ~Failure() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
  Failure(const Failure&) = delete;
  Failure& operator=(const Failure&) = delete;
};

std::string NumberText(HRESULT number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(number));
  return text;
}

// The description and the number in brackets, as "NANSI: no such table (0x80040E37)".
[[noreturn]] void Fail(const std::string& method, const std::string& description, const std::string& number) {
  throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, method + ": " + description + " (" + number + ")");
}

// Most objects tell of their failure and answer that they did; some answer with its number alone.
void Require(const std::string& method, HRESULT result, Failure& failure) {
  if (SUCCEEDED(result)) return;
  if (failure.pfnDeferredFillIn != nullptr) failure.pfnDeferredFillIn(&failure);
  const std::string description = FromBstr(failure.bstrDescription);
  const bool told = result == DISP_E_EXCEPTION;
  Fail(method, description.empty() ? "the host failed" : description,
       told && failure.wCode != 0 ? std::to_string(failure.wCode) : NumberText(told ? failure.scode : result));
}

}  // namespace

Variant CallByName(const Pointer<IDispatch>& object, const std::string& method, std::vector<Variant>& arguments) {
  // A call has its arguments from the last to the first.
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  const std::wstring wide = ToWide(method);
  LPOLESTR name = const_cast<LPOLESTR>(wide.c_str());
  DISPID id = DISPID_UNKNOWN;
  Variant result;
  Failure failure;

  const HRESULT known = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (SUCCEEDED(known)) {
    Require(method,
            object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result, &failure, nullptr),
            failure);
    return result;
  }
  // The object of a script class knows its names by the extended interface alone.
  const Pointer<IDispatchEx> extended = object.As<IDispatchEx>();
  Variant sought;
  sought.bstrVal = ToBstr(method);
  sought.vt = VT_BSTR;
  if (!extended || FAILED(extended->GetDispID(sought.bstrVal, fdexNameCaseInsensitive, &id)))
    Fail(method, "the host does not know the operation", NumberText(known));
  Require(method, extended->InvokeEx(id, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result, &failure, nullptr),
          failure);
  return result;
}

}  // namespace cordboard::com
