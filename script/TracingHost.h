// A host that notes every operation with its arguments and its answer, and hands it on.
#pragma once

#include <string>
#include <vector>

#include "script/ForwardingHost.h"

namespace cordboard {

struct TracedCall {
  // The operation and its arguments as the library passed them, such as: scSetParamValue("LIM", "1").
  // Texts stand in quotes, line ends as {NL} (CR LF) and {LF}; `out` marks an out-argument.
  std::string call;
  // What came back, such as: True, rows [["100"], ["EX"]]. Empty where an operation has no result.
  std::string answer;
  int depth = 0;  // 1 and more for the calls of a Run that was started from inside an operation
};

// The text of a value, a list and a row set in a trace.
std::string TraceText(const Value& value);
std::string TraceText(const List& list);
std::string TraceText(const RowSet& rows);

class TracingHost : public ForwardingHost {
 public:
  using ForwardingHost::ForwardingHost;

  // The calls in the order in which they began.
  const std::vector<TracedCall>& calls() const { return calls_; }

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
  auto Trace(std::string call, Operation operation);
  template <typename Out>
  void NoteOut(std::size_t index, const Out& out);

  std::vector<TracedCall> calls_;
  int depth_ = 0;
};

}  // namespace cordboard
