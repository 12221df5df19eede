// The book of used numbers, equipment positions and trunk lines. These run inside the caller's transaction, stop at the
// first step that fails, and report it themselves; what was done stays until the caller's rollback.
#pragma once

#include <cstdint>
#include <string>

#include "script/Value.h"

namespace cordboard {

// The mark USED of a number, a position and a trunk line. One that the table does not have counts as marked.
bool SetNumberUsed(const Value& number, bool used);
bool SetEquipmentUsed(const Value& EQU, bool used);
bool SetTruUsed(const Value& TRU, bool used);

// Frees the old number and takes the new one.
bool UpdateNANSI(const Value& oldNumber, const Value& newNumber);
// Moves a record to another position.
bool UpdateEQU(const std::string& table, std::int32_t CmdId, const Value& oldEQU, const Value& newEQU);
// Moves a record to another LIM; the old one is only traced.
bool UpdateLIM(const std::string& table, std::int32_t CmdId, const Value& oldLIM, const Value& newLIM);

// Frees a number and takes it out of UsedExtOpeGrp; its rows in the three other tables of used numbers stay.
bool DeleteExtOpeGrp(const Value& number);
// Moves the use of a number to another.
bool UpdateExtOpeGrp(const Value& oldNumber, const Value& newNumber);
// Take a number into use, each in its own tables of used numbers.
bool InsertExtension(const Value& number, const Value& NUMTYP);
bool InsertOperator(const Value& number, const Value& NUMTYP);
bool InsertGroup(const Value& number, const Value& NUMTYP);

}  // namespace cordboard
