#include "com/Failure.h"

#include <new>

#include "com/Interface.h"
#include "com/Pointer.h"
#include "com/WideText.h"

namespace cordboard::com {

namespace {

HRESULT Tell(HRESULT code, const std::string& description) noexcept {
  try {
    Pointer<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.Receive()))) return code;
    std::wstring text = ToWide(description);
    std::wstring source = L"Cordboard.CScript";
    made->SetGUID(__uuidof(_CScript));
    made->SetSource(source.data());
    made->SetDescription(text.data());
    SetErrorInfo(0, made.As<IErrorInfo>().get());
  } catch (...) {
    // Without words then.
  }
  return code;
}

}  // namespace

HRESULT ResultCode(RunTimeFailure::Cause cause) {
  const auto script_number = [](WORD number) { return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number); };
  using enum RunTimeFailure::Cause;
  switch (cause) {
    case InvalidCall: return script_number(5);
    case Overflow: return script_number(6);
    case SubscriptOutOfRange: return script_number(9);
    case TypeMismatch: return script_number(13);
    case NoHost: return script_number(91);
    case InvalidUseOfNull: return script_number(94);
    case HostFailure: return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x201);
  }
  return E_UNEXPECTED;
}

HRESULT Guarded(const std::function<void()>& work) noexcept {
  try {
    work();
    return S_OK;
  } catch (const RunTimeFailure& failure) {
    return Tell(ResultCode(failure.cause()), failure.what());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& failure) {
    return Tell(E_FAIL, failure.what());
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace cordboard::com
