// The four functions by which the platform uses the module as an in-process server.

#include "com/ClassFactory.h"
#include "com/Failure.h"
#include "com/InUse.h"
#include "com/Interface.h"
#include "com/PlainBox.h"
#include "com/Pointer.h"
#include "com/Registration.h"
#include "com/WideText.h"
#include "script/CommandLine.h"
#include "script/MessageBox.h"

namespace com = cordboard::com;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (clsid != __uuidof(::CScript)) return CLASS_E_CLASSNOTAVAILABLE;
  HRESULT answer = S_OK;
  const HRESULT guarded = com::Guarded([&] {
    // The library's own ways are a line on standard error, and a list that this system does not have.
    static const cordboard::MessageBoxHook box = cordboard::SetMessageBox(com::ShowPlainBox);
    static const cordboard::CommandLineHook line =
        cordboard::SetCommandLine([] { return com::FromWide(GetCommandLineW()); });
    answer = com::Pointer<IClassFactory>(new com::ClassFactory)->QueryInterface(iid, object);
  });
  return FAILED(guarded) ? guarded : answer;
}

STDAPI DllCanUnloadNow() { return com::InUse::Any() ? S_FALSE : S_OK; }

// For all users where this process may write for them, otherwise for the current user.
STDAPI DllRegisterServer() {
  HRESULT answer = E_UNEXPECTED;
  const HRESULT guarded = com::Guarded([&] {
    answer = com::Register(HKEY_LOCAL_MACHINE);
    if (answer == HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED)) answer = com::Register(HKEY_CURRENT_USER);
  });
  return FAILED(guarded) ? guarded : answer;
}

// Both places, as it is not known which was written.
STDAPI DllUnregisterServer() {
  HRESULT answer = E_UNEXPECTED;
  const HRESULT guarded = com::Guarded([&] {
    const HRESULT user = com::Unregister(HKEY_CURRENT_USER);
    const HRESULT machine = com::Unregister(HKEY_LOCAL_MACHINE);
    answer = FAILED(user) ? user : machine;
  });
  return FAILED(guarded) ? guarded : answer;
}
