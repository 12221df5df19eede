// An exchange that holds much: boards of every type with so many positions, of which the first half is taken, as many
// numbers of each type, and as many records of each command of which there may be so many.
#pragma once

#include <memory>

#include "workbench/exchange/Exchange.h"

namespace cordboard::bench {

// The first of these numbers, and the first identifier of these records.
inline constexpr int firstOfMany = 2600000;

// What stands in front of the boards: those of the example plant, of which most are free, or nothing.
enum class Front { ExamplePlant, TakenPositions };

std::unique_ptr<workbench::Exchange> LargeExchange(int count, Front front);

}  // namespace cordboard::bench
