#include "shared/Usage.h"

#include <initializer_list>

#include "script/Report.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

// Marks the number, then enters it in each of the tables.
bool TakeIntoUse(const Reporter& fail, const Value& number, const Value& NUMTYP,
                 std::initializer_list<const char*> tables) {
  if (!SetNumberUsed(number, true)) return false;
  for (const char* table : tables) {
    const std::string sql =
        Sql(" INSERT INTO ", table, NL, " (DIR, NUMTYP) ", NL, " VALUES ('", number, "', '", NUMTYP, "')");
    if (!scRunQuery(sql)) return fail(StatementFailed);
  }
  return true;
}

}  // namespace

bool SetNumberUsed(const Value& number, bool used) {
  return scRunQuery(Sql(" UPDATE NANSI SET USED = ", used, NL, "WHERE NUMSE = '", number, "'")) ||
         Reporter("SetNumberUsed")(UsedMarkFailed, number);
}

bool SetEquipmentUsed(const Value& EQU, bool used) {
  return scRunQuery(Sql("UPDATE EQUIPMENT SET USED = ", used, NL, "WHERE EQU = '", EQU, "'")) ||
         Reporter("SetEquipmentUsed")(EquipmentNotMarked, EQU);
}

// Reports with the message for equipment.
bool SetTruUsed(const Value& TRU, bool used) {
  return scRunQuery(Sql("UPDATE TRKLINE SET USED = ", used, NL, "WHERE TRU = '", TRU, "'")) ||
         Reporter("SetTruUsed")(EquipmentNotMarked, TRU);
}

// The old number is freed first, so that one which stays the same ends marked. So with positions below.
bool UpdateNANSI(const Value& oldNumber, const Value& newNumber) {
  return SetNumberUsed(oldNumber, false) && SetNumberUsed(newNumber, true);
}

bool UpdateEQU(const std::string& table, std::int32_t CmdId, const Value& oldEQU, const Value& newEQU) {
  const Reporter fail("UpdateEQU");
  if (!scRunQuery(Sql("UPDATE EQUIPMENT SET USED = FALSE", NL, " WHERE EQU = '", oldEQU, "'")))
    return fail(OldEquipmentNotFreed, oldEQU);
  if (!scRunQuery(Sql("UPDATE EQUIPMENT SET USED = TRUE", NL, " WHERE EQU = '", newEQU, "'")))
    return fail(EquipmentNotMarked, newEQU);
  return UpdateColumn(table, CmdId, "EQU", newEQU) || fail(ColumnNotWritten, "EQU");
}

bool UpdateLIM(const std::string& table, std::int32_t CmdId, const Value& oldLIM, const Value& newLIM) {
  Debug("Function UpdateLIM called");
  Debug("  Table = ", table);
  Debug("  CmdId = ", CmdId);
  Debug("  OldLIM = ", oldLIM);
  Debug("  NewLIM = ", newLIM);
  return UpdateColumn(table, CmdId, "LIM", newLIM) || Reporter("UpdateLIM")(ColumnUpdateFailed, "LIM", table);
}

bool DeleteExtOpeGrp(const Value& number) {
  const Reporter fail(Text("DeleteExtOpeGrp: ", number));
  if (!SetNumberUsed(number, false)) return false;
  return scRunQuery(Sql(" DELETE * FROM UsedExtOpeGrp ", NL, " WHERE DIR = '", number, "'")) || fail(StatementFailed);
}

bool UpdateExtOpeGrp(const Value& oldNumber, const Value& newNumber) {
  const Reporter fail(Text("UpdateExtOpeGrp: ", oldNumber));
  if (!UpdateNANSI(oldNumber, newNumber)) return false;
  return scRunQuery(Sql("UPDATE UsedExtOpeGrp SET DIR = '", newNumber, "'", NL, " WHERE DIR = '", oldNumber, "'")) ||
         fail(StatementFailed);
}

// An extension reports under the name of the routine that frees a number.
bool InsertExtension(const Value& number, const Value& NUMTYP) {
  return TakeIntoUse(Reporter(Text("DeleteExtOpeGrp: ", number)), number, NUMTYP,
                     {"UsedExtOpeGrp", "UsedExtensionsAndOperators", "UsedNumbers"});
}

bool InsertOperator(const Value& number, const Value& NUMTYP) {
  return TakeIntoUse(Reporter(Text("InsertOperator: ", number)), number, NUMTYP,
                     {"UsedExtOpeGrp", "UsedExtensionsAndOperators"});
}

bool InsertGroup(const Value& number, const Value& NUMTYP) {
  return TakeIntoUse(Reporter(Text("InsertGroup: ", number)), number, NUMTYP, {"UsedExtOpeGrp", "UsedGroups"});
}

}  // namespace cordboard
