// Reads plants, and pieces that are added to a plant. All that is wrong with them is told at once.
#pragma once

#include <vector>

#include "workbench/exchange/Plant.h"

namespace cordboard::workbench {

// Pieces that are added to what stands there and fit into it; each may refer to the ones before it. A whole plant is
// the one piece where there is no name yet, and has what a piece may leave out. The categories are those that there are
// in the end, or 0 where no piece tells. Fails with PlantError.
Plant ReadPieces(const std::vector<PlantText>& pieces, const Plant& standing);

}  // namespace cordboard::workbench
