// The one host reference, process-wide and counted: the only state of the library but for one mark in RODDI.
#pragma once

#include <memory>

#include "script/Host.h"

namespace cordboard {

// The current host, held for as long as the caller needs it. Fails with NoHost where there is none.
std::shared_ptr<Host> CurrentHost();
void SetCurrentHost(std::shared_ptr<Host> host);

}  // namespace cordboard
