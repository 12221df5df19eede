// The number series: rows of NANSI and the blocked ranges, as the host keeps them.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "script/MessageCodes.h"

namespace cordboard::workbench {

class Connection;
class Exchange;

// Makes the indexes by which the blocked ranges are found, in a new exchange.
void IndexSeries(Connection& database);

// Why a series was refused: the message, and a sentence that names the number or the range.
struct SeriesRefusal {
  Message message;
  std::string reason;
};

// Expands `numse` as typed ("100&&199", "1&2&5") into one row of NANSI a number, and enters each range in
// NANSIBlockedRange. Gives nothing where that is done; a refusal writes nothing: a range with odd ends
// (ValueNotValidHere), a number that a series holds already (NumberInUse), or one that collides with a blocked range or
// a single blocked number (ConstantInBlockedRange). A single blocked number also blocks the numbers that begin with it.
std::optional<SeriesRefusal> InitiateSeries(Exchange& exchange, const std::string& numse, const std::string& numtyp);

// The numbers with which the series begin.
std::set<std::string> SeriesStarts(Exchange& exchange);

// Takes a number out of the blocked range of its type: the range shrinks, splits in two, or goes.
void RemoveFromBlockedRange(Exchange& exchange, const std::string& number, const std::string& numtyp);

}  // namespace cordboard::workbench
