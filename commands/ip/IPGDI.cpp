// IPGDI: gateway domains: the domains that a LIM serves, a record for each pair of the two.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Whether no record has the pair already; `others` leaves records out of the count.
bool IsNewPair(const Reporter& fail, const Value& LIM, const Value& DOMAIN, const std::string& others = "") {
  const Value count =
      UncheckedCount(Sql("SELECT COUNT(*) FROM IPGDI WHERE LIM = '", LIM, "' AND DOMAIN ='", DOMAIN, "'", others));
  return !Greater(count, 0) || fail(ValuePresentForKey, "LIM", "DOMAIN");
}

// The columns but these three stay without a value. The identifier is drawn before the pair is looked up.
List RecordOf(const Action& action, const Value& LIM) {
  List values(std::vector<Value>{});
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    values.Append(name == "CMDID"    ? scBuildCmdID()
                  : name == "LIM"    ? LIM
                  : name == "DOMAIN" ? scGetParamValue(name)
                                     : Value());
  }
  return values;
}

// One record for each LIM; the first that is refused ends the add.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    List LIMs;
    if (!scGetValueArray("LIM", LIMs)) return fail(ListNotBuilt, "LIM");
    for (const Value& LIM : LIMs) {
      const List values = RecordOf(action, LIM);
      if (!IsNewPair(fail, LIM, ValueOf("DOMAIN", action.ParamList, values))) return false;
      if (!scSQLInsert(action.CmdName, action.ParamList, values)) return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

// Both columns are written, whatever has changed. An empty LIM is a number, and found missing in its turn; what is no
// number is reported with a severity of its own.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const Value LIM = scGetParamValue("LIM");
    if (!IsNumeric(LIM)) {
      scErrorMessage(0, 3, 1, fail.context(), static_cast<int>(ValueNotValidHere), {"LIM"});
      return false;
    }
    const Value DOMAIN = scGetParamValue("DOMAIN");
    if (!IsNewPair(fail, LIM, DOMAIN, Sql(" AND NOT CMDID = ", action.CmdId))) return false;
    for (const char* column : {"LIM", "DOMAIN"}) {
      const Value value = scGetParamValue(column);
      if (value.IsBlank()) return fail(ValueNotFound, column);
      if (!UpdateColumn("IPGDI", action.CmdId, column, value)) return fail(ColumnNotWritten, column);
    }
    return true;
  });
}

// A record that cannot be deleted is not reported.
bool Delete(const Action& action) {
  return InTransaction(Reporter("Delete: " + action.CmdName), [&] { return DeleteRow("IPGDI", action.CmdId); });
}

bool Generate(const Action& action) {
  return GenerateLines(action, "SELECT LIM, DOMAIN FROM IPGDI ",
                       [](const LineRow& row) { return Text("IPGDI:LIM=", row[0], ",DOMAIN=\"", row[1], "\";"); });
}

}  // namespace

extern const Module IPGDI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"LIM", GetValuesFor_LIM}},
};

}  // namespace cordboard
