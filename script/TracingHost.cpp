#include "script/TracingHost.h"

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

struct Out {};      // the place of an out-argument
struct Nothing {};  // the answer of an operation that has none

// A row set and the selector behind it: a place-holder stands where the selector follows no row set.
struct RowsArgument {
  const RowSet* rows;
  const Selector& database;
};

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "\r\n") == 0) {
      quoted += "{NL}";
      ++i;
    } else if (text[i] == '\n') {
      quoted += "{LF}";
    } else {
      quoted += text[i];
    }
  }
  return quoted + "\"";
}

template <typename Items>
std::string Bracketed(const Items& items) {
  std::string text;
  for (const auto& item : items) text += (text.empty() ? "" : ", ") + TraceText(item);
  return "[" + text + "]";
}

std::string Argument(const std::string& text) { return Quoted(text); }
std::string Argument(const Value& value) { return TraceText(value); }
std::string Argument(const List& list) { return TraceText(list); }
std::string Argument(int number) { return TraceText(Value(number)); }
std::string Argument(bool truth) { return TraceText(Value(truth)); }
std::string Argument(Out) { return "out"; }
std::string Argument(const std::variant<Value, List>& values) {
  return std::visit([](const auto& given) { return TraceText(given); }, values);
}
// Arguments that may be left off give nothing then.
std::string Argument(const Selector& database) { return database ? TraceText(*database) : ""; }
std::string Argument(const std::optional<std::string>& name) { return name ? Quoted(*name) : ""; }
std::string Argument(const RowsArgument& argument) {
  if (!argument.database) return argument.rows != nullptr ? "out" : "";
  return (argument.rows != nullptr ? "out, " : "Null, ") + TraceText(*argument.database);
}
std::string Argument(const std::vector<Value>& arguments) {
  const std::string text = Bracketed(arguments);
  return text.substr(1, text.size() - 2);
}

template <typename... Arguments>
std::string CallText(const char* operation, const Arguments&... arguments) {
  std::string text;
  [[maybe_unused]] const auto append = [&text](const std::string& argument) {
    if (!argument.empty()) text += (text.empty() ? "" : ", ") + argument;
  };
  (append(Argument(arguments)), ...);
  return std::string(operation) + "(" + text + ")";
}

std::string AnswerText(bool answer) { return answer ? "True" : "False"; }
std::string AnswerText(const Value& answer) { return TraceText(answer); }
std::string AnswerText(const RowSet& answer) { return "rows " + TraceText(answer); }
std::string AnswerText(Nothing) { return ""; }

}  // namespace

std::string TraceText(const Value& value) {
  if (value.IsEmpty()) return "Empty";
  if (value.IsNull()) return "Null";
  return value.IsText() ? Quoted(value.text()) : Joined(value);
}

std::string TraceText(const List& list) {
  if (list.IsEmpty()) return "Empty";
  return list.IsNull() ? "Null" : Bracketed(list);
}

std::string TraceText(const RowSet& rows) {
  std::vector<List> columns;
  for (std::size_t column = 0; column < rows.ColumnCount(); ++column) columns.push_back(rows[column]);
  return rows.IsEmpty() ? "Empty" : Bracketed(columns);
}

template <typename Operation>
auto TracingHost::Trace(std::string call, Operation operation) {
  const std::size_t index = calls_.size();
  calls_.push_back({std::move(call), "failed", depth_});
  struct Deeper {
    int& depth;
    explicit Deeper(int& counter) : depth(counter) { ++depth; }
    ~Deeper() { --depth; }
  } const deeper(depth_);
  auto answer = operation();
  calls_[index].answer = AnswerText(answer);
  return answer;
}

template <typename Out>
void TracingHost::NoteOut(std::size_t index, const Out& out) {
  std::string& answer = calls_[index].answer;
  answer += (answer.empty() ? "" : ", ") + TraceText(out);
}

Value TracingHost::scGetParamValue(const std::string& name) {
  return Trace(CallText("scGetParamValue", name), [&] { return next().scGetParamValue(name); });
}

