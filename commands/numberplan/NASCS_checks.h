// What a constant of the number plan has to pass to be taken. Both checks report a constant that does not, and change
// nothing.
#pragma once

#include <string>

#include "script/Action.h"

namespace cordboard {

// Whether no number of a series begins with the constant. The numbers may be stored with blanks behind them, and each
// length of a constant asks for its own numbers of blanks, in its own order. Beyond five characters nothing is asked.
// The answers of the queries are not tested: one that gives no count fails the call.
bool BeginsNoSeries(const Action& action, const std::string& context, const Value& value);

// Whether the constant lies in no blocked range; `free` counts the rows up to there that it does not lie in. With no
// rows, also from a query that failed, nothing is blocked. With a row, a constant that is not a number fails the call,
// and so does a row without Start, behind a message box.
bool IsNotBlocked(const Action& action, const std::string& context, const std::string& name, const Value& value,
                  int& free);

}  // namespace cordboard
