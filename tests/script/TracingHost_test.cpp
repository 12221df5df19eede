#include "script/TracingHost.h"

#include <gtest/gtest.h>

#include <set>

#include "script/NullHost.h"
#include "script/RunTimeFailure.h"
#include "support/EveryOperation.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

TEST(EveryOperation, HasThe37OperationsOfTheHost) {
  std::set<std::string> names;
  for (const OperationCall& operation : EveryOperation()) names.emplace(operation.given.operation);
  EXPECT_EQ(names.size(), 37U);
}

class TracingHostAnswers : public testing::TestWithParam<Behaviour> {};

INSTANTIATE_TEST_SUITE_P(Both, TracingHostAnswers, testing::Values(Behaviour::AnswersTrue, Behaviour::AnswersFalse));

TEST_P(TracingHostAnswers, NotesEveryOperationHandsItOnAndGivesItsAnswerBack) {
  for (const OperationCall& operation : EveryOperation()) {
    SCOPED_TRACE(operation.call);
    const auto inner = std::make_shared<TracingHost>(AnsweringHost(GetParam()));
    TracingHost outer(inner);
    const std::string answer = ExpectedAnswer(operation, GetParam());
    EXPECT_EQ(operation.perform(outer), answer);
    for (const TracingHost* host : {&outer, inner.get()}) {
      ASSERT_EQ(host->calls().size(), 1U);
      EXPECT_EQ(host->calls()[0].call, operation.call);
      EXPECT_EQ(host->calls()[0].answer, answer);
      EXPECT_EQ(host->calls()[0].depth, 0);
    }
  }
}

TEST(TracingHost, NotesAnOperationThatFailsAsFailedAndLetsTheFailureThrough) {
  TracingHost host(AnsweringHost(Behaviour::Fails));
  for (const OperationCall& operation : EveryOperation()) {
    SCOPED_TRACE(operation.call);
    EXPECT_EQ(Outcome([&] { return operation.perform(host); }), "HostFailure");
    EXPECT_EQ(host.calls().back().call, operation.call);
    EXPECT_EQ(host.calls().back().answer, "failed");
    EXPECT_EQ(host.calls().back().depth, 0);
  }
  EXPECT_EQ(host.calls().size(), EveryOperation().size());
}

// A host that calls the traced host again from inside its operations, as one does that runs an action for a list.
class NestingHost : public NullHost {
 public:
  Host* again = nullptr;

  bool scGetValidValues(const std::string&, List& values) override {
    again->scCollectSingleValues("SELECT LIM FROM LIMs", std::nullopt);
    values = {"1"};
    return true;
  }
  bool scCollectSingleValues(const std::string&, const Selector&) override {
    again->scGetParamValue("LOCATION");
    return true;
  }
};

TEST(TracingHost, NotesCallsInTheOrderOfTheirBeginningEachAtItsDepth) {
  const auto nesting = std::make_shared<NestingHost>();
  TracingHost host(nesting);
  nesting->again = &host;
  List values;
  host.scGetValidValues("LIM", values);
  host.scBuildCmdID();

  std::string transcript;
  for (const TracedCall& call : host.calls())
    transcript += std::string(static_cast<std::size_t>(2 * call.depth), ' ') + call.call + " = " + call.answer + "\n";
  EXPECT_EQ(transcript,
            "scGetValidValues(\"LIM\", out) = True, [\"1\"]\n"
            "  scCollectSingleValues(\"SELECT LIM FROM LIMs\") = True\n"
            "    scGetParamValue(\"LOCATION\") = Empty\n"
            "scBuildCmdID() = 1\n");
}

TEST(TraceText, TellsEveryKindOfValueListAndRowSetApart) {
  EXPECT_EQ(TraceText(Value()), "Empty");
  EXPECT_EQ(TraceText(Value::Null()), "Null");
  EXPECT_EQ(TraceText(Value("")), "\"\"");
  EXPECT_EQ(TraceText(Value("5")), "\"5\"");
  EXPECT_EQ(TraceText(Value(5)), "5");
  EXPECT_EQ(TraceText(Value(true)), "True");
  EXPECT_EQ(TraceText(Value("a\r\nb\nc")), "\"a{NL}b{LF}c\"");
  EXPECT_EQ(TraceText(Value("a=\"b\"")), "\"a={QT}b{QT}\"");
  EXPECT_EQ(TraceText(List()), "Empty");
  EXPECT_EQ(TraceText(List::Null()), "Null");
  EXPECT_EQ(TraceText(List(std::vector<Value>{})), "[]");
  EXPECT_EQ(TraceText(List{"a", 1}), "[\"a\", 1]");
  EXPECT_EQ(TraceText(RowSet()), "Empty");
  EXPECT_EQ(TraceText(RowSet({{"a", "b"}, {1, 2}})), "[[\"a\", \"b\"], [1, 2]]");
}

}  // namespace
}  // namespace cordboard
