#include "shared/Count.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

const std::string query = "SELECT COUNT(*) FROM NASCS";

TEST(UncheckedCount, IsTheFirstValueOfTheFirstRow) {
  ScriptedHost host;
  host.Rows(query, {{3}});
  EXPECT_EQ(host.With([] { return UncheckedCount(query); }), Value(3));
}

TEST(UncheckedCount, DoesNotTestTheAnswer) {
  ScriptedHost host;
  host.Rows(query, {{3}});
  host.Refuse("scRunQuery");
  EXPECT_EQ(host.With([] { return UncheckedCount(query); }), Value(3));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(query)}));
}

TEST(UncheckedCount, FailsWithoutARow) {
  ScriptedHost host;
  host.Rows(query, {});
  ExpectFailure(Cause::SubscriptOutOfRange, [&] { host.With([] { return UncheckedCount(query); }); });
}

TEST(CheckedCount, IsReportedWhereTheStatementFails) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  Value count;
  EXPECT_FALSE(host.With([&] { return CheckedCount(Reporter("Add: NASCS"), query, count); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(query), MessageLine("Add: NASCS", "62000")}));
}

TEST(CheckedCount, IsGivenBackAndFailsWithoutARow) {
  ScriptedHost host;
  host.Rows(query, {{3}});
  host.Rows(query, {});
  Value count;
  EXPECT_TRUE(host.With([&] { return CheckedCount(Reporter("Add: NASCS"), query, count); }));
  EXPECT_EQ(count, Value(3));
  ExpectFailure(Cause::SubscriptOutOfRange,
                [&] { host.With([&] { return CheckedCount(Reporter("Add: NASCS"), query, count); }); });
}

}  // namespace
}  // namespace cordboard
