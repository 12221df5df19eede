// The number series: rows of NANSI and the blocked ranges, as the host keeps them.
#pragma once

#include <string>

#include "script/Value.h"

namespace cordboard::workbench {

class Connection;
class Exchange;

// Makes the indexes by which the blocked ranges are found, in a new exchange.
void IndexSeries(Connection& database);

// Why a series was refused: a message code, and a sentence that names the number or the range.
struct SeriesRefusal {
  int code = 0;
  std::string reason;
};

// Expands `numse` as typed ("100&&199", "1&2&5") into one row of NANSI a number, and enters each range in
// NANSIBlockedRange. Nothing is written where it is refused: a range with odd ends (60049), a number that a series
// holds already (60010), or one that collides with a blocked range or a single blocked number (60008). A single blocked
// number also blocks the numbers that begin with it. Code 0 means done.
SeriesRefusal InitiateSeries(Exchange& exchange, const std::string& numse, const std::string& numtyp);

// Takes a number out of the blocked range of its type: the range shrinks, splits in two, or goes.
void RemoveFromBlockedRange(Exchange& exchange, const std::string& number, const std::string& numtyp);

}  // namespace cordboard::workbench
