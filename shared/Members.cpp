#include "shared/Members.h"

#include "script/Conversions.h"

namespace cordboard {

bool InsertMembers(const Action& action, const Reporter& fail, const List& numbers, const MemberRules& rules) {
  for (const Value& DIR : numbers) {
    List row(std::vector<Value>{});
    for (const Value& column : action.ParamList) {
      const std::string name = ToText(column);
      if (name == "CMDID") {
        row.Append(scBuildCmdID());
      } else if (name == "NUMTYP") {
        row.Append(rules.NUMTYP(DIR));
      } else if (name == "DIR") {
        row.Append(DIR);
      } else if (name == "GRP") {
        const Value GRP = scGetParamValue(name);
        if (!rules.GRP(GRP)) return false;
        row.Append(GRP);
      } else {
        row.Append(scGetParamValue(name));
      }
    }
    if (!scSQLInsert(action.CmdName, action.ParamList, row)) return fail(InsertFailed, action.CmdName);
  }
  return true;
}

Value ExtensionType(const Value&) { return "EX"; }

Value OperatorOrExtensionType(const Reporter& fail, const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DIR, NUMTYP FROM OPERI", NL, "WHERE DIR = '", DIR, "'"), rows)) {
    fail(StatementFailed);
    return Value();
  }
  return rows.IsEmpty() ? "EX" : rows[1][0];
}

bool FindHead(const Reporter& fail, const std::string& heads, const Value& GRP, bool& found) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT GRP FROM ", heads, NL, " WHERE GRP = '", GRP, "'"), rows)) return fail(StatementFailed);
  found = !rows.IsEmpty();
  return true;
}

bool InsertHead(const Reporter& fail, const std::string& heads, const List& columns, const List& values) {
  return scSQLInsert(heads, columns, values) || fail(InsertFailed, heads);
}

bool FindOrInsertHead(const Reporter& fail, const std::string& heads, const Value& GRP) {
  bool found = false;
  if (!FindHead(fail, heads, GRP, found)) return false;
  return found || InsertHead(fail, heads, {"CMDID", "GRP"}, {scBuildCmdID(), GRP});
}

}  // namespace cordboard
