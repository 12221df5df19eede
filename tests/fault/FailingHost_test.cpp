#include "support/FailingHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/EveryOperation.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

TEST(FailingHost, HandsOnWhatIsNotItsCall) {
  for (const OperationCall& operation : EveryOperation()) {
    FailingHost host(AnsweringHost(Behaviour::AnswersTrue), 2, Fault::Fails);
    EXPECT_EQ(operation.perform(host), operation.answer) << operation.call;
    EXPECT_EQ(host.calls(), 1U) << operation.call;
  }
}

TEST(FailingHost, FailsTheCallWhateverItIs) {
  for (const OperationCall& operation : EveryOperation()) {
    FailingHost host(AnsweringHost(Behaviour::AnswersTrue), 1, Fault::Fails);
    EXPECT_EQ(Outcome([&] { return operation.perform(host); }), "HostFailure") << operation.call;
    EXPECT_EQ(operation.perform(host), operation.answer) << operation.call;
  }
}

TEST(FailingHost, RefusesWhatHasATruthValueAndFailsAllOthers) {
  for (const OperationCall& operation : EveryOperation()) {
    FailingHost host(AnsweringHost(Behaviour::AnswersTrue), 1, Fault::Refuses);
    const std::string outcome = Outcome([&] { return operation.perform(host); });
    if (operation.answer.starts_with("True")) {
      EXPECT_THAT(outcome, testing::StartsWith("\"False")) << operation.call;
    } else {
      EXPECT_EQ(outcome, "HostFailure") << operation.call;
    }
  }
}

TEST(FailingHost, RefusesWithoutAskingTheNextHost) {
  const auto next = std::make_shared<FailingHost>(AnsweringHost(Behaviour::AnswersTrue), 0, Fault::Fails);
  FailingHost host(next, 1, Fault::Refuses);
  EXPECT_FALSE(host.scSQLInsert("KSEXI", {}, {}));
  EXPECT_EQ(next->calls(), 0U);
}

TEST(FailingHost, ASeriesThatIsRefusedHasACode) {
  FailingHost host(AnsweringHost(Behaviour::AnswersTrue), 1, Fault::Refuses);
  Value code;
  EXPECT_FALSE(host.scNANSIinitiate("100", "EX", code));
  EXPECT_EQ(code, Value(62000));
}

}  // namespace
}  // namespace cordboard
