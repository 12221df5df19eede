#include "commands/keyextensions/ITNUI_Terminal.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "shared/Equipment.h"
#include "shared/Row.h"
#include "shared/Usage.h"

namespace cordboard {

namespace {

bool IsCMDID(std::string name) {
  for (char& c : name) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return name == "CMDID";
}

// The use of the number moves; the column DIR is left to the host.
bool EditDIR(const Action& action, const Reporter& fail, const Value& DIR) {
  Value old;
  if (!ReadOld(fail, action.CmdName, action.CmdId, "DIR", old)) return false;
  if (old.IsBlank()) return fail(ColumnHasNoValue, "DIR");
  return UpdateExtOpeGrp(old, DIR);
}

}  // namespace

bool TestBoard(const Reporter& fail, const Value& EQU, const Value& ACCTYP) {
  Value BoardID;
  if (!ReadBoardID(fail, EQU, BoardID)) return false;
  return !Equals(BoardID, "77") || ACCTYP.IsBlank() || fail(ValueNotInList, "ACCTYP");
}

bool TakeColumn(const std::string& column, Value (*newCmdId)(), Value& value) {
  value = IsCMDID(column) ? newCmdId() : column == "NUMTYP" ? Value("EX") : scGetParamValue(column);
  if (column == "DIR") return InsertExtension(value, "EX");
  if (column == "EQU") return SetEquipmentUsed(value, true);
  return true;
}

bool AddTerminal(const Action& action, ColumnTaker take) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List record(std::vector<Value>{});
    for (const Value& column : action.ParamList) {
      Value value;
      if (!take(fail, ToText(column), value)) return false;
      record.Append(value);
    }
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

// Values are taken as texts: one that is not given is written as the empty text. A record without a position ends the
// edit in silence, and what was written before it stays; every other failure takes that back.
bool EditTerminal(const Action& action, const Selector& database) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const std::string value = ToText(scGetParamValue(name));
      const Value ACCTYP = scGetParamValue("ACCTYP");
      if (name == "DIR") {
        if (!EditDIR(action, fail, value)) return false;
      } else if (name == "EQU") {
        Value old;
        if (!TestBoard(fail, value, ACCTYP)) return false;
        if (!ReadOld(fail, action.CmdName, action.CmdId, "EQU", old)) return false;
        if (old.IsBlank()) return true;
        if (!UpdateEQU(action.CmdName, action.CmdId, old, value)) return false;
      } else {
        if (name == "ACCTYP" && !TestBoard(fail, scGetParamValue("EQU"), value)) return false;
        if (!UpdateColumnInLine(action.CmdName, action.CmdId, name, value, database))
          return fail(ColumnNotWritten, name);
      }
    }
    return true;
  });
}

}  // namespace cordboard
