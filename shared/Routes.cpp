#include "shared/Routes.h"

#include "script/Envelope.h"
#include "script/Statement.h"

namespace cordboard {

bool GetFreeRoutes(const Action& action) {
  return OrReport(scCollectSingleValues("Select ROU from ROUTE Where Used=False"), "GetValidValForParam",
                  Message::ListNotBuilt, action.Parameter());
}

void FillFromForm(const List& columns, List& values) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string name = ToText(columns[i]);
    values[i] = name == "CMDID" ? scBuildCmdID() : scGetParamValue(name);
  }
}

Value ValueOf(const std::string& column, const List& columns, const List& values) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (ToText(columns[i]) == column) return values[i];
  }
  return Value();
}

bool AddFromForm(const Action& action) {
  const std::string context = "Add: " + action.CmdName;
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(context, [&] {
    FillFromForm(action.ParamList, values);
    return OrReport(scSQLInsert(action.CmdName, action.ParamList, values), context, Message::InsertFailed,
                    action.CmdName);
  });
}

bool LookUpRouteData(const Action& action, const std::string& columns, const std::string& PROTOCOL,
                     const std::string& MARKET, RowSet& data) {
  return scRunQuery(Sql("SELECT ", columns, " FROM ROUTEDATA", NL, "WHERE PROTOCOL='", PROTOCOL, "' AND Market='",
                        MARKET, "'", NL, "AND RELEASE='", action.oaRelease, "'"),
                    data, "static");
}

}  // namespace cordboard
