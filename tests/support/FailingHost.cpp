#include "support/FailingHost.h"

#include <algorithm>
#include <string>
#include <type_traits>

#include "script/MessageCodes.h"
#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

constexpr Refusal refusals[] = {
    // The form.
    {"scGetParamValue", false, "it gives a value, also where there is none"},
    {"scSetParamValue", true, "the form does not take the value; the old one stays"},
    {"scResetParam", true, "the parameter keeps its value"},
    {"scSetParamOptional", true, "the parameter stays as mandatory as it was"},
    {"scSetCanHaveParamRange", false, "it has no answer"},
    {"scSetCanHaveParamMultiple", false, "it has no answer"},
    {"scIsValueEqual", false, "its False is an answer: the values differ"},
    {"scGetValueArray", true, "the values cannot be delivered; the list stays without bounds"},
    {"scGetPreviousValue", false, "it has no answer"},
    {"scActiveDefinition", true, "the definition stays as it was"},
    {"SetTemplate", false, "it has no answer"},
    // Lists of valid values.
    {"scCollectSingleValues", true, "the statement fails; the list stays as it was"},
    {"scAddSingleValues", true, "the statement fails; the list stays as it was"},
    {"scSubtractSingleValues", true, "the statement fails; the list stays as it was"},
    {"scCollectValuesAndDesc", true, "the statement fails; the list stays as it was"},
    {"scSQLSelectValuesAndDesc", true, "the fixed values cannot be read; the list stays as it was"},
    {"scSQLSelectValuesAndDescByDefinition", true, "the fixed values cannot be read; the list stays as it was"},
    {"scPushValidValues", true, "nothing is added"},
    {"scPushValidRangeValues", true, "nothing is added"},
    {"scRemoveFromValidValues", true, "nothing is removed"},
    {"scRemoveFromValidRangeValues", true, "nothing is removed"},
    {"scGetValidValues", true, "the list cannot be had; the out-argument stays without bounds"},
    {"scGetNumberOfValidValues", true, "the list cannot be counted; the out-argument stays empty"},
    // The database.
    {"scRunQuery", true, "the statement fails and changes nothing; the rows stay empty"},
    {"scSQLInsert", true, "no row is inserted"},
    {"scSQLUpdate", true, "no row is changed"},
    {"scSQLSelect", false, "it gives rows; none is an answer"},
    {"scBuildCmdID", false, "it gives an identifier"},
    {"scStartTransaction", true, "no transaction is open"},
    {"scCommitTransaction", true, "the transaction stays open"},
    {"scRollBackTransaction", true, "the transaction stays open"},
    // Operations of the exchange.
    {"scNANSIinitiate", true, "no number is made, and the code says that a statement failed"},
    {"scNANSIremoveFromBlockedRange", true, "the blocked range stays as it was"},
    {"scGetAutoEquOptionValue", true, "the user has chosen no order; the out-argument stays empty"},
    {"scFilterEQU", false, "it has no answer"},
    // Reports.
    {"scErrorMessage", false, "it has no answer"},
    {"scPrintToDebugWindow", false, "it has no answer"},
};

}  // namespace

std::span<const Refusal> Refusals() { return refusals; }

bool CanRefuse(std::string_view operation) {
  const auto found = std::ranges::find(refusals, operation, &Refusal::operation);
  return found != std::end(refusals) && found->possible;
}

template <typename Operation>
auto FailingHost::Counted(const char* name, Operation operation) {
  if (++calls_ != call_) return operation();
  if constexpr (std::is_same_v<decltype(operation()), bool>) {
    if (fault_ == Fault::Refuses) return false;
  }
  throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, std::string(name) + " was made to fail");
}

Value FailingHost::scGetParamValue(const std::string& name) {
  return Counted("scGetParamValue", [&] { return next().scGetParamValue(name); });
}

bool FailingHost::scSetParamValue(const std::string& name, const Value& value) {
  return Counted("scSetParamValue", [&] { return next().scSetParamValue(name, value); });
}

bool FailingHost::scResetParam(const std::string& name) {
  return Counted("scResetParam", [&] { return next().scResetParam(name); });
}

bool FailingHost::scSetParamOptional(const std::string& name, bool optional) {
  return Counted("scSetParamOptional", [&] { return next().scSetParamOptional(name, optional); });
}

void FailingHost::scSetCanHaveParamRange(const std::string& name, bool allowed) {
  Counted("scSetCanHaveParamRange", [&] { next().scSetCanHaveParamRange(name, allowed); });
}

void FailingHost::scSetCanHaveParamMultiple(const std::string& name, bool allowed) {
  Counted("scSetCanHaveParamMultiple", [&] { next().scSetCanHaveParamMultiple(name, allowed); });
}

Value FailingHost::scIsValueEqual(const Value& value) {
  return Counted("scIsValueEqual", [&] { return next().scIsValueEqual(value); });
}

bool FailingHost::scGetValueArray(const std::string& name, List& values) {
  return Counted("scGetValueArray", [&] { return next().scGetValueArray(name, values); });
}

