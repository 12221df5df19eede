// What the upkeep of a large exchange costs: export, compare, check, undo.
#pragma once

#include <string>

namespace cordboard::bench {

// `program` is cordboard.
void MeasureUpkeep(const std::string& program);

}  // namespace cordboard::bench
