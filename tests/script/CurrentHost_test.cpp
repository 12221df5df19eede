#include "script/CurrentHost.h"

#include <gtest/gtest.h>

#include "script/NullHost.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

TEST(CurrentHost, IsTheOneSetLast) {
  const auto first = std::make_shared<NullHost>();
  const auto second = std::make_shared<NullHost>();
  SetCurrentHost(first);
  EXPECT_EQ(CurrentHost(), first);
  SetCurrentHost(second);
  EXPECT_EQ(CurrentHost(), second);
  EXPECT_EQ(first.use_count(), 1);
  SetCurrentHost(nullptr);
  EXPECT_EQ(second.use_count(), 1);
}

TEST(CurrentHost, FailsWithNoHostWhereNoneIsSet) {
  SetCurrentHost(nullptr);
  EXPECT_EQ(Outcome([] { return CurrentHost() != nullptr; }), "NoHost");
}

TEST(CurrentHost, LivesAsLongAsACallerHoldsItThoughItWasDropped) {
  SetCurrentHost(std::make_shared<NullHost>());
  const std::weak_ptr<Host> watch = CurrentHost();
  std::shared_ptr<Host> held = CurrentHost();
  SetCurrentHost(nullptr);
  EXPECT_FALSE(watch.expired());
  held.reset();
  EXPECT_TRUE(watch.expired());
}

}  // namespace
}  // namespace cordboard
