// What the lines of plans and the lists of their commands cost on an exchange.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "workbench/exchange/Exchange.h"

namespace cordboard::bench {

struct Cost {
  double steps = 0;         // of the database
  double milliseconds = 0;  // of the processor

  Cost& operator+=(const Cost& more);
  Cost Each(std::size_t count) const;
};

// By what is done, of a command all together:
//   "KSEXI generate"       its generation, by line
//   "KSEXI EQU first"      the first ten values of a list, in front of the command's first line, with its other values
//   "KSEXI EQU whole"      the whole list, by value
//   "KSEXI add"            the lines that add, and so "edit" and "delete"
//   "KSEXI add again"      the last one once more
//   "KSEXI add refused"    the last one with each of its values that comes from a list replaced by one that is in none
// After the lines of the plans the last record of each command is changed, where that can be, to what it has, and all
// records that were added are deleted. Fails where a line of a plan or a delete is refused, or what should be is not.
using Costs = std::map<std::string, Cost>;
Costs CostsOn(workbench::Exchange& exchange, const std::vector<std::string>& plans);

}  // namespace cordboard::bench
