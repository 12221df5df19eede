// ROCAI: the routes. A record takes a number out of ROUTE and binds it to a protocol and a market; its signalling
// values are looked up by these and the release when lines are generated.

#include <iterator>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Routes.h"

namespace cordboard {

namespace {

bool ListPROTOCOL(const Action& action) {
  const std::string sql = Sql("SELECT distinct Protocol from RouteData where RELEASE ='", action.oaRelease, "'");
  return OrReport(scCollectSingleValues(sql, "static"), "GetValidValForParam", Message::ListNotBuilt,
                  action.Parameter());
}

bool ListMARKET(const Action& action) {
  const std::string sql = Sql("Select Market from RouteData Where Protocol='", scGetParamValue("PROTOCOL"), "'", NL,
                              "AND RELEASE ='", action.oaRelease, "'");
  return OrReport(scCollectSingleValues(sql, "static"), "GetValidValForParam", Message::ListNotBuilt,
                  action.Parameter());
}

// A market that the new protocol has as well survives the change of protocol; any other is dropped in silence.
bool CheckPROTOCOL(const Action& action) {
  const Value PROTOCOL = scGetParamValue("PROTOCOL");
  const Value MARKET = scGetParamValue("MARKET");
  const bool reset = OrReport(scResetParam("MARKET"), "StatCheck", Message::ResetFailed, "MARKET");
  RowSet markets;
  scRunQuery(
      Sql("SELECT MARKET FROM ROUTEDATA WHERE PROTOCOL='", PROTOCOL, "'", NL, "AND RELEASE='", action.oaRelease, "'"),
      markets, "static");
  for (std::size_t row = 0; row < markets.RowCount(); ++row) {
    if (!Equals(Trim(markets[0][row]), MARKET)) continue;
    // This message alone has no context.
    return OrReport(scSetParamValue("MARKET", MARKET), "", Message::SetFailed, "MARKET");
  }
  return reset;
}

bool Add(const Action& action) {
  std::string context = "Add: " + action.CmdName;
  List values(std::vector<Value>(action.ParamList.size()));
  // The envelope closes under the context of the last step.
  return InTransaction(context, [&] {
    FillFromForm(action.ParamList, values);
    bool flag =
        OrReport(scSQLInsert("ROCAI", action.ParamList, values), context, Message::InsertFailed, action.CmdName);
    if (flag) {
      context = "Set Number Used in ROUTE Table";
      const Value ROU = ValueOf("ROU", action.ParamList, values);
      flag = scRunQuery(Sql(" UPDATE ROUTE SET USED = TRUE", NL, "WHERE ROU = '", ROU, "'"));
    }
    // A failed insert is reported a second time here. The argument is always empty.
    return OrReport(flag, context, Message::UsedMarkFailed, Value());
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
  static const char* const columns[] = {"ROU", "PROTOCOL", "MARKET", "DIST", "DISL", "TRAF"};
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet old;
    if (!scRunQuery(Sql("SELECT ROU, PROTOCOL, MARKET, DIST, DISL, TRAF FROM ROCAI WHERE CmdId = ", action.CmdId), old))
      return false;
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const std::string column = columns[i];
      Value value = scGetParamValue(column);
      if (value.IsBlank()) value = old[i][0];
      if (value.IsBlank()) value = Value();
      const bool written =
          WriteColumn("ROCAI", action.CmdId, column, value) && (column != "ROU" || MoveRoute(old[0][0], value));
      if (!OrReport(written, context, Message::ColumnNotWritten, column)) return false;
    }
    return true;
  });
}

// Rows of other commands on the route stay behind. The last two statements have no message: a failure shows as a
// rollback alone.
bool Delete(const Action& action) {
  const std::string context = "Delete: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT ROU FROM ROCAI", NL, " WHERE CmdID = ", action.CmdId), rows)) {
      Report(context, Message::RecordNotDeleted, action.CmdName, action.CmdId);
      return false;
    }
    if (rows.IsEmpty()) {
      Report(context, Message::RecordNotFound);
      return false;
    }
    return scRunQuery(Sql("DELETE * FROM ROCAI", NL, " WHERE CmdId = ", action.CmdId)) &&
           scRunQuery(Sql("UPDATE ROUTE SET USED=FALSE WHERE ROU='", rows[0][0], "'"));
  });
}

// A record is skipped in silence where its look-up fails. One without signalling values fails the call, and so does a
// null in them, but for NODG. The answer is that of the last insert.
bool Generate(const Action& action) {
  const std::string context = "Generating: " + action.CmdName;
  RowSet rows;
  bool flag = OrReport(scRunQuery("SELECT ROU, PROTOCOL, MARKET, TRAF, DIST, DISL FROM ROCAI", rows), context,
                       Message::GenerationFailed);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const auto [ROU, PROTOCOL, MARKET, TRAF, DIST, DISL] = TrimmedRow<6>(rows, row);
    RowSet data;
    if (!LookUpRouteData(action, "SEL, SIG, TRM, SERV, NODG, BCAP", PROTOCOL, MARKET, data)) continue;
    const std::string SEL = ToText(data[0][0]);
    const std::string SIG = ToText(data[1][0]);
    const std::string TRM = ToText(data[2][0]);
    const std::string SERV = ToText(data[3][0]);
    const std::string BCAP = ToText(data[5][0]);
    // The blank in ",DIST =" is part of the line.
    const std::string line = Text("ROCAI:ROU=", ROU, ",SEL=", SEL, ",SIG=", SIG, ",TRAF=", TRAF, ",TRM=", TRM,
                                  ",SERV=", SERV, UnlessBlank(",DIST =", DIST), UnlessBlank(",DISL=", DISL),
                                  UnlessBlank(",NODG=", data[4][0]), UnlessBlank(",BCAP=", BCAP), ";");
    flag = OrReport(InsertBuiltCmd(action, line), context, Message::GenerationFailed);
  }
  return flag;
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
