// What terminals (ITNUI) and the templates for them (ITNUITEMPLATE) do alike.
#pragma once

#include <optional>
#include <string>

#include "script/Action.h"
#include "script/Host.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// What has a plain list of values, beside the digits that all class strings show. There is no first digit of SERV, and
// ADC ends with its eighth.
inline const ParameterNames TerminalValues{"ACCTYP", "ADC_D1", "ADC_D2", "ADC_D3", "ADC_D4",   "ADC_D5",
                                           "ADC_D6", "ADC_D7", "ADC_D8", "ROC_D1", "SERV_D7D8"};

// The board test: a terminal on a board of type 77 has no access type. One that is given there is reported. The board
// is read in any case, so that a position without one fails the call.
bool TestBoard(const Reporter& fail, const Value& EQU, const Value& ACCTYP);

// The value of a column for a new record. A number is taken into use and a position marked as its turn comes; False
// where that is refused, and has been reported. The name of the identifier counts in any capitals, all others as they
// stand.
bool TakeColumn(const std::string& column, Value (*newCmdId)(), Value& value);

// Adds one record, with a value from `take` for each column in its turn. The first that is refused ends the add.
using ColumnTaker = bool (*)(const Reporter& fail, const std::string& column, Value& value);
bool AddTerminal(const Action& action, ColumnTaker take);

// Edits a record. Its columns are written in the database, but for the position; what they were is asked for in the
// configuration.
bool EditTerminal(const Action& action, const Selector& database = std::nullopt);

}  // namespace cordboard
