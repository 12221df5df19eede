// A call that arrives by name and number, as script languages make it.
#pragma once

#include "com/Platform.h"

namespace cordboard::com {

// Everything that such a call brings and takes back.
struct LateCall {
  DISPID method;
  WORD flags;
  const DISPPARAMS* given;
  VARIANT* result;
  EXCEPINFO* failure;
  UINT* wrong;  // the place of an argument that cannot be taken
};

// Calls the method of the object. Script languages pass every variable as a reference to a variant, so each argument is
// first converted to the type that the method declares. No method writes an argument back.
HRESULT Perform(ITypeInfo* type, void* object, const LateCall& call);

}  // namespace cordboard::com
