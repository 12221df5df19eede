// A host that counts the operations, and lets one of them go wrong.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "script/ForwardingHost.h"

namespace cordboard {

enum class Fault {
  Refuses,  // the operation gives False and does nothing, as a host does whose database or form refuses
  Fails,    // the operation fails with HostFailure, as a host does that is gone
};

// What a refusal is, for each of the 37 operations.
struct Refusal {
  std::string_view operation;
  bool possible;             // an operation without a truth value cannot refuse: it fails in both cases
  std::string_view meaning;  // what False tells the library, or why there is none
};
std::span<const Refusal> Refusals();
bool CanRefuse(std::string_view operation);

class FailingHost : public ForwardingHost {
 public:
  // Operation number `call`, from 1 and in the order in which the library calls them, goes wrong; with 0 none does. All
  // others go on to the next host.
  FailingHost(std::shared_ptr<Host> next, std::size_t call, Fault fault)
      : ForwardingHost(std::move(next)), call_(call), fault_(fault) {}

  // The operations called so far.
  std::size_t calls() const { return calls_; }

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
  template <typename Operation>
  auto Counted(const char* name, Operation operation);

  std::size_t call_;
  Fault fault_;
  std::size_t calls_ = 0;
};

}  // namespace cordboard
