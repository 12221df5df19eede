// A host that is one function: every operation arrives there as data, and its answer leaves as the operation's own. The
// base of all hosts that treat the operations alike: they record them, carry them to another place, let them fail.
#pragma once

#include <type_traits>
#include <utility>

#include "script/Conversions.h"
#include "script/HostCall.h"
#include "script/RunTimeFailure.h"

namespace cordboard {

class CallHost : public Host {
 public:
  Value scGetParamValue(const std::string& name) override { return Call<Value>("scGetParamValue", name); }
  bool scSetParamValue(const std::string& name, const Value& value) override {
    return Call<bool>("scSetParamValue", name, value);
  }
  bool scResetParam(const std::string& name) override { return Call<bool>("scResetParam", name); }
  bool scSetParamOptional(const std::string& name, bool optional) override {
    return Call<bool>("scSetParamOptional", name, optional);
  }
  void scSetCanHaveParamRange(const std::string& name, bool allowed) override {
    Call<void>("scSetCanHaveParamRange", name, allowed);
  }
  void scSetCanHaveParamMultiple(const std::string& name, bool allowed) override {
    Call<void>("scSetCanHaveParamMultiple", name, allowed);
  }
  Value scIsValueEqual(const Value& value) override { return Call<Value>("scIsValueEqual", value); }
  bool scGetValueArray(const std::string& name, List& values) override {
    return Call<bool>("scGetValueArray", name, values);
  }
  void scGetPreviousValue(Value& previous) override { Call<void>("scGetPreviousValue", previous); }
  bool scActiveDefinition(const std::string& name, const Value& definition) override {
    return Call<bool>("scActiveDefinition", name, definition);
  }
  void SetTemplate(bool on) override { Call<void>("SetTemplate", on); }

  bool scCollectSingleValues(const std::string& sql, const Selector& database) override {
    return Call<bool>("scCollectSingleValues", sql, database);
  }
  bool scAddSingleValues(const std::string& sql) override { return Call<bool>("scAddSingleValues", sql); }
  bool scSubtractSingleValues(const std::string& sql) override { return Call<bool>("scSubtractSingleValues", sql); }
  bool scCollectValuesAndDesc(const std::string& sql, const Selector& database) override {
    return Call<bool>("scCollectValuesAndDesc", sql, database);
  }
  bool scSQLSelectValuesAndDesc() override { return Call<bool>("scSQLSelectValuesAndDesc"); }
  bool scSQLSelectValuesAndDescByDefinition(const Value& definition) override {
    return Call<bool>("scSQLSelectValuesAndDescByDefinition", definition);
  }
  bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) override {
    return Call<bool>("scPushValidValues", values, name);
  }
  bool scPushValidRangeValues(const Value& from, const Value& to) override {
    return Call<bool>("scPushValidRangeValues", from, to);
  }
  bool scRemoveFromValidValues(const std::string& name, const Value& value) override {
    return Call<bool>("scRemoveFromValidValues", name, value);
  }
  bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) override {
    return Call<bool>("scRemoveFromValidRangeValues", name, from, to);
  }
  bool scGetValidValues(const std::string& name, List& values) override {
    return Call<bool>("scGetValidValues", name, values);
  }
  bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) override {
    return Call<bool>("scGetNumberOfValidValues", name, definition, count);
  }

  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    static const Value noRows = Value::Null();
    if (rows != nullptr) return Call<bool>("scRunQuery", sql, *rows, database);
    return database ? Call<bool>("scRunQuery", sql, noRows, database) : Call<bool>("scRunQuery", sql);
  }
  bool scSQLInsert(const std::string& table, const List& columns, const List& values) override {
    return Call<bool>("scSQLInsert", table, columns, values);
  }
  bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                   const List& keyValues) override {
    return Call<bool>("scSQLUpdate", table, columns, values, keys, keyValues);
  }
  RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) override {
    return Call<RowSet>("scSQLSelect", table, columns, keys, keyValues);
  }
  Value scBuildCmdID() override { return Call<Value>("scBuildCmdID"); }
  bool scStartTransaction() override { return Call<bool>("scStartTransaction"); }
  bool scCommitTransaction() override { return Call<bool>("scCommitTransaction"); }
  bool scRollBackTransaction() override { return Call<bool>("scRollBackTransaction"); }

  bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) override {
    return Call<bool>("scNANSIinitiate", numse, numtyp, code);
  }
  bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) override {
    return Call<bool>("scNANSIremoveFromBlockedRange", numse, numtyp);
  }
  bool scGetAutoEquOptionValue(Value& clause) override { return Call<bool>("scGetAutoEquOptionValue", clause); }
  void scFilterEQU(const Value& first, const Value& second) override { Call<void>("scFilterEQU", first, second); }

  void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                      const std::vector<Value>& arguments) override {
    Call<void>("scErrorMessage", first, second, third, context, code, arguments);
  }
  void scPrintToDebugWindow(const std::string& line) override { Call<void>("scPrintToDebugWindow", line); }

 protected:
  // A result or an out-argument that is left off is empty; a result of an operation without one is not looked at. A
  // result that stands for a truth value is converted. What is of another kind than is due fails with TypeMismatch.
  virtual HostAnswer Answer(const HostCall& call) = 0;

 private:
  // Of the arguments given, those that are not const are the out-arguments.
  template <typename Result, typename... Given>
  Result Call(std::string_view operation, Given&... given) {
    HostCall call{operation};
    (Put(call.arguments, given), ...);
    HostAnswer answer = Answer(call);
    (Take(answer.out, given), ...);
    if constexpr (!std::is_void_v<Result>) return Taken<Result>(answer.result);
  }

  using Arguments = std::vector<Argument>;
  static void Put(Arguments& arguments, Value&) { arguments.push_back(OutPlace()); }
  static void Put(Arguments& arguments, List&) { arguments.push_back(OutPlace()); }
  static void Put(Arguments& arguments, RowSet&) { arguments.push_back(OutPlace()); }
  static void Put(Arguments& arguments, const std::variant<Value, List>& values) {
    std::visit([&arguments](const auto& given) { arguments.push_back(given); }, values);
  }
  static void Put(Arguments& arguments, const std::vector<Value>& values) {
    arguments.insert(arguments.end(), values.begin(), values.end());
  }
  template <typename Type>
  static void Put(Arguments& arguments, const std::optional<Type>& given) {
    if (given) arguments.push_back(*given);
  }
  template <typename Type>
  static void Put(Arguments& arguments, const Type& given) {
    arguments.push_back(given);
  }

  static void Take(Answered& out, Value& given) { given = Taken<Value>(out); }
  static void Take(Answered& out, List& given) { given = Taken<List>(out); }
  static void Take(Answered& out, RowSet& given) { given = Taken<RowSet>(out); }
  template <typename Type>
  static void Take(Answered&, const Type&) {}

  template <typename Type>
  static Type Taken(Answered& answered) {
    if constexpr (std::is_same_v<Type, bool>) {
      return ToTruth(Taken<Value>(answered));
    } else {
      if (std::holds_alternative<std::monostate>(answered)) return {};
      if (Type* content = std::get_if<Type>(&answered)) return std::move(*content);
      throw RunTimeFailure(RunTimeFailure::Cause::TypeMismatch, "the host gave an answer of another kind than is due");
    }
  }
};

}  // namespace cordboard
