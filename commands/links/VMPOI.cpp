// VMPOI: ports of a voice mail system: a number of the general extensions has one PORT on a link of VMFUI, a hunting
// group stands for its members and can have a port too, which is not tested.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Links.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists.

bool ListDIR(const Action& action) {
  return (scCollectSingleValues("SELECT DIR FROM EXTEIDIR") && scSubtractSingleValues("SELECT DIR FROM VMPOI")) ||
         ListRefused(action);
}

bool ListGRP(const Action& action) {
  return (scCollectSingleValues("SELECT GRP FROM GHGRI") && scSubtractSingleValues("SELECT GRP FROM VMPOI")) ||
         ListRefused(action);
}

// Releases after R7 have no list.
bool ListIndicators(const Action& action) {
  if (!IsR6(action) && action.oaRelease != "R7") return false;
  return CollectList(action, Sql("SELECT DISTINCT ", LinkIndicator(action), " FROM VMFUI"));
}

// --- Tests of the add and the edit.

bool IsIndicator(const std::string& name) { return name == "IFCIND" || name == "ICUIND"; }

// Both indicators are tested, also the one that the release does not go by.
bool HasVoiceMail(const Reporter& fail, const std::string& indicator, const Value& value) {
  Value count;
  if (!CheckedCount(fail, Sql(" SELECT COUNT(*) FROM VMFUI ", NL, " WHERE ", indicator, " = '", value, "'"), count))
    return false;
  return !Equals(count, 0) || fail(RecordNeededElsewhere, "VMFUI", "VMPOI");
}

// The length of the ports on the link that the form names.
bool ReadFormat(const Action& action, const Reporter& fail, double& POFMT) {
  const Value link = scGetParamValue(LinkIndicator(action));
  if (link.IsEmpty()) return fail(RecordNeededElsewhere, "VMFUI", "VMPOI");
  RowSet rows;
  const bool read =
      scRunQuery(Sql("SELECT POFMT FROM VMFUI ", NL, " WHERE IFCIND = '", link, "' OR ICUIND = '", link, "'"), rows);
  if (!read || rows.IsEmpty()) return fail(StatementFailed);
  POFMT = ToNumber(rows[0][0]);
  return true;
}

bool IsFreePort(const Reporter& fail, const Value& PORT, double POFMT) {
  Value count;
  if (!CheckedCount(fail, Sql("SELECT Count(*) FROM VMPOI WHERE PORT = '", PORT, "'"), count)) return false;
  if (Greater(count, 0)) return fail(PortTaken, "PORT");
  return PortSuitsFormat(PORT, POFMT) || fail(PortDoesNotSuitFormat, "PORT", "POFMT");
}

// --- Add.

// `key` is DIR or GRP, and takes the element; the other one stays without a value. The port of a group is not tested.
bool MakeRecord(const Action& action, const Reporter& fail, const std::string& key, const Value& element, double POFMT,
                List& record) {
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    if (name == "CMDID") {
      record.Append(scBuildCmdID());
    } else if (name == key) {
      record.Append(element);
    } else if (name == "DIR" || name == "GRP") {
      record.Append(Value());
    } else {
      const Value value = scGetParamValue(name);
      if (IsIndicator(name) && !HasVoiceMail(fail, name, value)) return false;
      if (name == "PORT" && key == "DIR" && !IsFreePort(fail, value, POFMT)) return false;
      record.Append(value);
    }
  }
  return true;
}

// One record for each number, or for each group where no numbers come. Without either, and for numbers without a port,
// the add is refused in silence.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List list;
    const bool byDIR = scGetValueArray("DIR", list);
    if (!byDIR && !scGetValueArray("GRP", list)) return false;
    double POFMT = 0;
    if (byDIR && (scGetParamValue("PORT").IsEmpty() || !ReadFormat(action, fail, POFMT))) return false;
    for (const Value& element : list) {
      List record(std::vector<Value>{});
      if (!MakeRecord(action, fail, byDIR ? "DIR" : "GRP", element, POFMT, record)) return false;
      if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

// --- Edit.

bool IsAllowed(const Action& action, const Reporter& fail, const std::string& name, const Value& value) {
  if (IsIndicator(name)) return HasVoiceMail(fail, name, value);
  double POFMT = 0;
  return name != "PORT" || (ReadFormat(action, fail, POFMT) && IsFreePort(fail, value, POFMT));
}

// A value that is not given is written as the empty text.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (!IsAllowed(action, fail, name, value)) return false;
      if (!UpdateColumn(action.CmdName, action.CmdId, name, value)) return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

}  // namespace

extern const Module VMPOI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}, {{"IFCIND", "ICUIND"}, ListIndicators}},
};

}  // namespace cordboard
