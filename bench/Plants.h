// A plant for measurements.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "workbench/exchange/Plant.h"

namespace cordboard::bench {

// Boards of one type, with so many positions each, until there are as many as are wanted.
inline workbench::Plant PlantWith(const char* type, int perBoard, int positions) {
  constexpr int perMagazine = 16;
  constexpr int perLim = 4 * perMagazine;
  nlohmann::json plant = {
      {"name", "bench"}, {"locations", {{{"location", "HQ"}}}}, {"customers", {{{"cust", "1"}}}}, {"categories", 32}};
  for (int board = 0; board * perBoard < positions; ++board) {
    const int lim = 1 + board / perLim;
    const int inLim = board % perLim;
    if (inLim == 0) plant["lims"].push_back({{"lim", lim}, {"location", "HQ"}});
    plant["boards"].push_back(
        {{"lim", lim}, {"magazine", inLim / perMagazine}, {"slot", inLim % perMagazine}, {"type", type}});
  }
  return workbench::ParsePlant(plant.dump(), "bench");
}

}  // namespace cordboard::bench
