// ROCAI: the routes. A record takes a number out of ROUTE and binds it to a protocol and a market; its signalling
// values are looked up by these and the release when lines are generated.

#include <iterator>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Record.h"
#include "shared/Routes.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool CollectStatic(const Action& action, const std::string& sql) {
  return scCollectSingleValues(sql, "static") || ListRefused(action);
}

bool ListPROTOCOL(const Action& action) {
  return CollectStatic(action, Sql("SELECT distinct Protocol from RouteData where RELEASE ='", action.oaRelease, "'"));
}

bool ListMARKET(const Action& action) {
  return CollectStatic(action, Sql("Select Market from RouteData Where Protocol='", scGetParamValue("PROTOCOL"), "'",
                                   NL, "AND RELEASE ='", action.oaRelease, "'"));
}

// Compared as they are written; a null is no market.
bool IsSameMarket(const Value& market, const Value& MARKET) {
  return !market.IsNull() && !MARKET.IsNull() && Joined(Trim(market)) == Joined(MARKET);
}

// A market that the new protocol has as well survives the change of protocol; any other is dropped in silence.
bool CheckPROTOCOL(const Action& action) {
  const Value PROTOCOL = scGetParamValue("PROTOCOL");
  const Value MARKET = scGetParamValue("MARKET");
  const bool reset = scResetParam("MARKET") || Reporter("StatCheck")(ResetFailed, "MARKET");
  RowSet markets;
  scRunQuery(
      Sql("SELECT MARKET FROM ROUTEDATA WHERE PROTOCOL='", PROTOCOL, "'", NL, "AND RELEASE='", action.oaRelease, "'"),
      markets, "static");
  for (std::size_t row = 0; row < markets.RowCount(); ++row) {
    if (!IsSameMarket(markets[0][row], MARKET)) continue;
    // This message alone has no context.
    return scSetParamValue("MARKET", MARKET) || Reporter("")(SetFailed, "MARKET");
  }
  return reset;
}

bool Add(const Action& action) {
  Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  // The envelope closes under the context of the last step.
  return InTransaction(fail, [&] {
    const List record = Record(action.ParamList);
    bool flag = scSQLInsert("ROCAI", action.ParamList, record) || fail(InsertFailed, action.CmdName);
    if (flag) {
      fail = Reporter("Set Number Used in ROUTE Table");
      const Value ROU = ValueOf("ROU", action.ParamList, record);
      flag = scRunQuery(Sql(" UPDATE ROUTE SET USED = TRUE", NL, "WHERE ROU = '", ROU, "'"));
    }
    // A failed insert is reported a second time here. The argument is always empty.
    return flag || fail(UsedMarkFailed, Value());
  });
}

// The old number is freed before the new one is taken, so a number that stays the same ends up used.
bool MoveRoute(const Value& oldROU, const Value& newROU) {
  return scRunQuery(Sql("UPDATE ROUTE SET USED=FALSE WHERE ROU='", oldROU, "'")) &&
         scRunQuery(Sql("UPDATE ROUTE SET USED=TRUE WHERE ROU='", newROU, "'"));
}

// Every edit writes all six columns, whatever has changed. A value that is left out keeps the old one, so no column can
// be cleared.
bool Edit(const Action& action) {
  constexpr const char* columns[] = {"ROU", "PROTOCOL", "MARKET", "DIST", "DISL", "TRAF"};
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet old;
    if (!scRunQuery(Sql("SELECT ROU, PROTOCOL, MARKET, DIST, DISL, TRAF FROM ROCAI WHERE CmdId = ", action.CmdId), old))
      return false;
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const std::string column = columns[i];
      const Value value = OrStored(scGetParamValue(column), old, i);
      const bool written =
          UpdateColumnOrNull("ROCAI", action.CmdId, column, value) && (column != "ROU" || MoveRoute(old[0][0], value));
      if (!written) return fail(ColumnNotWritten, column);
    }
    return true;
  });
}

// Rows of other commands on the route stay. The last two statements have no message: a failure shows as a
// rollback alone.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT ROU FROM ROCAI", NL, " WHERE CmdID = ", action.CmdId), rows))
      return fail(RecordNotDeleted, action.CmdName, action.CmdId);
    if (rows.IsEmpty()) return fail(RecordNotFound);
    return DeleteRow("ROCAI", action.CmdId) &&
           scRunQuery(Sql("UPDATE ROUTE SET USED=FALSE WHERE ROU='", rows[0][0], "'"));
  });
}

// A record is skipped in silence where its look-up fails. One without signalling values fails the call, and so does a
// null in them, but for NODG.
bool Generate(const Action& action) {
  const auto line = [&](const LineRow& row) -> std::optional<std::string> {
    const auto [ROU, PROTOCOL, MARKET, TRAF, DIST, DISL] = row.Texts<6>();
    RowSet data;
    if (!LookUpRouteData(action, "SEL, SIG, TRM, SERV, NODG, BCAP", PROTOCOL, MARKET, data)) return std::nullopt;
    const std::string SEL = ToText(data[0][0]);
    const std::string SIG = ToText(data[1][0]);
    const std::string TRM = ToText(data[2][0]);
    const std::string SERV = ToText(data[3][0]);
    const std::string BCAP = ToText(data[5][0]);
    // The blank in ",DIST =" is part of the line.
    return Text("ROCAI:ROU=", ROU, ",SEL=", SEL, ",SIG=", SIG, ",TRAF=", TRAF, ",TRM=", TRM, ",SERV=", SERV,
                UnlessBlank(",DIST =", DIST), UnlessBlank(",DISL=", DISL), UnlessBlank(",NODG=", data[4][0]),
                UnlessBlank(",BCAP=", BCAP), ";");
  };
  return GenerateLines(action, "SELECT ROU, PROTOCOL, MARKET, TRAF, DIST, DISL FROM ROCAI", line);
}

}  // namespace

extern const Module ROCAI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"ROU", GetFreeRoutes}, {"PROTOCOL", ListPROTOCOL}, {"MARKET", ListMARKET}},
    .StatCheck = {{"PROTOCOL", CheckPROTOCOL}},
};

}  // namespace cordboard
