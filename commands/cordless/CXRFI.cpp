// CXRFI: the radio units of the boards of CXCFI: the ports RPN, 1 to 8, of the board with the number FPI. A port is the
// equipment position "{BPOS}-{RPN}". Several ports of a record are one text, joined with &, as in 1&2&5. The list takes
// them out character by character, so no port may have more than one. Edit and delete make a position of the text as a
// whole, so they need records of one port: a joined text names no position.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Text.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// All eight, less those of the first record of the board. What is taken out is not tested.
bool ListRPN(const Action& action) {
  const Value FPI = scGetParamValue("FPI");
  if (FPI.IsEmpty()) return Reporter(action.CmdName + "GetValuesFor: ")(ListNotBuilt, "FPI");
  RowSet rows;
  if (!PushWholeNumbers(1, 8) || !scRunQuery(Sql(" SELECT RPN FROM CXRFI ", NL, " WHERE FPI = '", FPI, "'"), rows))
    return false;
  if (rows.IsEmpty()) return true;
  const std::string ports = ToText(rows[0][0]);
  const auto length = static_cast<std::ptrdiff_t>(Length(ports));
  for (std::ptrdiff_t i = 1; i <= length; ++i) {
    const std::string port = Middle(ports, i, 1);
    if (port != "&") scRemoveFromValidValues("RPN", port);
  }
  return true;
}

bool CheckFPI(const Action&) { return scResetParam("RPN"); }

// The ports on the form. Whether they can be delivered is not tested; a list that stays empty fails the call.
List Ports() {
  List ports;
  scGetValueArray("RPN", ports);
  return ports;
}

Value JoinedPorts() {
  const List ports = Ports();
  std::string text;
  for (std::size_t i = 0; i < ports.size(); ++i) text += Text(i == 0 ? "" : "&", ports[i]);
  return text;
}

std::string BoardOf(const Value& FPI) { return Sql(" SELECT BPOS FROM CXCFI ", NL, " WHERE FPI = '", FPI, "'"); }

// The board is read for each port.
bool TakePort(const Reporter& fail, const Value& FPI, const Value& port) {
  RowSet rows;
  if (!scRunQuery(BoardOf(FPI), rows)) return fail(ValueNotFound, "BPOS", "CXCFI");
  if (rows.IsEmpty()) return fail(RecordNotFound);
  return scRunQuery(Sql("UPDATE EQUIPMENT SET USED = TRUE WHERE EQU = '", rows[0][0], "-", port, "'")) ||
         fail(EquipmentNotMarked);
}

// The form is asked for the ports twice. One that cannot be taken does not hold up the others: the last one decides.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    const List record = Record(action.ParamList, {{"RPN", JoinedPorts}});
    if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    const Value FPI = ValueOf("FPI", action.ParamList, record);
    bool taken = true;
    for (const Value& port : Ports()) taken = TakePort(fail, FPI, port);
    return taken;
  });
}

// The value of the one row that the statement has to find. A statement that fails is reported.
bool ReadOne(const Reporter& fail, const std::string& sql, Value& value) {
  RowSet rows;
  if (!scRunQuery(sql, rows)) return fail(StatementFailed);
  value = rows[0][0];
  return true;
}

Value Position(const Value& BPOS, const Value& RPN) { return Text(BPOS, "-", RPN); }

bool EditRPN(const Reporter& fail, const Action& action, const Value& RPN) {
  const std::string ofRecord = Sql(" FROM CXRFI ", NL, " WHERE CmdId =", action.CmdId);
  Value old;
  Value FPI;
  Value BPOS;
  return ReadOne(fail, Sql(" SELECT RPN", ofRecord), old) && ReadOne(fail, Sql(" SELECT FPI", ofRecord), FPI) &&
         ReadOne(fail, BoardOf(FPI), BPOS) && SetEquipmentUsed(Position(BPOS, old), false) &&
         SetEquipmentUsed(Position(BPOS, RPN), true) &&
         (UpdateColumnInLine("CXRFI", action.CmdId, "RPN", RPN) || fail(StatementFailed));
}

// Only RPN can be changed, and only where it is the last name: any other one refuses the edit as far as it has come,
// without a message.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool written = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      written = name == "RPN" && EditRPN(fail, action, value);
    }
    return written;
  });
}

// A record that is gone is no failure; one whose board is gone fails the call.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql(" SELECT RPN, FPI FROM CXRFI ", NL, " WHERE CmdId = ", action.CmdId), rows))
      return fail(StatementFailed);
    if (rows.IsEmpty()) return true;
    const Value RPN = rows[0][0];
    const Value FPI = rows[1][0];
    Value BPOS;
    if (!ReadOne(fail, Sql(" SELECT BPOS FROM CXCFI WHERE ", NL, " FPI = '", FPI, "'"), BPOS)) return false;
    if (!SetEquipmentUsed(Position(BPOS, RPN), false)) return false;
    return scRunQuery(Sql(" DELETE * FROM CXRFI ", NL, " WHERE CmdId = ", action.CmdId)) ||
           fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

}  // namespace

extern const Module CXRFI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"RPN", ListRPN}},
    .StatCheck = {{"FPI", CheckFPI}},
};

}  // namespace cordboard
