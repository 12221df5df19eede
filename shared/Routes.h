// What the route commands share: the free routes, a record filled from the form, rows as lines need them, and the
// signalling values of a route.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "script/Action.h"
#include "script/Conversions.h"

namespace cordboard {

// The list of the routes that no record has taken, in the order of the database.
bool GetFreeRoutes(const Action& action);

// Gives each of `values` what its column takes: "CMDID" a new identifier, any other column, NUMTYP as well, the form's
// value.
void FillFromForm(const List& columns, List& values);

// The value given for a column; empty where the columns do not name it.
Value ValueOf(const std::string& column, const List& columns, const List& values);

// Adds a record from the form, in the envelope, and marks nothing as used.
bool AddFromForm(const Action& action);

// The first columns of a row, as texts without outer blanks. A null counts as the empty text.
template <std::size_t columns>
std::array<std::string, columns> TrimmedRow(const RowSet& rows, std::size_t row) {
  std::array<std::string, columns> texts;
  for (std::size_t i = 0; i < columns; ++i) texts[i] = Joined(Trim(rows[i][row]));
  return texts;
}

// Looks up columns of ROUTEDATA by protocol, market and the action's release. False where the statement failed. Callers
// read the first row unguarded: a route without signalling values is a failure of the call.
bool LookUpRouteData(const Action& action, const std::string& columns, const std::string& PROTOCOL,
                     const std::string& MARKET, RowSet& data);

}  // namespace cordboard
