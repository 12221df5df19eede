#include "com/DispatchHost.h"

#include <utility>

#include "com/Array.h"
#include "com/LateBound.h"
#include "script/Conversions.h"

namespace cordboard::com {

namespace {

using Arguments = std::vector<Variant>;

constexpr std::size_t MessageArguments = 4;  // as many as a message takes

// A row set and the selector behind it: null stands where the selector follows no row set.
struct RowsArgument {
  Variant* rows;
  const Selector& database;
};

void Put(Arguments& arguments, const Value& value) { arguments.emplace_back(value); }
void Put(Arguments& arguments, const std::string& text) { arguments.emplace_back(Value(text)); }
void Put(Arguments& arguments, int number) { arguments.emplace_back(Value(number)); }
void Put(Arguments& arguments, bool truth) { arguments.emplace_back(Value(truth)); }
void Put(Arguments& arguments, const List& list) { arguments.push_back(ToVariant(list)); }
void Put(Arguments& arguments, Variant& out) { arguments.push_back(Variant::ReferenceTo(out)); }
void Put(Arguments& arguments, const std::variant<Value, List>& values) {
  std::visit([&arguments](const auto& given) { Put(arguments, given); }, values);
}
template <typename Type>
void Put(Arguments& arguments, const std::optional<Type>& given) {
  arguments.push_back(given ? Variant(Value(*given)) : Variant::NotGiven());
}
void Put(Arguments& arguments, const RowsArgument& argument) {
  if (argument.rows != nullptr) {
    Put(arguments, *argument.rows);
  } else {
    arguments.push_back(argument.database ? Variant(Value::Null()) : Variant::NotGiven());
  }
  Put(arguments, argument.database);
}
void Put(Arguments& arguments, const std::vector<Value>& values) {
  for (const Value& value : values) Put(arguments, value);
  for (std::size_t given = values.size(); given < MessageArguments; ++given) arguments.push_back(Variant::NotGiven());
}

bool Truth(const Variant& answer) { return ToTruth(ToValue(answer)); }

}  // namespace

template <typename... Given>
Variant DispatchHost::Ask(const char* operation, Given&&... given) {
  Arguments arguments;
  (Put(arguments, given), ...);
  return CallByName(object_, operation, arguments);
}

Value DispatchHost::scGetParamValue(const std::string& name) { return ToValue(Ask("scGetParamValue", name)); }
bool DispatchHost::scSetParamValue(const std::string& name, const Value& value) {
  return Truth(Ask("scSetParamValue", name, value));
}
bool DispatchHost::scResetParam(const std::string& name) { return Truth(Ask("scResetParam", name)); }
bool DispatchHost::scSetParamOptional(const std::string& name, bool optional) {
  return Truth(Ask("scSetParamOptional", name, optional));
}
void DispatchHost::scSetCanHaveParamRange(const std::string& name, bool allowed) {
  Ask("scSetCanHaveParamRange", name, allowed);
}
void DispatchHost::scSetCanHaveParamMultiple(const std::string& name, bool allowed) {
  Ask("scSetCanHaveParamMultiple", name, allowed);
}
Value DispatchHost::scIsValueEqual(const Value& value) { return ToValue(Ask("scIsValueEqual", value)); }
bool DispatchHost::scGetValueArray(const std::string& name, List& values) {
  Variant out;
  const Variant result = Ask("scGetValueArray", name, out);
  values = ToList(out);
  return Truth(result);
}
void DispatchHost::scGetPreviousValue(Value& previous) {
  Variant out;
  Ask("scGetPreviousValue", out);
  previous = ToValue(out);
}
bool DispatchHost::scActiveDefinition(const std::string& name, const Value& definition) {
  return Truth(Ask("scActiveDefinition", name, definition));
}
void DispatchHost::SetTemplate(bool on) { Ask("SetTemplate", on); }

bool DispatchHost::scCollectSingleValues(const std::string& sql, const Selector& database) {
  return Truth(Ask("scCollectSingleValues", sql, database));
}
bool DispatchHost::scAddSingleValues(const std::string& sql) { return Truth(Ask("scAddSingleValues", sql)); }
bool DispatchHost::scSubtractSingleValues(const std::string& sql) { return Truth(Ask("scSubtractSingleValues", sql)); }
bool DispatchHost::scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return Truth(Ask("scCollectValuesAndDesc", sql, database));
}
bool DispatchHost::scSQLSelectValuesAndDesc() { return Truth(Ask("scSQLSelectValuesAndDesc")); }
bool DispatchHost::scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  return Truth(Ask("scSQLSelectValuesAndDescByDefinition", definition));
}
bool DispatchHost::scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  return Truth(Ask("scPushValidValues", values, name));
}
bool DispatchHost::scPushValidRangeValues(const Value& from, const Value& to) {
  return Truth(Ask("scPushValidRangeValues", from, to));
}
bool DispatchHost::scRemoveFromValidValues(const std::string& name, const Value& value) {
  return Truth(Ask("scRemoveFromValidValues", name, value));
}
bool DispatchHost::scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  return Truth(Ask("scRemoveFromValidRangeValues", name, from, to));
}
bool DispatchHost::scGetValidValues(const std::string& name, List& values) {
  Variant out;
  const Variant result = Ask("scGetValidValues", name, out);
  values = ToList(out);
  return Truth(result);
}
bool DispatchHost::scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) {
  Variant out;
  const Variant result = Ask("scGetNumberOfValidValues", name, definition, out);
  count = ToValue(out);
  return Truth(result);
}

bool DispatchHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) {
  Variant out;
  const Variant result = Ask("scRunQuery", sql, RowsArgument{rows == nullptr ? nullptr : &out, database});
  if (rows != nullptr) *rows = ToRowSet(out);
  return Truth(result);
}
bool DispatchHost::scSQLInsert(const std::string& table, const List& columns, const List& values) {
  return Truth(Ask("scSQLInsert", table, columns, values));
}
bool DispatchHost::scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                               const List& keyValues) {
  return Truth(Ask("scSQLUpdate", table, columns, values, keys, keyValues));
}
RowSet DispatchHost::scSQLSelect(const std::string& table, const List& columns, const List& keys,
                                 const List& keyValues) {
  return ToRowSet(Ask("scSQLSelect", table, columns, keys, keyValues));
}
Value DispatchHost::scBuildCmdID() { return ToValue(Ask("scBuildCmdID")); }
bool DispatchHost::scStartTransaction() { return Truth(Ask("scStartTransaction")); }
bool DispatchHost::scCommitTransaction() { return Truth(Ask("scCommitTransaction")); }
bool DispatchHost::scRollBackTransaction() { return Truth(Ask("scRollBackTransaction")); }

bool DispatchHost::scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) {
  Variant out;
  const Variant result = Ask("scNANSIinitiate", numse, numtyp, out);
  code = ToValue(out);
  return Truth(result);
}
bool DispatchHost::scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) {
  return Truth(Ask("scNANSIremoveFromBlockedRange", numse, numtyp));
}
bool DispatchHost::scGetAutoEquOptionValue(Value& clause) {
  Variant out;
  const Variant result = Ask("scGetAutoEquOptionValue", out);
  clause = ToValue(out);
  return Truth(result);
}
void DispatchHost::scFilterEQU(const Value& first, const Value& second) { Ask("scFilterEQU", first, second); }

void DispatchHost::scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                                  const std::vector<Value>& arguments) {
  Ask("scErrorMessage", first, second, third, context, code, arguments);
}
void DispatchHost::scPrintToDebugWindow(const std::string& line) { Ask("scPrintToDebugWindow", line); }

}  // namespace cordboard::com
