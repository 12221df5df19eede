// A host that is an object of the platform: every operation is called by its name at run time.
#pragma once

#include <string>
#include <vector>

#include "com/Pointer.h"
#include "com/Variant.h"
#include "script/Host.h"

namespace cordboard::com {

// An operation always has all of its arguments, as the object of a script class wants it: those at the end that are not
// given come as "parameter not found". Out-arguments are references to empty variants. What the object answers with a
// failure is a HostFailure; an answer of the wrong shape is a TypeMismatch.
class DispatchHost : public Host {
 public:
  explicit DispatchHost(Pointer<IDispatch> object) : object_(std::move(object)) {}

  Value scGetParamValue(const std::string& name) override;
  bool scSetParamValue(const std::string& name, const Value& value) override;
  bool scResetParam(const std::string& name) override;
  bool scSetParamOptional(const std::string& name, bool optional) override;
  void scSetCanHaveParamRange(const std::string& name, bool allowed) override;
  void scSetCanHaveParamMultiple(const std::string& name, bool allowed) override;
  Value scIsValueEqual(const Value& value) override;
  bool scGetValueArray(const std::string& name, List& values) override;
  void scGetPreviousValue(Value& previous) override;
  bool scActiveDefinition(const std::string& name, const Value& definition) override;
  void SetTemplate(bool on) override;
  bool scCollectSingleValues(const std::string& sql, const Selector& database) override;
  bool scAddSingleValues(const std::string& sql) override;
  bool scSubtractSingleValues(const std::string& sql) override;
  bool scCollectValuesAndDesc(const std::string& sql, const Selector& database) override;
  bool scSQLSelectValuesAndDesc() override;
  bool scSQLSelectValuesAndDescByDefinition(const Value& definition) override;
  bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) override;
  bool scPushValidRangeValues(const Value& from, const Value& to) override;
  bool scRemoveFromValidValues(const std::string& name, const Value& value) override;
  bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) override;
  bool scGetValidValues(const std::string& name, List& values) override;
  bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) override;
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override;
  bool scSQLInsert(const std::string& table, const List& columns, const List& values) override;
  bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                   const List& keyValues) override;
  RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) override;
  Value scBuildCmdID() override;
  bool scStartTransaction() override;
  bool scCommitTransaction() override;
  bool scRollBackTransaction() override;
  bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) override;
  bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) override;
  bool scGetAutoEquOptionValue(Value& clause) override;
  void scFilterEQU(const Value& first, const Value& second) override;
  void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                      const std::vector<Value>& arguments) override;
  void scPrintToDebugWindow(const std::string& line) override;

 private:
  template <typename... Arguments>
  Variant Ask(const char* operation, Arguments&&... arguments);

  Pointer<IDispatch> object_;
};

}  // namespace cordboard::com
