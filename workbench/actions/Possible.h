// What would be possible in the place of a value that is refused.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

class ValueList;

struct Possible {
  std::vector<std::string> values = {};   // the first of them
  std::optional<std::size_t> total = {};  // how many there are; nothing where there are more, and nobody counted them
  std::optional<Numbers> numbers = {};    // that are possible as well
  bool canBeLeftOut = false;              // no value is needed
};

// What its list gives for a parameter, which can be left out where it is not mandatory.
Possible PossibleOf(const ValueList& list, const ParameterDefinition& parameter, bool mandatory);

// "10, 20, 30, ... (57 in all), or a number from 90 to 99"; of no values it says so.
std::string InWords(const Possible& possible);

}  // namespace cordboard::workbench
