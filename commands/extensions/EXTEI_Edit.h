// The edit of general extensions and of their templates.
#pragma once

#include <string>

#include "script/Action.h"

namespace cordboard {

// The two differ in one thing: by what a parameter without a rule of its own is written.
bool EditExtension(const Action& action, bool (*runPlainUpdate)(const std::string& sql));

}  // namespace cordboard
