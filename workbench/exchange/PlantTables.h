// The plant of an exchange, as it stands in its tables.
#pragma once

#include <vector>

#include "workbench/exchange/Plant.h"

namespace cordboard::workbench {

class Exchange;

// Enters a plant in a new exchange, or a piece of one in an exchange: places, LIMs, boards with their equipment
// positions, customers, trunk lines, routes, and the rows of the category table, which are provided in advance and
// blank: as many in all as the plant says.
void EnterPlant(Exchange& exchange, const Plant& plant);

// The plant that stands there.
Plant PlantOf(Exchange& exchange);

// Adds pieces to the plant, all or none, and gives what was added. The message is for its history. Fails with a
// PlantError.
Plant AddToPlant(Exchange& exchange, const std::vector<PlantText>& pieces, const std::string& message = "");

}  // namespace cordboard::workbench
