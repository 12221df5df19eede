// NASCS: the eleven constants of the number plan, in one record. A constant blocks the number that it holds: it may not
// begin a number of a series, lie in a blocked range, or equal another constant, and is itself entered as blocked.
//
// In NANSIBlockedRange a constant has a Start only; a series has End and Numtyp as well.

#include <iterator>
#include <map>
#include <vector>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/MessageBox.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Count.h"
#include "shared/Row.h"
#include "shared/SingleRecord.h"

namespace cordboard {

namespace {

// The columns of the table in their order: the identifier, then the constants from index 1.
const List columns{"CmdID", "DDIV", "CDDIV", "ANSBL", "AGP", "ANS", "ACGN", "PGI", "PGDMI", "PGSI", "PGA", "PGSA"};

// --- What a constant has to pass. Both checks report one that does not, and change nothing.

// Whether no number of a series begins with the constant. The numbers may be stored with blanks after them, and each
// length of a constant asks for its own numbers of blanks, in its own order. Beyond five characters nothing is asked.
bool BeginsNoSeries(const Reporter& fail, const Value& value) {
  static const std::vector<std::size_t> blanksByLength[] = {{}, {0, 1, 2, 3, 4}, {1, 2, 3, 0}, {1, 2, 0}, {1, 0}, {0}};
  const std::string digits = Text(TrimLeft(value));
  const std::size_t length = Length(digits);
  if (length >= std::size(blanksByLength)) return true;
  for (const std::size_t blanks : blanksByLength[length]) {
    const std::string pattern = digits + std::string(blanks, ' ');
    if (!Differs(UncheckedCount(Sql("SELECT COUNT(*) FROM NANSI WHERE NUMSE LIKE '", pattern, "%' ")), 0)) continue;
    Debug("Value ", digits, " is already initiated in the NANSI range");
    return fail(NumberInUse, "NASCS");
  }
  return true;
}

// Whether the constant lies in no blocked range; each row that it is found outside of adds to `free`. With no
// rows, also from a query that failed, nothing is blocked. With a row, a constant that is not a number fails the call,
// and so does a row without Start, after a message box.
bool IsNotBlocked(const Reporter& fail, const std::string& name, const Value& value, int& free) {
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
    fail(ConstantInBlockedRange, "NASCS");
    Debug("Resetting parameter: ", name);  // in words only: the form keeps it
    return false;
  }
  return true;
}

bool ReportUsedTwice(const Reporter& fail, const std::string& name) {
  Debug(" The Value for ", name, " is already used, try another value");
  return fail(ValueUsedTwice, name);
}

// --- Add and edit.

bool Block(const Reporter& fail, const Value& value) {
  return scRunQuery(Sql("INSERT INTO NANSIBlockedRange (Start) VALUES ('", value, "' )")) ||
         fail(InsertFailed, "NANSIBlockedRange");
}

bool Unblock(const Reporter& fail, const std::string& name, const Value& value) {
  return scRunQuery(Sql("DELETE * FROM NANSIBlockedRange WHERE Start = '", value, "' ")) ||
         fail(BlockedRangeNotRemoved, name);
}

bool EqualsAnEarlierOne(const List& values, std::size_t last) {
  for (std::size_t i = 1; i < last; ++i) {
    if (Equals(values[i], values[last])) return true;
  }
  return false;
}

// Reads the constants from the form until one is refused. At least one of them has to have been compared with a blocked
// range that it does not lie in: so a first record can stand only once a series is initiated. A constant that begins a
// series is reported and ends the reading, but is no refusal: where one before it was found free, the record is added
// with the constants up to and with this one.
bool ReadConstants(const Action& action, const Reporter& fail, List& values) {
  bool flag = true;
  int free = 0;
  for (std::size_t i = 1; i < values.size() && flag; ++i) {
    const std::string name = ToText(columns[i]);
    const Value value = values[i] = scGetParamValue(name);
    if (value.IsEmptyOrEmptyText()) continue;
    if (EqualsAnEarlierOne(values, i)) {
      flag = ReportUsedTwice(fail, name);
    } else if (BeginsNoSeries(fail, value)) {
      flag = IsNotBlocked(fail, name, value, free);
    } else {
      break;
    }
  }
  if (flag && free >= 1) return true;
  Debug(" Invalid Values entered , Try again...");
  return fail(NumberInUse, action.CmdName);
}

// The answer is that of the last statement: a constant that is blocked in the end makes up for a record that was not
// inserted. Only the empty state counts as no constant here, so that an empty text is entered as blocked.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (!IsStillEmpty(fail, action.CmdName)) return false;
    List values(std::vector<Value>(columns.size()));
    values[0] = scBuildCmdID();
    if (!ReadConstants(action, fail, values)) return false;

