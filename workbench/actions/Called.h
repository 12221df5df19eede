// How a record that refers to something is called in a message.
#pragma once

#include <string>

#include "workbench/exchange/References.h"

namespace cordboard::workbench {

// "key extension DIR=300 (KSEXI)"; secrets are hidden.
std::string Called(const Holder& holder);

}  // namespace cordboard::workbench
