#include "commands/numberplan/NASCS_checks.h"

#include <vector>

#include "script/Conversions.h"
#include "script/MessageBox.h"
#include "script/Report.h"
#include "script/Text.h"

namespace cordboard {

bool BeginsNoSeries(const Action& action, const std::string& context, const Value& value) {
  static const std::vector<std::size_t> blanksByLength[] = {{}, {0, 1, 2, 3, 4}, {1, 2, 3, 0}, {1, 2, 0}, {1, 0}, {0}};
  const std::string digits = Text(TrimLeft(value));
  const std::size_t length = Length(digits);
  if (length >= std::size(blanksByLength)) return true;
  for (const std::size_t blanks : blanksByLength[length]) {
    const std::string pattern = digits + std::string(blanks, ' ');
    RowSet count;
    scRunQuery(Sql("SELECT COUNT(*) FROM NANSI WHERE NUMSE LIKE '", pattern, "%' "), count);
    if (!Differs(count[0][0], 0)) continue;
    Debug("Value ", digits, " is already initiated in the NANSI range");
    Report(context, Message::NumberInUse, action.CmdName);
    return false;
  }
  return true;
}

bool IsNotBlocked(const Action& action, const std::string& context, const std::string& name, const Value& value,
                  int& free) {
  RowSet rows;
  scRunQuery("SELECT Start,End FROM NANSIBlockedRange", rows);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value Start = rows[0][row];
    const Value End = rows[1][row];
    if (Start.IsNull()) ShowMessageBox(" SHOULDNT GET HERE... ", "", PlainBox);
    const std::int32_t from = ToInt32(Start);
    const std::int32_t number = ToInt32(value);
    const std::int32_t to = End.IsNull() ? from : ToInt32(End);
    if (number < from || number > to) {
      ++free;
      continue;
    }
    Debug("Value ", value, " is already in the NANSI range", End.IsNull() ? "" : Text(Start, " to ", End));
    Report(context, Message::ConstantInBlockedRange, action.CmdName);
    Debug("Resetting parameter: ", name);  // in words only: the form keeps it
    return false;
  }
  return true;
}

}  // namespace cordboard
