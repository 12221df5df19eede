// The module (the file) that this code stands in.
#pragma once

#include <string>

#include "com/Pointer.h"

namespace cordboard::com {

std::wstring ModulePath();

// The type library that the module carries.
HRESULT LoadOwnTypeLibrary(Pointer<ITypeLib>& library);

}  // namespace cordboard::com
