// The entries by which programs find the class: its name Cordboard.CScript, its module and its type library.
#pragma once

#include "com/Platform.h"

namespace cordboard::com {

// `root` is HKEY_LOCAL_MACHINE for all users of the machine, or HKEY_CURRENT_USER.
HRESULT Register(HKEY root);
// Entries that are not there are no failure.
HRESULT Unregister(HKEY root);

}  // namespace cordboard::com
