#include "com/support/Client.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "com/Array.h"
#include "com/WideText.h"

namespace cordboard::com {

LoadedModule::LoadedModule() : module_(LoadLibraryW(L"cordboard.dll")) {
  if (module_ == nullptr) throw std::runtime_error("cordboard.dll cannot be loaded");
}

LoadedModule::~LoadedModule() { FreeLibrary(module_); }

FARPROC LoadedModule::Function(const char* name) const { return GetProcAddress(module_, name); }

HRESULT LoadedModule::Call(const char* function) const {
  return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(Function(function)))();
}

Pointer<IClassFactory> LoadedModule::Factory() const {
  const auto get = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
      reinterpret_cast<void*>(Function("DllGetClassObject")));
  Pointer<IClassFactory> factory;
  if (get(__uuidof(::CScript), __uuidof(IClassFactory), factory.ReceiveAny()) != S_OK)
    throw std::runtime_error("no class factory");
  return factory;
}

Pointer<_CScript> LoadedModule::NewScript() const {
  Pointer<_CScript> script;
  if (Factory()->CreateInstance(nullptr, __uuidof(_CScript), script.ReceiveAny()) != S_OK)
    throw std::runtime_error("no script object");
  return script;
}

std::string LastError() {
  Pointer<IErrorInfo> error;
  if (GetErrorInfo(0, error.Receive()) != S_OK) return "";
  Variant source;
  Variant description;
  source.vt = description.vt = VT_BSTR;
  source.bstrVal = description.bstrVal = nullptr;
  error->GetSource(&source.bstrVal);
  error->GetDescription(&description.bstrVal);
  return FromBstr(source.bstrVal) + ": " + FromBstr(description.bstrVal);
}

Outcome RunEarly(const Pointer<_CScript>& script, const char* FunctionName, const char* CmdName,
                 const List& ParamList) {
  LONG definition = 1;
  LONG id = 7;
  Variant release(Value("R8"));
  Variant function{Value(FunctionName)};
  Variant command{Value(CmdName)};
  Variant list = ToVariant(ParamList);
  Variant result;
  const HRESULT code =
      script->Run(&definition, &release.bstrVal, &function.bstrVal, &command.bstrVal, &id, &list, &result);
  return {code, ToValue(result), FAILED(code) ? LastError() : ""};
}

Outcome InvokeLate(const Pointer<_CScript>& script, const wchar_t* method, std::vector<Variant> arguments) {
  std::reverse(arguments.begin(), arguments.end());
  LPOLESTR name = const_cast<LPOLESTR>(method);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT known = script->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(known)) return {known, {}};
  DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  Variant result;
  EXCEPINFO failure{};
  Outcome outcome;
  outcome.code =
      script->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result, &failure, &outcome.wrong);
  outcome.value = ToValue(result);
  if (outcome.code == DISP_E_EXCEPTION) {
    outcome.code = failure.scode;
    outcome.failure = FromBstr(failure.bstrSource) + ": " + FromBstr(failure.bstrDescription);
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrHelpFile);
  }
  return outcome;
}

std::string Told(const Outcome& outcome) {
  if (SUCCEEDED(outcome.code)) return "";
  char number[16];
  std::snprintf(number, sizeof number, "%08lX ", static_cast<unsigned long>(outcome.code));
  return number + outcome.failure;
}

}  // namespace cordboard::com
