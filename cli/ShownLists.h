// Records that have a list, such as the items of a call logging form: one below the other, as `show` prints them.
#pragma once

#include <vector>

#include "workbench/exchange/Exchange.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

// The folding of the form whose whole is a list; null for a form without one.
const workbench::Folding* ListOf(const workbench::FormDefinition& form);

// The records that have these values: their other columns, then the parts of the list.
void ShowLists(workbench::Exchange& exchange, const workbench::FormDefinition& form, const workbench::Folding& list,
               const std::vector<workbench::Assignment>& selection);

}  // namespace cordboard::cli
