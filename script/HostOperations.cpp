#include "script/HostOperations.h"

#include "script/CurrentHost.h"

namespace cordboard {

Value scGetParamValue(const std::string& name) { return CurrentHost()->scGetParamValue(name); }
bool scSetParamValue(const std::string& name, const Value& value) {
  return CurrentHost()->scSetParamValue(name, value);
}
bool scResetParam(const std::string& name) { return CurrentHost()->scResetParam(name); }
bool scSetParamOptional(const std::string& name, bool optional) {
  return CurrentHost()->scSetParamOptional(name, optional);
}
void scSetCanHaveParamRange(const std::string& name, bool allowed) {
  CurrentHost()->scSetCanHaveParamRange(name, allowed);
}
void scSetCanHaveParamMultiple(const std::string& name, bool allowed) {
  CurrentHost()->scSetCanHaveParamMultiple(name, allowed);
}
Value scIsValueEqual(const Value& value) { return CurrentHost()->scIsValueEqual(value); }
bool scGetValueArray(const std::string& name, List& values) { return CurrentHost()->scGetValueArray(name, values); }
void scGetPreviousValue(Value& previous) { CurrentHost()->scGetPreviousValue(previous); }
bool scActiveDefinition(const std::string& name, const Value& definition) {
  return CurrentHost()->scActiveDefinition(name, definition);
}
void SetTemplate(bool on) { CurrentHost()->SetTemplate(on); }

bool scCollectSingleValues(const std::string& sql, const Selector& database) {
  return CurrentHost()->scCollectSingleValues(sql, database);
}
bool scAddSingleValues(const std::string& sql) { return CurrentHost()->scAddSingleValues(sql); }
bool scSubtractSingleValues(const std::string& sql) { return CurrentHost()->scSubtractSingleValues(sql); }
bool scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return CurrentHost()->scCollectValuesAndDesc(sql, database);
}
bool scSQLSelectValuesAndDesc() { return CurrentHost()->scSQLSelectValuesAndDesc(); }
bool scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  return CurrentHost()->scSQLSelectValuesAndDescByDefinition(definition);
}
bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  return CurrentHost()->scPushValidValues(values, name);
}
bool scPushValidRangeValues(const Value& from, const Value& to) {
  return CurrentHost()->scPushValidRangeValues(from, to);
}
bool scRemoveFromValidValues(const std::string& name, const Value& value) {
  return CurrentHost()->scRemoveFromValidValues(name, value);
}
bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  return CurrentHost()->scRemoveFromValidRangeValues(name, from, to);
}
bool scGetValidValues(const std::string& name, List& values) { return CurrentHost()->scGetValidValues(name, values); }
bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) {
  return CurrentHost()->scGetNumberOfValidValues(name, definition, count);
}

bool scRunQuery(const std::string& sql) { return CurrentHost()->scRunQuery(sql, nullptr, std::nullopt); }
bool scRunQuery(const std::string& sql, RowSet& rows, const Selector& database) {
  return CurrentHost()->scRunQuery(sql, &rows, database);
}
bool scRunQueryOn(const Selector& database, const std::string& sql) {
  return CurrentHost()->scRunQuery(sql, nullptr, database);
}
bool scSQLInsert(const std::string& table, const List& columns, const List& values) {
  return CurrentHost()->scSQLInsert(table, columns, values);
}
bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                 const List& keyValues) {
  return CurrentHost()->scSQLUpdate(table, columns, values, keys, keyValues);
}
RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) {
  return CurrentHost()->scSQLSelect(table, columns, keys, keyValues);
}
Value scBuildCmdID() { return CurrentHost()->scBuildCmdID(); }
bool scStartTransaction() { return CurrentHost()->scStartTransaction(); }
bool scCommitTransaction() { return CurrentHost()->scCommitTransaction(); }
bool scRollBackTransaction() { return CurrentHost()->scRollBackTransaction(); }

bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) {
  return CurrentHost()->scNANSIinitiate(numse, numtyp, code);
}
bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) {
  return CurrentHost()->scNANSIremoveFromBlockedRange(numse, numtyp);
}
bool scGetAutoEquOptionValue(Value& clause) { return CurrentHost()->scGetAutoEquOptionValue(clause); }
void scFilterEQU(const Value& first, const Value& second) { CurrentHost()->scFilterEQU(first, second); }

void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                    const std::vector<Value>& arguments) {
  CurrentHost()->scErrorMessage(first, second, third, context, code, arguments);
}
void scPrintToDebugWindow(const std::string& line) { CurrentHost()->scPrintToDebugWindow(line); }

}  // namespace cordboard
