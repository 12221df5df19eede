// What the route commands share: the lists of routes, and the signalling values of a route.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/List.h"

namespace cordboard {

// The list of the routes that no record has taken, in the order of the database.
bool GetFreeRoutes(const Action& action);
// The list of the routes that have a record.
bool GetDefinedRoutes(const Action& action);

// Looks up columns of ROUTEDATA by protocol, market and the action's release. False where the statement failed. Callers
// read the first row unguarded: a route without signalling values is a failure of the call.
bool LookUpRouteData(const Action& action, const std::string& columns, const std::string& PROTOCOL,
                     const std::string& MARKET, RowSet& data);

}  // namespace cordboard
