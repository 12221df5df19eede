// A host that hands every operation on to another: the base of decorators that record, trace or inject failures and
// that override no more than what they change.
#pragma once

#include <memory>

#include "script/Host.h"

namespace cordboard {

class ForwardingHost : public Host {
 public:
  explicit ForwardingHost(std::shared_ptr<Host> next) : next_(std::move(next)) {}

  Value scGetParamValue(const std::string& name) override { return next_->scGetParamValue(name); }
  bool scSetParamValue(const std::string& name, const Value& value) override {
    return next_->scSetParamValue(name, value);
  }
  bool scResetParam(const std::string& name) override { return next_->scResetParam(name); }
  bool scSetParamOptional(const std::string& name, bool optional) override {
    return next_->scSetParamOptional(name, optional);
  }
  void scSetCanHaveParamRange(const std::string& name, bool allowed) override {
    next_->scSetCanHaveParamRange(name, allowed);
  }
  void scSetCanHaveParamMultiple(const std::string& name, bool allowed) override {
    next_->scSetCanHaveParamMultiple(name, allowed);
  }
  Value scIsValueEqual(const Value& value) override { return next_->scIsValueEqual(value); }
  bool scGetValueArray(const std::string& name, List& values) override { return next_->scGetValueArray(name, values); }
  void scGetPreviousValue(Value& previous) override { next_->scGetPreviousValue(previous); }
  bool scActiveDefinition(const std::string& name, const Value& definition) override {
    return next_->scActiveDefinition(name, definition);
  }
  void SetTemplate(bool on) override { next_->SetTemplate(on); }
  bool scCollectSingleValues(const std::string& sql, const Selector& database) override {
    return next_->scCollectSingleValues(sql, database);
  }
  bool scAddSingleValues(const std::string& sql) override { return next_->scAddSingleValues(sql); }
  bool scSubtractSingleValues(const std::string& sql) override { return next_->scSubtractSingleValues(sql); }
  bool scCollectValuesAndDesc(const std::string& sql, const Selector& database) override {
    return next_->scCollectValuesAndDesc(sql, database);
  }
  bool scSQLSelectValuesAndDesc() override { return next_->scSQLSelectValuesAndDesc(); }
  bool scSQLSelectValuesAndDescByDefinition(const Value& definition) override {
    return next_->scSQLSelectValuesAndDescByDefinition(definition);
  }
  bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) override {
    return next_->scPushValidValues(values, name);
  }
  bool scPushValidRangeValues(const Value& from, const Value& to) override {
    return next_->scPushValidRangeValues(from, to);
  }
  bool scRemoveFromValidValues(const std::string& name, const Value& value) override {
    return next_->scRemoveFromValidValues(name, value);
  }
  bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) override {
    return next_->scRemoveFromValidRangeValues(name, from, to);
  }
  bool scGetValidValues(const std::string& name, List& values) override {
    return next_->scGetValidValues(name, values);
  }
  bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) override {
    return next_->scGetNumberOfValidValues(name, definition, count);
  }
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    return next_->scRunQuery(sql, rows, database);
  }
  bool scSQLInsert(const std::string& table, const List& columns, const List& values) override {
    return next_->scSQLInsert(table, columns, values);
  }
  bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                   const List& keyValues) override {
    return next_->scSQLUpdate(table, columns, values, keys, keyValues);
  }
  RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) override {
    return next_->scSQLSelect(table, columns, keys, keyValues);
  }
  Value scBuildCmdID() override { return next_->scBuildCmdID(); }
  bool scStartTransaction() override { return next_->scStartTransaction(); }
  bool scCommitTransaction() override { return next_->scCommitTransaction(); }
  bool scRollBackTransaction() override { return next_->scRollBackTransaction(); }
  bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) override {
    return next_->scNANSIinitiate(numse, numtyp, code);
  }
  bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) override {
    return next_->scNANSIremoveFromBlockedRange(numse, numtyp);
  }
  bool scGetAutoEquOptionValue(Value& clause) override { return next_->scGetAutoEquOptionValue(clause); }
  void scFilterEQU(const Value& first, const Value& second) override { next_->scFilterEQU(first, second); }
  void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                      const std::vector<Value>& arguments) override {
    next_->scErrorMessage(first, second, third, context, code, arguments);
  }
  void scPrintToDebugWindow(const std::string& line) override { next_->scPrintToDebugWindow(line); }

  Host& next() { return *next_; }

 private:
  std::shared_ptr<Host> next_;
};

}  // namespace cordboard