bool TracingHost::scSetParamValue(const std::string& name, const Value& value) {
  return Trace(CallText("scSetParamValue", name, value), [&] { return next().scSetParamValue(name, value); });
}

bool TracingHost::scResetParam(const std::string& name) {
  return Trace(CallText("scResetParam", name), [&] { return next().scResetParam(name); });
}

bool TracingHost::scSetParamOptional(const std::string& name, bool optional) {
  return Trace(CallText("scSetParamOptional", name, optional),
               [&] { return next().scSetParamOptional(name, optional); });
}

void TracingHost::scSetCanHaveParamRange(const std::string& name, bool allowed) {
  Trace(CallText("scSetCanHaveParamRange", name, allowed), [&] {
    next().scSetCanHaveParamRange(name, allowed);
    return Nothing{};
  });
}

void TracingHost::scSetCanHaveParamMultiple(const std::string& name, bool allowed) {
  Trace(CallText("scSetCanHaveParamMultiple", name, allowed), [&] {
    next().scSetCanHaveParamMultiple(name, allowed);
    return Nothing{};
  });
}

Value TracingHost::scIsValueEqual(const Value& value) {
  return Trace(CallText("scIsValueEqual", value), [&] { return next().scIsValueEqual(value); });
}

bool TracingHost::scGetValueArray(const std::string& name, List& values) {
  const std::size_t index = calls_.size();
  const bool answer =
      Trace(CallText("scGetValueArray", name, Out{}), [&] { return next().scGetValueArray(name, values); });
  NoteOut(index, values);
  return answer;
}

void TracingHost::scGetPreviousValue(Value& previous) {
  const std::size_t index = calls_.size();
  Trace(CallText("scGetPreviousValue", Out{}), [&] {
    next().scGetPreviousValue(previous);
    return Nothing{};
  });
  NoteOut(index, previous);
}

bool TracingHost::scActiveDefinition(const std::string& name, const Value& definition) {
  return Trace(CallText("scActiveDefinition", name, definition),
               [&] { return next().scActiveDefinition(name, definition); });
}

void TracingHost::SetTemplate(bool on) {
  Trace(CallText("SetTemplate", on), [&] {
    next().SetTemplate(on);
    return Nothing{};
  });
}

bool TracingHost::scCollectSingleValues(const std::string& sql, const Selector& database) {
  return Trace(CallText("scCollectSingleValues", sql, database),
               [&] { return next().scCollectSingleValues(sql, database); });
}

bool TracingHost::scAddSingleValues(const std::string& sql) {
  return Trace(CallText("scAddSingleValues", sql), [&] { return next().scAddSingleValues(sql); });
}

bool TracingHost::scSubtractSingleValues(const std::string& sql) {
  return Trace(CallText("scSubtractSingleValues", sql), [&] { return next().scSubtractSingleValues(sql); });
}

bool TracingHost::scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return Trace(CallText("scCollectValuesAndDesc", sql, database),
               [&] { return next().scCollectValuesAndDesc(sql, database); });
}

bool TracingHost::scSQLSelectValuesAndDesc() {
  return Trace(CallText("scSQLSelectValuesAndDesc"), [&] { return next().scSQLSelectValuesAndDesc(); });
}

bool TracingHost::scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  return Trace(CallText("scSQLSelectValuesAndDescByDefinition", definition),
               [&] { return next().scSQLSelectValuesAndDescByDefinition(definition); });
}

bool TracingHost::scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  return Trace(CallText("scPushValidValues", values, name), [&] { return next().scPushValidValues(values, name); });
}

bool TracingHost::scPushValidRangeValues(const Value& from, const Value& to) {
  return Trace(CallText("scPushValidRangeValues", from, to), [&] { return next().scPushValidRangeValues(from, to); });
}

bool TracingHost::scRemoveFromValidValues(const std::string& name, const Value& value) {
  return Trace(CallText("scRemoveFromValidValues", name, value),
               [&] { return next().scRemoveFromValidValues(name, value); });
}

