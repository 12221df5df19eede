#include "script/HostCall.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "script/CallHost.h"
#include "script/NullHost.h"
#include "script/TracingHost.h"
#include "support/EveryOperation.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

TEST(Operations, AreTheOperationsOfTheHostInTheirOrder) {
  std::vector<std::string_view> called;
  for (const OperationCall& operation : EveryOperation()) {
    if (called.empty() || called.back() != operation.given.operation) called.push_back(operation.given.operation);
  }
  std::vector<std::string_view> named;
  for (const Operation& operation : Operations()) named.push_back(operation.name);
  EXPECT_EQ(named, called);
  EXPECT_EQ(named.size(), 37U);
}

TEST(Operations, TellWhatTheyGive) {
  for (const OperationCall& operation : EveryOperation()) {
    const Operation& known = FindOperation(operation.given.operation);
    EXPECT_EQ(known.CanRefuse(), operation.answer.starts_with("True")) << operation.call;
    EXPECT_EQ(known.result == AnswerKind::Rows, std::holds_alternative<RowSet>(operation.returned.result));
    EXPECT_EQ(known.result == AnswerKind::Nothing, std::holds_alternative<std::monostate>(operation.returned.result));
    if (!operation.given.AsksOut()) continue;
    EXPECT_EQ(known.out == AnswerKind::Value, std::holds_alternative<Value>(operation.returned.out));
    EXPECT_EQ(known.out == AnswerKind::List, std::holds_alternative<List>(operation.returned.out));
    EXPECT_EQ(known.out == AnswerKind::Rows, std::holds_alternative<RowSet>(operation.returned.out));
  }
}

TEST(Operations, TellHowManyArgumentsTheyTakeAtMost) {
  EXPECT_EQ(FindOperation("scSQLSelectValuesAndDesc").arity, 0U);
  EXPECT_EQ(FindOperation("scPushValidValues").arity, 2U);
  EXPECT_EQ(FindOperation("scRunQuery").arity, 3U);
  EXPECT_EQ(FindOperation("scErrorMessage").arity, 9U);
}

TEST(Perform, RefusesWhatIsNoCallOfAnOperation) {
  NullHost host;
  const auto perform = [&host](const HostCall& call) {
    return Outcome([&] { return TraceText(Perform(host, call)); });
  };
  EXPECT_EQ(perform({"scGetParamValues", {"DIR"}}), "InvalidCall");
  EXPECT_EQ(perform({"scGetParamValue"}), "InvalidCall");
  EXPECT_EQ(perform({"scSetParamValue", {"DIR", List{"1"}}}), "InvalidCall");
  EXPECT_EQ(perform({"scSetParamValue", {"DIR", OutPlace()}}), "InvalidCall");
  EXPECT_EQ(perform({"scGetValueArray", {"DIR", "1"}}), "InvalidCall");
  EXPECT_EQ(perform({"scSetParamOptional", {"DIR", "perhaps"}}), "TypeMismatch");
}

// A host that gives one answer to every operation.
class OneAnswerHost : public CallHost {
 public:
  explicit OneAnswerHost(HostAnswer answer) : answer_(std::move(answer)) {}

 protected:
  HostAnswer Answer(const HostCall&) override { return answer_; }

 private:
  HostAnswer answer_;
};

std::string Reset(const Value& result) {
  OneAnswerHost host({result});
  return Outcome([&host] { return host.scResetParam("DIR"); });
}

TEST(CallHost, ConvertsWhatStandsForATruthValue) {
  EXPECT_EQ(Reset(-0.5), "True");
  EXPECT_EQ(Reset("tRUE"), "True");
  EXPECT_EQ(Reset("0"), "False");
  EXPECT_EQ(Reset(Value()), "False");
  EXPECT_EQ(Reset(Value::Null()), "InvalidUseOfNull");
  EXPECT_EQ(Reset("yes"), "TypeMismatch");
}

TEST(CallHost, WhatIsLeftOffIsEmpty) {
  OneAnswerHost host({});
  Value value = "before";
  List list{"before"};
  RowSet rows({{"before"}});
  EXPECT_FALSE(host.scGetAutoEquOptionValue(value));
  EXPECT_EQ(value, Value());
  EXPECT_FALSE(host.scGetValidValues("DIR", list));
  EXPECT_EQ(list, List());
  EXPECT_FALSE(host.scRunQuery("SELECT", &rows, std::nullopt));
  EXPECT_EQ(rows, RowSet());
  EXPECT_EQ(host.scGetParamValue("DIR"), Value());
  EXPECT_EQ(host.scSQLSelect("NANSI", {}, {}, {}), RowSet());
}

TEST(CallHost, AnAnswerOfAnotherKindIsATypeMismatch) {
  OneAnswerHost host({List{"1"}, RowSet({{"1"}})});
  Value value;
  EXPECT_EQ(Outcome([&] { return host.scGetParamValue("DIR"); }), "TypeMismatch");
  EXPECT_EQ(Outcome([&] { return host.scGetAutoEquOptionValue(value); }), "TypeMismatch");
  host.SetTemplate(true);  // has no result to look at
}

}  // namespace
}  // namespace cordboard
