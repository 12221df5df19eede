// NASCS: the eleven constants of the number plan, in one record. A constant blocks the number that it holds: it may not
// begin a number of a series, lie in a blocked range, or equal another constant, and is itself entered as blocked.
//
// In NANSIBlockedRange a constant has a Start only; a series has End and Numtyp as well.

#include <map>
#include <vector>

#include "commands/numberplan/NASCS_checks.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"

namespace cordboard {

namespace {

// The columns of the table in their order: the identifier, then the constants from index 1.
const List columns = {"CmdID", "DDIV", "CDDIV", "ANSBL", "AGP", "ANS", "ACGN", "PGI", "PGDMI", "PGSI", "PGA", "PGSA"};

// Reads a count. The answer of the query is not tested: one that gives no row fails the call.
Value Count(const std::string& sql) {
  RowSet rows;
  scRunQuery(sql, rows);
  return rows[0][0];
}

bool ReportUsedTwice(const std::string& context, const std::string& name) {
  Debug(" The Value for ", name, " is already used, try another value");
  Report(context, Message::ValueUsedTwice, name);
  return false;
}

bool Block(const std::string& context, const Value& value) {
  return OrReport(scRunQuery(Sql("INSERT INTO NANSIBlockedRange (Start) VALUES ('", value, "' )")), context,
                  Message::InsertFailed, "NANSIBlockedRange");
}

bool Unblock(const std::string& context, const std::string& name, const Value& value) {
  return OrReport(scRunQuery(Sql("DELETE * FROM NANSIBlockedRange WHERE Start = '", value, "' ")), context,
                  Message::BlockedRangeNotRemoved, name);
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
bool ReadConstants(const Action& action, const std::string& context, List& values) {
  bool flag = true;
  int free = 0;
  for (std::size_t i = 1; i < values.size() && flag; ++i) {
    const std::string name = ToText(columns[i]);
    const Value value = values[i] = scGetParamValue(name);
    if (value.IsEmpty() || value.IsEmptyText()) continue;
    if (EqualsAnEarlierOne(values, i)) {
      flag = ReportUsedTwice(context, name);
    } else if (BeginsNoSeries(action, context, value)) {
      flag = IsNotBlocked(action, context, name, value, free);
    } else {
      break;
    }
  }
  if (flag && free >= 1) return true;
  Debug(" Invalid Values entered , Try again...");
  Report(context, Message::NumberInUse, action.CmdName);
  return false;
}

// The answer is that of the last statement: a constant that is blocked in the end makes up for a record that was not
// inserted. Only the empty state counts as no constant here, so that an empty text is entered as blocked.
bool Add(const Action& action) {
  const std::string context = "Add: " + action.CmdName;
  return InTransaction(context, [&] {
    if (Differs(Count("SELECT COUNT(*) FROM NASCS"), 0)) {
      Report(context, Message::TableHoldsRecord, action.CmdName);
      return false;
    }
    List values(std::vector<Value>(columns.size()));
    values[0] = scBuildCmdID();
    if (!ReadConstants(action, context, values)) return false;

    bool flag = OrReport(scSQLInsert(action.CmdName, columns, values), context, Message::InsertFailed, action.CmdName);
    for (std::size_t i = 1; i < values.size(); ++i) {
      if (!values[i].IsEmpty()) flag = Block(context, values[i]);
    }
    return flag;
  });
}

// The constant against the others on the form, the series and the blocked ranges. Its own row blocks it as well, so
// that a constant that did not change is refused.
bool MayBecome(const Action& action, const std::string& context, const std::string& name, const Value& value) {
  for (std::size_t i = 1; i < columns.size(); ++i) {
    const std::string other = ToText(columns[i]);
    if (other != name && Equals(scGetParamValue(other), value)) return ReportUsedTwice(context, name);
  }
  int free = 0;  // of no account in an edit
  return BeginsNoSeries(action, context, value) && IsNotBlocked(action, context, name, value, free);
}

// Writes one constant and moves its blocked number. An empty text is written like any other value.
bool Write(const Action& action, const std::string& context, const std::string& name, const Value& value,
           const Value& old) {
  if (value.IsEmpty()) return Unblock(context, name, old) && WriteColumn("NASCS", action.CmdId, name, value);
  WriteColumn("NASCS", action.CmdId, name, value);  // the answer is not tested
  return Unblock(context, name, old) && Block(context, value);
}

// A constant that is refused ends the edit at once. One that could not be written does not: those behind it are still
// checked, and reported as not written.
bool Edit(const Action& action) {
  const std::string context = "NASCS - EditInfo";
  return InTransaction(context, [&] {
    RowSet rows;
    if (!OrReport(scRunQuery(Sql("SELECT * FROM NASCS WHERE CmdId = ", action.CmdId), rows), context,
                  Message::StatementFailed))
      return false;
    std::map<std::string, Value> old;  // relies on the order of the columns
    for (std::size_t i = 1; i < columns.size() && !rows.IsEmpty(); ++i) old[ToText(columns[i])] = rows[i][0];

    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (name == "CMDID") continue;
      const Value value = scGetParamValue(name);
      const bool given = !value.IsEmpty() && !value.IsEmptyText();
      if (given && !MayBecome(action, context, name, value)) return false;
      flag = OrReport(flag && Write(action, context, name, value, old[name]), context, Message::ColumnUpdateFailed,
                      name, action.CmdName);
    }
    return flag;
  });
}

// The table holds one record at most: a second add is an edit of the first.
bool AddOrEdit(const Action& action) {
  if (Equals(Count("SELECT COUNT(*) FROM NASCS"), 0)) return Add(action);
  RowSet rows;
  scRunQuery("SELECT CmdID FROM NASCS", rows);
  Action edit = action;
  edit.CmdId = ToInt32(rows[0][0]);
  return Edit(edit);
}

// Every message of the delete carries this text as its first argument, those of the transaction too.
const char* const deleteText = "NASCS -Delete";

// A record that does not exist is reported, yet counts as deleted. A blocked number that could not be taken out stops
// neither the delete of the record nor the commit: it stays behind. A series with the same Start goes with a constant.
bool DeleteRecord(const Action& action, const std::string& context) {
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT * FROM NASCS WHERE CmdID = ", action.CmdId), rows);
  if (!read || rows.IsEmpty()) {
    Report(context, Message::RecordNotDeleted, deleteText, action.CmdId);
    return read;
  }
  for (std::size_t i = 1; i < columns.size(); ++i) {
    const Value value = rows[i][0];
    if (value.IsNull()) continue;
    if (!OrReport(scRunQuery(Sql(" DELETE * FROM NANSIBlockedRange WHERE Start =  '", value, "'")), context,
                  Message::RecordNotDeleted, deleteText, action.CmdId))
      break;
  }
  return OrReport(scRunQuery(Sql("DELETE * FROM ", action.CmdName, NL, " WHERE CmdId = ", action.CmdId)), context,
                  Message::RecordNotDeleted, deleteText, action.CmdId);
}

bool Delete(const Action& action) {
  const std::string context = "NASCS";
  bool flag = scStartTransaction();
  if (flag) {
    flag = DeleteRecord(action, context);
  } else {
    Report(context, Message::StartFailed, deleteText);
  }
  if (flag) {
    OrReport(scCommitTransaction(), context, Message::CommitFailed, deleteText);
  } else {
    OrReport(scRollBackTransaction(), context, Message::RollBackFailed, deleteText);
  }
  return flag;
}

}  // namespace

extern const Module NASCS{
    .SetInfo = AddOrEdit,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
};

}  // namespace cordboard
