// More lines of transcripts: reads of the form, calls with one text, the bookkeeping of extensions; and rows written a
// row each.
#pragma once

#include <string>
#include <vector>

#include "script/TracingHost.h"
#include "script/Value.h"
#include "support/Transcript.h"

namespace cordboard {

inline std::string Read(const std::string& name) { return "scGetParamValue(\"" + name + "\")"; }
inline std::string Call(const std::string& operation) { return operation + "()"; }
inline std::string Call(const std::string& operation, const std::string& text) {
  return operation + "(" + TraceText(Value(text)) + ")";
}
inline std::string DebugLine(const std::string& line) { return Call("scPrintToDebugWindow", line); }

// What the bookkeeping does with a number: it is marked, an extension takes it into use, it is freed, it moves.
inline std::string MarkNumberSql(const std::string& number, const std::string& used) {
  return " UPDATE NANSI SET USED = " + used + "{NL}WHERE NUMSE = '" + number + "'";
}
inline std::string TakeNumber(const std::string& number) {
  std::string lines = StatementLine(MarkNumberSql(number, "True"));
  for (const std::string table : {"UsedExtOpeGrp", "UsedExtensionsAndOperators", "UsedNumbers"})
    lines += "\n" + StatementLine(" INSERT INTO " + table + "{NL} (DIR, NUMTYP) {NL} VALUES ('" + number + "', 'EX')");
  return lines;
}
inline std::string ForgetNumberSql(const std::string& number) {
  return " DELETE * FROM UsedExtOpeGrp {NL} WHERE DIR = '" + number + "'";
}
inline std::string FreeNumber(const std::string& number) {
  return StatementLine(MarkNumberSql(number, "False")) + "\n" + StatementLine(ForgetNumberSql(number));
}
inline std::string MoveNumber(const std::string& from, const std::string& to) {
  return StatementLine(MarkNumberSql(from, "False")) + "\n" + StatementLine(MarkNumberSql(to, "True")) + "\n" +
         StatementLine("UPDATE UsedExtOpeGrp SET DIR = '" + to + "'{NL} WHERE DIR = '" + from + "'");
}
// And with a position.
inline std::string MarkPositionSql(const std::string& EQU, const std::string& used) {
  return "UPDATE EQUIPMENT SET USED = " + used + "{NL}WHERE EQU = '" + EQU + "'";
}

// Rows written a row each, as ScriptedHost::Rows takes them.
inline std::vector<std::vector<Value>> ByColumn(const std::vector<std::vector<Value>>& rows) {
  std::vector<std::vector<Value>> columns(rows.front().size());
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) columns[i].push_back(row[i]);
  }
  return columns;
}

}  // namespace cordboard
