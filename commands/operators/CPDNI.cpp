// CPDNI: common public numbers: each DIR is one of NANSI, of type CP, and marked as used.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListDIR(const Action& action) { return ListFreeNumbers(action, "CP"); }

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(fail, [&] {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? Value("CP") : scGetParamValue(name);
      if (name == "DIR" && !SetNumberUsed(values[i], true)) return false;
    }
    return scSQLInsert(action.CmdName, action.ParamList, values) || fail(InsertFailed, action.CmdName);
  });
}

// The row gets its new number before the marks change.
bool EditParameter(const Reporter& fail, const Action& action, const std::string& name) {
  const Value value = scGetParamValue(name);
  RowSet old;
  if (name == "DIR") {
    const std::string query = Sql("SELECT DIR FROM ", action.CmdName, NL, " WHERE CmdID = ", action.CmdId);
    if (!scRunQuery(query, old)) return fail(StatementFailed);
    if (old.IsEmpty()) return fail(RecordNotFound);
  }
  if (!UpdateColumnOrNull(action.CmdName, action.CmdId, name, value)) return fail(ColumnNotWritten, name);
  return name != "DIR" || UpdateNANSI(old[0][0], value);
}

bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      if (!EditParameter(fail, action, ToText(parameter))) return false;
    }
    return true;
  });
}

// The number is freed before its row goes. A row that cannot be deleted is a statement that failed.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql(" SELECT DIR FROM ", action.CmdName, NL, "WHERE CmdID = ", action.CmdId), rows))
      return fail(ListNotBuilt, "DIR");
    if (rows.IsEmpty()) return fail(RecordNotFound);
    if (!SetNumberUsed(rows[0][0], false)) return false;
    return scRunQuery(Sql(" DELETE * FROM CPDNI ", NL, " WHERE CmdID = ", action.CmdId)) || fail(StatementFailed);
  });
}

}  // namespace

extern const Module CPDNI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"DIR", ListDIR}},
};

}  // namespace cordboard