void FailingHost::scGetPreviousValue(Value& previous) {
  Counted("scGetPreviousValue", [&] { next().scGetPreviousValue(previous); });
}

bool FailingHost::scActiveDefinition(const std::string& name, const Value& definition) {
  return Counted("scActiveDefinition", [&] { return next().scActiveDefinition(name, definition); });
}

void FailingHost::SetTemplate(bool on) {
  Counted("SetTemplate", [&] { next().SetTemplate(on); });
}

bool FailingHost::scCollectSingleValues(const std::string& sql, const Selector& database) {
  return Counted("scCollectSingleValues", [&] { return next().scCollectSingleValues(sql, database); });
}

bool FailingHost::scAddSingleValues(const std::string& sql) {
  return Counted("scAddSingleValues", [&] { return next().scAddSingleValues(sql); });
}

bool FailingHost::scSubtractSingleValues(const std::string& sql) {
  return Counted("scSubtractSingleValues", [&] { return next().scSubtractSingleValues(sql); });
}

bool FailingHost::scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return Counted("scCollectValuesAndDesc", [&] { return next().scCollectValuesAndDesc(sql, database); });
}

bool FailingHost::scSQLSelectValuesAndDesc() {
  return Counted("scSQLSelectValuesAndDesc", [&] { return next().scSQLSelectValuesAndDesc(); });
}

bool FailingHost::scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  return Counted("scSQLSelectValuesAndDescByDefinition",
                 [&] { return next().scSQLSelectValuesAndDescByDefinition(definition); });
}

bool FailingHost::scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  return Counted("scPushValidValues", [&] { return next().scPushValidValues(values, name); });
}

bool FailingHost::scPushValidRangeValues(const Value& from, const Value& to) {
  return Counted("scPushValidRangeValues", [&] { return next().scPushValidRangeValues(from, to); });
}

bool FailingHost::scRemoveFromValidValues(const std::string& name, const Value& value) {
  return Counted("scRemoveFromValidValues", [&] { return next().scRemoveFromValidValues(name, value); });
}

bool FailingHost::scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  return Counted("scRemoveFromValidRangeValues", [&] { return next().scRemoveFromValidRangeValues(name, from, to); });
}

bool FailingHost::scGetValidValues(const std::string& name, List& values) {
  return Counted("scGetValidValues", [&] { return next().scGetValidValues(name, values); });
}

bool FailingHost::scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) {
  return Counted("scGetNumberOfValidValues", [&] { return next().scGetNumberOfValidValues(name, definition, count); });
}

bool FailingHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) {
  return Counted("scRunQuery", [&] { return next().scRunQuery(sql, rows, database); });
}

bool FailingHost::scSQLInsert(const std::string& table, const List& columns, const List& values) {
  return Counted("scSQLInsert", [&] { return next().scSQLInsert(table, columns, values); });
}

bool FailingHost::scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                              const List& keyValues) {
  return Counted("scSQLUpdate", [&] { return next().scSQLUpdate(table, columns, values, keys, keyValues); });
}

RowSet FailingHost::scSQLSelect(const std::string& table, const List& columns, const List& keys,
                                const List& keyValues) {
  return Counted("scSQLSelect", [&] { return next().scSQLSelect(table, columns, keys, keyValues); });
}

Value FailingHost::scBuildCmdID() {
  return Counted("scBuildCmdID", [&] { return next().scBuildCmdID(); });
}

bool FailingHost::scStartTransaction() {
  return Counted("scStartTransaction", [&] { return next().scStartTransaction(); });
}

bool FailingHost::scCommitTransaction() {
  return Counted("scCommitTransaction", [&] { return next().scCommitTransaction(); });
}

bool FailingHost::scRollBackTransaction() {
  return Counted("scRollBackTransaction", [&] { return next().scRollBackTransaction(); });
}

bool FailingHost::scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) {
  code = static_cast<int>(Message::StatementFailed);
  return Counted("scNANSIinitiate", [&] {
    code = Value();
    return next().scNANSIinitiate(numse, numtyp, code);
  });
}

bool FailingHost::scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) {
  return Counted("scNANSIremoveFromBlockedRange", [&] { return next().scNANSIremoveFromBlockedRange(numse, numtyp); });
}

bool FailingHost::scGetAutoEquOptionValue(Value& clause) {
  return Counted("scGetAutoEquOptionValue", [&] { return next().scGetAutoEquOptionValue(clause); });
}

void FailingHost::scFilterEQU(const Value& first, const Value& second) {
  Counted("scFilterEQU", [&] { next().scFilterEQU(first, second); });
}

void FailingHost::scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                                 const std::vector<Value>& arguments) {
  Counted("scErrorMessage", [&] { next().scErrorMessage(first, second, third, context, code, arguments); });
}

void FailingHost::scPrintToDebugWindow(const std::string& line) {
  Counted("scPrintToDebugWindow", [&] { next().scPrintToDebugWindow(line); });
}

}  // namespace cordboard
