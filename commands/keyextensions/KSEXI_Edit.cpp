#include "commands/keyextensions/KSEXI_Edit.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Report.h"
#include "script/Statement.h"
#include "script/Text.h"
#include "shared/KeySpace.h"
#include "shared/Row.h"
#include "shared/Usage.h"

namespace cordboard {

namespace {

// Writes one column of the record.
bool Write(const Action& action, const Reporter& fail, const EditedRecords& records, const std::string& column,
           const Value& value) {
  return UpdateColumnInLine(records.table, action.CmdId, column, value, records.updates) ||
         fail(ColumnNotWritten, column);
}

// The use of the number moves; the column DIR is left to the host.
bool EditDIR(const Action& action, const Reporter& fail, const Value& DIR) {
  Value old;
  if (!ReadOld(fail, action.CmdName, action.CmdId, "DIR", old)) return false;
  if (old.IsBlank()) return fail(ColumnHasNoValue, "DIR");
  return UpdateExtOpeGrp(old, DIR) || fail(ColumnNotWritten, "DIR");
}

// A record without a position is reported, and that is no failure.
bool EditEQU(const Action& action, const Reporter& fail, const EditedRecords& records, const Value& EQU) {
  Value old;
  if (!ReadOld(fail, action.CmdName, action.CmdId, "EQU", old, records.oldEQU)) return false;
  if (!old.IsBlank()) return UpdateEQU(action.CmdName, action.CmdId, old, EQU);
  fail(ColumnHasNoValue, "EQU");
  return true;
}

// Deletes what is on keys that the new instrument does not have; the numbers of the deleted records stay in use. An
// instrument without any keys, or with keys that cannot be read, makes a list that is no statement, and so cannot be
// chosen.
bool EditITYPE(const Action& action, const Reporter& fail, const EditedRecords& records, const Value& ITYPE) {
  const Value DIR = scGetParamValue("DIR");
  RowSet rows;
  scRunQuery(Sql("SELECT Value FROM ParamValueDesc WHERE Command = 'KSANI' AND  Param = 'KEY' AND DefinitionNo = ",
                 KeyDefinition(ITYPE)),
             rows, "static");
  std::string keys;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) keys += Text(row == 0 ? "('" : ",'", Trim(rows[0][row]), "'");
  if (!rows.IsEmpty()) keys += ")";

  const auto deleteLost = [&](const char* table, const Selector& database) {
    return scRunQueryOn(database, Sql("DELETE * FROM ", table, " WHERE DIR ='", DIR, "' AND Key NOT IN ", keys)) ||
           fail(ColumnNotWritten, "ITYPE");
  };
  return deleteLost("KSFKC", records.KSFKC) && deleteLost("KSANI", std::nullopt) && deleteLost("KSMDI", std::nullopt) &&
         Write(action, fail, records, "ITYPE", ITYPE);
}

bool EditParameter(const Action& action, const Reporter& fail, const EditedRecords& records, const std::string& name,
                   const Value& value) {
  if (name == "DIR") return EditDIR(action, fail, value);
  if (name == "EQU") return EditEQU(action, fail, records, value);
  if (name == "ITYPE") return EditITYPE(action, fail, records, value);
  return Write(action, fail, records, name, value);
}

}  // namespace

// Only a number that is too long ends the edit. After any other failure it goes on, so that the last parameter
// decides.
bool EditKeyExtension(const Action& action, const EditedRecords& records) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "DIR" && Length(Joined(value)) > 5) return fail(ValueNotValidHere, "DIR");
      flag = EditParameter(action, fail, records, name, value);
    }
    return flag;
  });
}

}  // namespace cordboard