bool TracingHost::scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  return Trace(CallText("scRemoveFromValidRangeValues", name, from, to),
               [&] { return next().scRemoveFromValidRangeValues(name, from, to); });
}

bool TracingHost::scGetValidValues(const std::string& name, List& values) {
  const std::size_t index = calls_.size();
  const bool answer =
      Trace(CallText("scGetValidValues", name, Out{}), [&] { return next().scGetValidValues(name, values); });
  NoteOut(index, values);
  return answer;
}

bool TracingHost::scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) {
  const std::size_t index = calls_.size();
  const bool answer = Trace(CallText("scGetNumberOfValidValues", name, definition, Out{}),
                            [&] { return next().scGetNumberOfValidValues(name, definition, count); });
  NoteOut(index, count);
  return answer;
}

bool TracingHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) {
  const std::size_t index = calls_.size();
  const bool answer = Trace(CallText("scRunQuery", sql, RowsArgument{rows, database}),
                            [&] { return next().scRunQuery(sql, rows, database); });
  if (rows != nullptr) NoteOut(index, *rows);
  return answer;
}

bool TracingHost::scSQLInsert(const std::string& table, const List& columns, const List& values) {
  return Trace(CallText("scSQLInsert", table, columns, values),
               [&] { return next().scSQLInsert(table, columns, values); });
}

bool TracingHost::scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                              const List& keyValues) {
  return Trace(CallText("scSQLUpdate", table, columns, values, keys, keyValues),
               [&] { return next().scSQLUpdate(table, columns, values, keys, keyValues); });
}

RowSet TracingHost::scSQLSelect(const std::string& table, const List& columns, const List& keys,
                                const List& keyValues) {
  return Trace(CallText("scSQLSelect", table, columns, keys, keyValues),
               [&] { return next().scSQLSelect(table, columns, keys, keyValues); });
}

Value TracingHost::scBuildCmdID() {
  return Trace(CallText("scBuildCmdID"), [&] { return next().scBuildCmdID(); });
}

bool TracingHost::scStartTransaction() {
  return Trace(CallText("scStartTransaction"), [&] { return next().scStartTransaction(); });
}

bool TracingHost::scCommitTransaction() {
  return Trace(CallText("scCommitTransaction"), [&] { return next().scCommitTransaction(); });
}

bool TracingHost::scRollBackTransaction() {
  return Trace(CallText("scRollBackTransaction"), [&] { return next().scRollBackTransaction(); });
}

bool TracingHost::scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) {
  const std::size_t index = calls_.size();
  const bool answer = Trace(CallText("scNANSIinitiate", numse, numtyp, Out{}),
                            [&] { return next().scNANSIinitiate(numse, numtyp, code); });
  NoteOut(index, code);
  return answer;
}

bool TracingHost::scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) {
  return Trace(CallText("scNANSIremoveFromBlockedRange", numse, numtyp),
               [&] { return next().scNANSIremoveFromBlockedRange(numse, numtyp); });
}

bool TracingHost::scGetAutoEquOptionValue(Value& clause) {
  const std::size_t index = calls_.size();
  const bool answer =
      Trace(CallText("scGetAutoEquOptionValue", Out{}), [&] { return next().scGetAutoEquOptionValue(clause); });
  NoteOut(index, clause);
  return answer;
}

void TracingHost::scFilterEQU(const Value& first, const Value& second) {
  Trace(CallText("scFilterEQU", first, second), [&] {
    next().scFilterEQU(first, second);
    return Nothing{};
  });
}

void TracingHost::scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                                 const std::vector<Value>& arguments) {
  Trace(CallText("scErrorMessage", first, second, third, context, code, arguments), [&] {
    next().scErrorMessage(first, second, third, context, code, arguments);
    return Nothing{};
  });
}

void TracingHost::scPrintToDebugWindow(const std::string& line) {
  Trace(CallText("scPrintToDebugWindow", line), [&] {
    next().scPrintToDebugWindow(line);
    return Nothing{};
  });
}

}  // namespace cordboard
