// A C++ program that uses cordboard.dll, as it stands beside the test program.
#pragma once

#include <string>
#include <vector>

#include "com/Interface.h"
#include "com/Pointer.h"
#include "com/Variant.h"
#include "script/List.h"

namespace cordboard::com {

// The module, loaded without being registered and freed at the end.
class LoadedModule {
 public:
  LoadedModule();
  ~LoadedModule();
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  Pointer<IClassFactory> Factory() const;
  Pointer<_CScript> NewScript() const;
  HRESULT Call(const char* function) const;  // one of those without arguments
  bool CanUnloadNow() const { return Call("DllCanUnloadNow") == S_OK; }
  FARPROC Function(const char* name) const;

 private:
  HMODULE module_;
};

// What a call gave: the result code, the value, and what it told of its failure.
struct Outcome {
  HRESULT code = S_OK;
  Value value;
  std::string failure{};
  UINT wrong = 99;
};

// Early bound, with definition 1 and release "R8".
Outcome RunEarly(const Pointer<_CScript>& script, const char* FunctionName, const char* CmdName, const List& ParamList);
// Late bound, arguments in their own order.
Outcome InvokeLate(const Pointer<_CScript>& script, const wchar_t* method, std::vector<Variant> arguments);

// What GetErrorInfo tells: source and description.
std::string LastError();

// The code and the words of a failure, "" for none.
std::string Told(const Outcome& outcome);

}  // namespace cordboard::com
