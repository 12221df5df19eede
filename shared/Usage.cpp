#include "shared/Usage.h"

#include <initializer_list>

#include "script/Report.h"

namespace cordboard {

namespace {

// Marks the number, then enters it in each of the tables.
bool TakeIntoUse(const std::string& context, const Value& number, const Value& NUMTYP,
                 std::initializer_list<const char*> tables) {
  if (!SetNumberUsed(number, true)) return false;
  for (const char* table : tables) {
    const std::string sql =
        Sql(" INSERT INTO ", table, NL, " (DIR, NUMTYP) ", NL, " VALUES ('", number, "', '", NUMTYP, "')");
    if (!OrReport(scRunQuery(sql), context, Message::StatementFailed)) return false;
  }
  return true;
}

}  // namespace

bool SetNumberUsed(const Value& number, bool used) {
  return OrReport(scRunQuery(Sql(" UPDATE NANSI SET USED = ", used, NL, "WHERE NUMSE = '", number, "'")),
                  "SetNumberUsed", Message::UsedMarkFailed, number);
}

bool SetEquipmentUsed(const Value& EQU, bool used) {
  return OrReport(scRunQuery(Sql("UPDATE EQUIPMENT SET USED = ", used, NL, "WHERE EQU = '", EQU, "'")),
                  "SetEquipmentUsed", Message::EquipmentNotMarked, EQU);
}

// Reports with the message for equipment.
bool SetTruUsed(const Value& TRU, bool used) {
  return OrReport(scRunQuery(Sql("UPDATE TRKLINE SET USED = ", used, NL, "WHERE TRU = '", TRU, "'")), "SetTruUsed",
                  Message::EquipmentNotMarked, TRU);
}

// The old number is freed first, so that one which stays the same ends marked. So with positions below.
bool UpdateNANSI(const Value& oldNumber, const Value& newNumber) {
  return SetNumberUsed(oldNumber, false) && SetNumberUsed(newNumber, true);
}

bool UpdateEQU(const std::string& table, std::int32_t CmdId, const Value& oldEQU, const Value& newEQU) {
  const std::string context = "UpdateEQU";
  return OrReport(scRunQuery(Sql("UPDATE EQUIPMENT SET USED = FALSE", NL, " WHERE EQU = '", oldEQU, "'")), context,
                  Message::OldEquipmentNotFreed, oldEQU) &&
         OrReport(scRunQuery(Sql("UPDATE EQUIPMENT SET USED = TRUE", NL, " WHERE EQU = '", newEQU, "'")), context,
                  Message::EquipmentNotMarked, newEQU) &&
         OrReport(scRunQuery(Sql("UPDATE ", table, " SET EQU = '", newEQU, "'", NL, " WHERE CmdId = ", CmdId)), context,
                  Message::ColumnNotWritten, "EQU");
}

bool UpdateLIM(const std::string& table, std::int32_t CmdId, const Value& oldLIM, const Value& newLIM) {
  Debug("Function UpdateLIM called");
  Debug("  Table = ", table);
  Debug("  CmdId = ", CmdId);
  Debug("  OldLIM = ", oldLIM);
  Debug("  NewLIM = ", newLIM);
  return OrReport(scRunQuery(Sql("UPDATE ", table, " SET LIM = '", newLIM, "'", NL, " WHERE CmdId = ", CmdId)),
                  "UpdateLIM", Message::ColumnUpdateFailed, "LIM", table);
}

bool DeleteExtOpeGrp(const Value& number) {
  return SetNumberUsed(number, false) &&
         OrReport(scRunQuery(Sql(" DELETE * FROM UsedExtOpeGrp ", NL, " WHERE DIR = '", number, "'")),
                  Text("DeleteExtOpeGrp: ", number), Message::StatementFailed);
}

bool UpdateExtOpeGrp(const Value& oldNumber, const Value& newNumber) {
  return UpdateNANSI(oldNumber, newNumber) && OrReport(scRunQuery(Sql("UPDATE UsedExtOpeGrp SET DIR = '", newNumber,
                                                                      "'", NL, " WHERE DIR = '", oldNumber, "'")),
                                                       Text("UpdateExtOpeGrp: ", oldNumber), Message::StatementFailed);
}

// An extension reports under the name of the routine that frees a number.
bool InsertExtension(const Value& number, const Value& NUMTYP) {
  return TakeIntoUse(Text("DeleteExtOpeGrp: ", number), number, NUMTYP,
                     {"UsedExtOpeGrp", "UsedExtensionsAndOperators", "UsedNumbers"});
}

bool InsertOperator(const Value& number, const Value& NUMTYP) {
  return TakeIntoUse(Text("InsertOperator: ", number), number, NUMTYP, {"UsedExtOpeGrp", "UsedExtensionsAndOperators"});
}

bool InsertGroup(const Value& number, const Value& NUMTYP) {
  return TakeIntoUse(Text("InsertGroup: ", number), number, NUMTYP, {"UsedExtOpeGrp", "UsedGroups"});
}

}  // namespace cordboard