    bool flag = scSQLInsert(action.CmdName, columns, values) || fail(InsertFailed, action.CmdName);
    for (std::size_t i = 1; i < values.size(); ++i) {
      if (!values[i].IsEmpty()) flag = Block(fail, values[i]);
    }
    return flag;
  });
}

// The constant against the others on the form, the series and the blocked ranges. Its own row blocks it as well, so
// that a constant that did not change is refused.
bool MayBecome(const Reporter& fail, const std::string& name, const Value& value) {
  for (std::size_t i = 1; i < columns.size(); ++i) {
    const std::string other = ToText(columns[i]);
    if (other != name && Equals(scGetParamValue(other), value)) return ReportUsedTwice(fail, name);
  }
  int free = 0;  // of no account in an edit
  return BeginsNoSeries(fail, value) && IsNotBlocked(fail, name, value, free);
}

// Writes one constant and moves its blocked number. An empty text is written like any other value.
bool Write(const Action& action, const Reporter& fail, const std::string& name, const Value& value, const Value& old) {
  if (value.IsEmpty()) return Unblock(fail, name, old) && UpdateColumnOrNull("NASCS", action.CmdId, name, value);
  UpdateColumn("NASCS", action.CmdId, name, value);  // the answer is not tested
  return Unblock(fail, name, old) && Block(fail, value);
}

// A constant that is refused ends the edit at once. One that could not be written does not: those after it are still
// checked, and reported as not written.
bool Edit(const Action& action) {
  const Reporter fail("NASCS - EditInfo");
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT * FROM NASCS WHERE CmdId = ", action.CmdId), rows)) return fail(StatementFailed);
    std::map<std::string, Value> old;  // relies on the order of the columns
    for (std::size_t i = 1; i < columns.size() && !rows.IsEmpty(); ++i) old[ToText(columns[i])] = rows[i][0];

    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (name == "CMDID") continue;
      const Value value = scGetParamValue(name);
      const bool given = !value.IsEmptyOrEmptyText();
      if (given && !MayBecome(fail, name, value)) return false;
      flag = (flag && Write(action, fail, name, value, old[name])) || fail(ColumnUpdateFailed, name, action.CmdName);
    }
    return flag;
  });
}

bool Set(const Action& action) { return SetSingleRecord(action, Add, Edit); }

// --- Delete.

// Every message of the delete carries this text as its first argument, those of the transaction too.
constexpr const char* deleteText = "NASCS -Delete";

// A record that does not exist is reported, yet counts as deleted. A blocked number that could not be taken out stops
// neither the delete of the record nor the commit: it stays. A series with the same Start goes with a constant.
bool DeleteRecord(const Action& action, const Reporter& fail) {
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT * FROM NASCS WHERE CmdID = ", action.CmdId), rows);
  if (!read || rows.IsEmpty()) {
    fail(RecordNotDeleted, deleteText, action.CmdId);
    return read;
  }
  for (std::size_t i = 1; i < columns.size(); ++i) {
    const Value value = rows[i][0];
    if (value.IsNull()) continue;
    if (scRunQuery(Sql(" DELETE * FROM NANSIBlockedRange WHERE Start =  '", value, "'"))) continue;
    fail(RecordNotDeleted, deleteText, action.CmdId);
    break;
  }
  return DeleteRow(action.CmdName, action.CmdId) || fail(RecordNotDeleted, deleteText, action.CmdId);
}

bool Delete(const Action& action) {
  const Reporter fail("NASCS");
  const bool flag = scStartTransaction() ? DeleteRecord(action, fail) : fail(StartFailed, deleteText);
  if (flag) {
    if (!scCommitTransaction()) fail(CommitFailed, deleteText);
  } else {
    if (!scRollBackTransaction()) fail(RollBackFailed, deleteText);
  }
  return flag;
}

}  // namespace

extern const Module NASCS{
    .SetInfo = Set,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
};

}  // namespace cordboard
