// The identifiers of templates, which their tables give and not the host.
#pragma once

#include <string>

#include "script/Value.h"

namespace cordboard {

// The identifier of a new template, as text: one more than the greatest in its table, "1" where there is none or where
// the table cannot be read. Fails for a greatest without a row, or one that is no number.
Value NextTemplateID(const std::string& table);

}  // namespace cordboard
