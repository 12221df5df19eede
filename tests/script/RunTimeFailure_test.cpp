#include "script/RunTimeFailure.h"

#include <gtest/gtest.h>

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

TEST(RunTimeFailure, CarriesItsCauseAndItsWords) {
  const RunTimeFailure failure(Cause::Overflow, "too large");
  EXPECT_EQ(failure.cause(), Cause::Overflow);
  EXPECT_STREQ(failure.what(), "too large");
}

TEST(RunTimeFailure, NamesEveryCauseAsItIsWritten) {
  EXPECT_EQ(Name(Cause::Overflow), "Overflow");
  EXPECT_EQ(Name(Cause::SubscriptOutOfRange), "SubscriptOutOfRange");
  EXPECT_EQ(Name(Cause::TypeMismatch), "TypeMismatch");
  EXPECT_EQ(Name(Cause::InvalidUseOfNull), "InvalidUseOfNull");
  EXPECT_EQ(Name(Cause::InvalidCall), "InvalidCall");
  EXPECT_EQ(Name(Cause::NoHost), "NoHost");
  EXPECT_EQ(Name(Cause::HostFailure), "HostFailure");
}

}  // namespace
}  // namespace cordboard
