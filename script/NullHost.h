// A host with nothing behind it: its form is empty, it finds no rows and offers no values, and every step succeeds and
// leaves nothing behind. A host that needs a few operations alone derives from it and overrides those.
#pragma once

#include "script/Host.h"

namespace cordboard {

class NullHost : public Host {
 public:
  Value scGetParamValue(const std::string&) override { return {}; }
  bool scSetParamValue(const std::string&, const Value&) override { return true; }
  bool scResetParam(const std::string&) override { return true; }
  bool scSetParamOptional(const std::string&, bool) override { return true; }
  void scSetCanHaveParamRange(const std::string&, bool) override {}
  void scSetCanHaveParamMultiple(const std::string&, bool) override {}
  Value scIsValueEqual(const Value&) override { return false; }
  bool scGetValueArray(const std::string&, List&) override { return true; }
  void scGetPreviousValue(Value&) override {}
  bool scActiveDefinition(const std::string&, const Value&) override { return true; }
  void SetTemplate(bool) override {}

  bool scCollectSingleValues(const std::string&, const Selector&) override { return true; }
  bool scAddSingleValues(const std::string&) override { return true; }
  bool scSubtractSingleValues(const std::string&) override { return true; }
  bool scCollectValuesAndDesc(const std::string&, const Selector&) override { return true; }
  bool scSQLSelectValuesAndDesc() override { return true; }
  bool scSQLSelectValuesAndDescByDefinition(const Value&) override { return true; }
  bool scPushValidValues(const std::variant<Value, List>&, const std::optional<std::string>&) override { return true; }
  bool scPushValidRangeValues(const Value&, const Value&) override { return true; }
  bool scRemoveFromValidValues(const std::string&, const Value&) override { return true; }
  bool scRemoveFromValidRangeValues(const std::string&, const Value&, const Value&) override { return true; }
  bool scGetValidValues(const std::string&, List&) override { return true; }
  bool scGetNumberOfValidValues(const std::string&, const Value&, Value& count) override {
    count = 0;
    return true;
  }

  // Even a statement that counts gives no row.
  bool scRunQuery(const std::string&, RowSet*, const Selector&) override { return true; }
  bool scSQLInsert(const std::string&, const List&, const List&) override { return true; }
  bool scSQLUpdate(const std::string&, const List&, const List&, const List&, const List&) override { return true; }
  RowSet scSQLSelect(const std::string&, const List&, const List&, const List&) override { return {}; }
  Value scBuildCmdID() override { return ++lastCmdId_; }
  bool scStartTransaction() override { return true; }
  bool scCommitTransaction() override { return true; }
  bool scRollBackTransaction() override { return true; }

  bool scNANSIinitiate(const Value&, const Value&, Value&) override { return true; }
  bool scNANSIremoveFromBlockedRange(const Value&, const Value&) override { return true; }
  bool scGetAutoEquOptionValue(Value&) override { return false; }
  void scFilterEQU(const Value&, const Value&) override {}

  void scErrorMessage(int, int, int, const std::string&, const Value&, const std::vector<Value>&) override {}
  void scPrintToDebugWindow(const std::string&) override {}

 private:
  int lastCmdId_ = 0;
};

}  // namespace cordboard
