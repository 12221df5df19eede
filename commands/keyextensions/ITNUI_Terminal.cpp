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

// What the record has in the column: blank also where there is no record.
bool ReadOld(const Action& action, const Reporter& fail, const std::string& column, Value& old) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT ", column, " FROM ", action.CmdName, " WHERE CmdId = ", action.CmdId), rows))
    return fail(StatementFailed);
  if (!rows.IsEmpty()) old = rows[0][0];
  return true;
}

// The use of the number moves; the column DIR is left to the host.
bool EditDIR(const Action& action, const Reporter& fail, const Value& DIR) {
  Value old;
  if (!ReadOld(action, fail, "DIR", old)) return false;
  if (old.IsBlank()) return fail(ColumnHasNoValue, "DIR");
  return UpdateExtOpeGrp(old, DIR);
}

}  // namespace

bool TestBoard(const Reporter& fail, const Value& EQU, const Value& ACCTYP) {
  Value BoardID;
  if (!ReadBoardID(fail, EQU, BoardID)) return false;
  return !Equals(BoardID, "77") || ACCTYP.IsBlank() || fail(ValueNotInList, "ACCTYP");
}

bool ReadColumn(const std::string& column, Value (*newCmdId)(), Value& value) {
  value = IsCMDID(column) ? newCmdId() : column == "NUMTYP" ? Value("EX") : scGetParamValue(column);
  if (column == "DIR") return InsertExtension(value, "EX");
  if (column == "EQU") return SetEquipmentUsed(value, true);
  return true;
}

bool AddTerminal(const Action& action, ColumnReader read) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List record(std::vector<Value>{});
    for (const Value& column : action.ParamList) {
      Value value;
      if (!read(fail, ToText(column), value)) return false;
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
        if (!TestBoard(fail, value, ACCTYP) || !ReadOld(action, fail, "EQU", old)) return false;
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
