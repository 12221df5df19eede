// OPNEI: the exchanges of a network, each by its number NEXGNO, at most 64, and the exchange's own identity OWNID.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/Capacity.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int exchangesPerSystem = 64;

// The exchanges are counted once NEXGNO is read; the columns after it are not read where there are too many.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(fail, [&] {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID" ? scBuildCmdID() : scGetParamValue(name);
      if (name == "NEXGNO" && !CheckGroupsPerSystem(action.CmdName, name, exchangesPerSystem)) return false;
    }
    return scSQLInsert(action.CmdName, action.ParamList, values) || fail(InsertFailed, action.CmdName);
  });
}

// The identity is offered while no record has one. The test for that compares with Null, which nothing equals or
// differs from: it finds no record, whatever the table holds.
bool ListOWNID(const Action& action) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT OWNID FROM OPNEI", NL, " WHERE NOT (OWNID = Null)"), rows))
    return Reporter("GetValidValForParam")(StatementFailed);
  return !rows.IsEmpty() || CollectList(action, "SELECT EXGID FROM SYIDI");
}

}  // namespace

extern const Module OPNEI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"OWNID", ListOWNID}},
};

}  // namespace cordboard
