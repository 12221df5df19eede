// Whatever an exchange has come to, its plan makes it again, or tells what it does not make.
//
// For long runs CORDBOARD_LOOP_SEEDS says how many exchanges are made for each release, from the seed
// CORDBOARD_LOOP_FIRST on; with CORDBOARD_LOOP_TELL it is told what is not made again.

#include <gmock/gmock.h>

#include <cstdlib>
#include <iostream>
#include <set>

#include "support/Road.h"
#include "workbench/plans/Export.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/RandomActions.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

unsigned FromEnvironment(const char* name, unsigned otherwise) {
  const char* const given = std::getenv(name);
  return given == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(given, nullptr, 10));
}

using Lines = std::multiset<std::string>;

Lines LinesOf(Exchange& exchange) {
  Session session(exchange);
  Lines lines;
  for (const char* database : {"dynamic", "site"}) {
    for (const GeneratedLine& line : Generate(session, database).lines) lines.insert(line.text);
  }
  return lines;
}

// The lines that one of two exchanges alone gives, in whatever order.
Lines DifferentLines(Exchange& one, Exchange& other) {
  const Lines ofOne = LinesOf(one);
  const Lines ofOther = LinesOf(other);
  Lines different;
  std::ranges::set_symmetric_difference(ofOne, ofOther, std::inserter(different, different.end()));
  return different;
}

std::string Told(const std::vector<TableDifference>& tables) {
  return Separated(tables, ", ", [](const auto& each) { return each.table + " " + std::to_string(each.rows); });
}

struct ExportLoop : testing::TestWithParam<std::string> {
  std::unique_ptr<Exchange> New() const { return ExampleExchange(GetParam()); }

  // The exchange of the first example plans and of random lines.
  std::unique_ptr<Exchange> Made(unsigned seed, std::size_t plans, bool addsAlone) {
    auto exchange = New();
    Session session(*exchange);
    for (std::size_t i = 0; i < plans; ++i) EXPECT_TRUE(ApplyExamplePlan(session, ExamplePlans()[i]).kept);
    RandomActions actions(session, seed);
    for (int i = 0; i < 80; ++i) {
      const std::string line = WrittenLine(actions.Next(addsAlone));
      const auto action = ReadableLine(line);
      Transaction transaction(*exchange);
      if (!action || !Perform(session, *action).done) continue;
      transaction.Commit();
      done_.push_back(line);
    }
    return exchange;
  }

  // The exchange that the plan makes: every line is done, and in what it differs is told.
  std::unique_ptr<Exchange> Again(Exchange& exchange, const ExportedPlan& exported) {
    auto again = New();
    {
      Session session(*again);
      const PlanResult result = ApplyText(session, "exported", Written(exported));
      EXPECT_EQ(result.refused, 0);
      EXPECT_EQ(result.done, exported.plan.lines.size());
    }
    EXPECT_EQ(Told(DifferentTables(exchange, *again)), Told(exported.different));
    return again;
  }

  // For each seed.
  template <typename Test>
  void ForEachSeed(const Test& test) {
    const unsigned first = FromEnvironment("CORDBOARD_LOOP_FIRST", 1);
    for (unsigned seed = first; seed < first + FromEnvironment("CORDBOARD_LOOP_SEEDS", 1); ++seed) {
      SCOPED_TRACE("seed " + std::to_string(seed));
      done_.clear();
      test(seed);
      EXPECT_GT(done_.size(), 10);
      if (HasFailure() && std::getenv("CORDBOARD_LOOP_TELL") != nullptr)
        std::cout << Separated(done_, "\n") << std::endl;
    }
  }

  std::vector<std::string> done_;
};

TEST_P(ExportLoop, WhatWasAddedIsAllMadeAgain) {
  ForEachSeed([this](unsigned seed) {
    const auto exchange = Made(seed, 5, true);
    const ExportedPlan exported = ExportPlan(*exchange);
    for (const UntoldRecord& record : exported.plan.untold) ADD_FAILURE() << record.text << " " << record.reason;
    EXPECT_EQ(Told(exported.different), "");
    const auto again = Again(*exchange, exported);
    EXPECT_THAT(DifferentLines(*exchange, *again), testing::IsEmpty());
  });
}

// Records whose number or group has gone are not made again: no form takes them.
TEST_P(ExportLoop, WhatWasChangedAndDeletedIsMadeAgainOrTold) {
  ForEachSeed([this](unsigned seed) {
    const auto exchange = Made(seed, ExamplePlans().size(), false);
    const ExportedPlan exported = ExportPlan(*exchange);
    const auto again = Again(*exchange, exported);
    for (const UntoldRecord& record : exported.plan.untold) {
      EXPECT_NE(record.reason, "") << record.text;
      if (std::getenv("CORDBOARD_LOOP_TELL") != nullptr)
        std::cout << "U " << record.command << " " << record.reason << " " << record.text << std::endl;
    }
    if (!exported.different.empty()) return;
    EXPECT_THAT(DifferentLines(*exchange, *again), testing::IsEmpty());
  });
}

INSTANTIATE_TEST_SUITE_P(OnEveryRelease, ExportLoop, testing::ValuesIn(Releases()),
                         [](const auto& parameter) { return parameter.param == "R6/1" ? "R6_1" : parameter.param; });

}  // namespace
}  // namespace cordboard::workbench
