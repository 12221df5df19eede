#include "script/ForwardingHost.h"

#include <gtest/gtest.h>

#include "script/TracingHost.h"
#include "support/EveryOperation.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

class ForwardingHostAnswers : public testing::TestWithParam<Behaviour> {};

INSTANTIATE_TEST_SUITE_P(Both, ForwardingHostAnswers, testing::Values(Behaviour::AnswersTrue, Behaviour::AnswersFalse));

TEST_P(ForwardingHostAnswers, EveryOperationGoesOnOnceAndItsAnswerComesBack) {
  for (const OperationCall& operation : EveryOperation()) {
    SCOPED_TRACE(operation.call);
    const auto next = std::make_shared<TracingHost>(AnsweringHost(GetParam()));
    ForwardingHost host(next);
    EXPECT_EQ(operation.perform(host), ExpectedAnswer(operation, GetParam()));
    ASSERT_EQ(next->calls().size(), 1U);
    EXPECT_EQ(next->calls()[0].call, operation.call);
  }
}

TEST(ForwardingHost, LetsEveryFailureThrough) {
  ForwardingHost host(AnsweringHost(Behaviour::Fails));
  for (const OperationCall& operation : EveryOperation())
    EXPECT_EQ(Outcome([&] { return operation.perform(host); }), "HostFailure") << operation.call;
}

}  // namespace
}  // namespace cordboard
