#include "workbench/plans/PlanOrder.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace cordboard::workbench {
namespace {

std::ptrdiff_t Place(const char* command) {
  const auto& order = PlanOrder();
  return std::ranges::find(order, FindForm(command)) - order.begin();
}

TEST(PlanOrder, HasTheFormOfEveryCommandOnce) { EXPECT_THAT(PlanOrder(), testing::UnorderedElementsAreArray(Forms())); }

TEST(PlanOrder, WhatOthersReferToComesFirst) {
  EXPECT_LT(Place("NANSI"), Place("KSEXI"));
  EXPECT_LT(Place("EXCCS"), Place("KSEXI"));
  EXPECT_LT(Place("KSEXI"), Place("KSFKC"));
  EXPECT_LT(Place("GEDII"), Place("IPEXI"));
  EXPECT_LT(Place("OPERI"), Place("OPCGS"));
  EXPECT_LT(Place("EDFII"), Place("CLDFI"));
}

// Its number has to be free still.
TEST(PlanOrder, DataOfARouteComesBeforeTheRoute) {
  EXPECT_LT(Place("RODAI"), Place("ROCAI"));
  EXPECT_LT(Place("ROCAI_IMPORT"), Place("ROCAI"));
}

}  // namespace
}  // namespace cordboard::workbench
