#include "shared/Row.h"

#include "script/HostOperations.h"
#include "script/Statement.h"

namespace cordboard {

namespace {

std::string Quoted(const Value& value) { return Sql("'", value, "'"); }
std::string QuotedOrNull(const Value& value) { return value.IsEmpty() ? "Null" : Quoted(value); }

bool Update(const std::string& table, const Value& CmdId, const std::string& column, const std::string& content,
            const char* lineBreak, const Selector& database = std::nullopt) {
  return scRunQueryOn(database,
                      Sql("UPDATE ", table, " SET ", column, " = ", content, lineBreak, " WHERE CmdId = ", CmdId));
}

}  // namespace

bool ReadOld(const Reporter& fail, const std::string& table, const Value& CmdId, const std::string& column, Value& old,
             const Selector& database) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT ", column, " FROM ", table, " WHERE CmdId = ", CmdId), rows, database))
    return fail(StatementFailed);
  if (!rows.IsEmpty()) old = rows[0][0];
  return true;
}

bool UpdateColumn(const std::string& table, const Value& CmdId, const std::string& column, const Value& value) {
  return Update(table, CmdId, column, Quoted(value), NL);
}

bool UpdateColumnOrNull(const std::string& table, const Value& CmdId, const std::string& column, const Value& value) {
  return Update(table, CmdId, column, QuotedOrNull(value), NL);
}

bool UpdateColumnInLine(const std::string& table, const Value& CmdId, const std::string& column, const Value& value,
                        const Selector& database) {
  return Update(table, CmdId, column, Quoted(value), "", database);
}

bool UpdateColumnOrNullInLine(const std::string& table, const Value& CmdId, const std::string& column,
                              const Value& value) {
  return Update(table, CmdId, column, QuotedOrNull(value), "");
}

bool DeleteRow(const std::string& table, const Value& CmdId) {
  return scRunQuery(Sql("DELETE * FROM ", table, NL, " WHERE CmdId = ", CmdId));
}

Value OrStored(const Value& value, const RowSet& stored, std::size_t column) {
  if (!value.IsBlank()) return value;
  const Value& old = stored[column][0];
  return old.IsBlank() ? Value() : old;
}

}  // namespace cordboard
