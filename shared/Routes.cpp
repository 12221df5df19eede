#include "shared/Routes.h"

#include "script/HostOperations.h"
#include "script/Statement.h"
#include "shared/ValueLists.h"

namespace cordboard {

bool GetFreeRoutes(const Action& action) { return CollectList(action, "Select ROU from ROUTE Where Used=False"); }

bool GetDefinedRoutes(const Action& action) { return CollectList(action, "SELECT ROU FROM ROCAI"); }

bool LookUpRouteData(const Action& action, const std::string& columns, const std::string& PROTOCOL,
                     const std::string& MARKET, RowSet& data) {
  return scRunQuery(Sql("SELECT ", columns, " FROM ROUTEDATA", NL, "WHERE PROTOCOL='", PROTOCOL, "' AND Market='",
                        MARKET, "'", NL, "AND RELEASE='", action.oaRelease, "'"),
                    data, "static");
}

}  // namespace cordboard
