#include "commands/extensions/EXTEI_Edit.h"

#include "commands/extensions/EXTEI_Names.h"
#include "commands/extensions/EXTEI_SharedBoard.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Report.h"
#include "shared/Usage.h"

namespace cordboard {

namespace {

// The row that is edited: of a main number, which has a DIR, or of a further number, which has an AUX.
struct EditedRow {
  std::string table;
  std::string key;
  std::string otherKey;
  std::int32_t CmdId;

  bool IsMainNumber() const { return key == "DIR"; }

  std::string Update(const std::string& column, const Value& value) const {
    return Sql("UPDATE ", table, NL, " SET ", column, " = '", value, "'", NL, " WHERE CmdId = ", CmdId);
  }
  // An empty value is written as Null, in a statement without the first line break.
  std::string UpdateOrNull(const std::string& column, const Value& value) const {
    if (!value.IsEmpty()) return Update(column, value);
    return Sql("UPDATE ", table, " SET ", column, " = Null", NL, " WHERE CmdId = ", CmdId);
  }
  RowSet Read(const std::string& column) const { return scSQLSelect(table, {column}, {"CmdId"}, {CmdId}); }
};

EditedRow ChooseRow(const Action& action) {
  if (ToTruth(scGetParamValue("DIR"))) return {TableOf(action, "EXTEIDIR"), "DIR", "AUX", action.CmdId};
  return {TableOf(action, "EXTEIAUX"), "AUX", "DIR", action.CmdId};
}

// The use of the number moves, and nobody looks whether that succeeds; the column is left to the host. A record that is
// gone is reported with a severity of its own.
void MoveNumber(const EditedRow& row, const Reporter& fail, const Value& number) {
  const RowSet old = row.Read(row.key);
  if (old.IsEmpty()) {
    scErrorMessage(0, 2, 1, fail.context(), static_cast<int>(RecordNotFound));
  } else {
    UpdateExtOpeGrp(old[0][0], number);
  }
}

// Only a main number holds its position. Where the old one cannot be freed the new one is not marked. A record that is
// gone is reported, and that is no failure.
void EditEQU(const EditedRow& row, const Reporter& fail, const Value& EQU, bool& flag) {
  const RowSet old = row.Read("EQU");
  if (old.IsEmpty()) {
    fail(RecordNotFound);
    return;
  }
  flag = scRunQuery(row.Update("EQU", EQU)) || fail(NewEquipmentNotWritten, "EQU");
  if (!flag || !row.IsMainNumber()) return;
  flag = scRunQuery(Sql("UPDATE EQUIPMENT SET USED = FALSE", NL, " WHERE EQU = '", old[0][0], "'")) ||
         fail(OldEquipmentNotFreed, old[0][0]);
  if (!flag) return;
  flag = scRunQuery(Sql("UPDATE EQUIPMENT SET USED = TRUE", NL, " WHERE EQU = '", EQU, "'")) ||
         fail(EquipmentNotMarked, EQU);
}

// A further number keeps its main number where the new one is blank: that is reported, and no failure.
void EditDIR_AUX(const EditedRow& row, const Reporter& fail, const Value& DIR_AUX, bool& flag) {
  if (DIR_AUX.IsBlank()) {
    fail(ValueNeededForEdit, "DIR");
  } else {
    flag = scRunQuery(row.Update("DIR_AUX", DIR_AUX)) || fail(ColumnNotWritten, "DIR_AUX");
  }
}

bool EditICAT(const Action& action, const EditedRow& row, const Reporter& fail, const Value& ICAT) {
  if (!ICAT.IsEmpty()) {
    const Value EQU = scGetParamValue("EQU");
    if (!CheckSharedBoardICAT(action, ToText(ICAT), ToText(EQU), action.CmdId)) return fail(SharedBoardRefused);
  }
  return scRunQuery(row.UpdateOrNull("ICAT", ICAT)) || fail(ColumnNotWritten, "ICAT");
}

}  // namespace

// Only ICAT ends the edit where it fails. After any other failure the edit goes on, and the last statement decides. The
// key of the other table is passed over.
bool EditExtension(const Action& action, bool (*runPlainUpdate)(const std::string& sql)) {
  const Reporter fail("Edit: " + action.CmdName);
  const EditedRow row = ChooseRow(action);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == row.key) {
        MoveNumber(row, fail, value);
      } else if (name == "EQU") {
        EditEQU(row, fail, value, flag);
      } else if (name == "DIR_AUX") {
        EditDIR_AUX(row, fail, value, flag);
      } else if (name == "ICAT") {
        flag = EditICAT(action, row, fail, value);
        if (!flag) return false;
      } else if (name != row.otherKey) {
        flag = runPlainUpdate(row.UpdateOrNull(name, value)) || fail(ColumnNotWritten, name);
      }
    }
    return flag;
  });
}

}  // namespace cordboard
