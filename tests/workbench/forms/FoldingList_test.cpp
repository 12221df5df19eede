#include "workbench/forms/FoldingList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace cordboard::workbench {
namespace {

TEST(FoldingList, EachNameHasASlot) {
  const FoldingList list = {
      {.parameter = "SERV", .places = {{1, 1, {"D1"}, "D"}, {2, 1, {"D2"}}}},
      {.parameter = "SERV", .places = {{1, 2, {"D1"}}}},
  };
  EXPECT_EQ(list.slots(), 4);
  std::set<std::size_t> slots;
  for (const char* name : {"SERV", "D", "D1", "D2"}) slots.insert(list.Find(name)->slot);
  EXPECT_THAT(slots, testing::ElementsAre(0, 1, 2, 3));
  EXPECT_EQ(list.Find("D3"), nullptr);
  EXPECT_EQ(list.Find("SERV")->of, list.Of("SERV"));
  EXPECT_EQ(list.Of("SERV").size(), 2);
  EXPECT_EQ(list.With("D1").size(), 2);
  EXPECT_EQ(list.With("SERV").size() + list.Of("D1").size() + list.Of("").size(), 0);
  for (const Folding& folding : list) EXPECT_EQ(folding.slot, list.Find("SERV")->slot);
  EXPECT_EQ(list.Of("SERV")[0]->places[0].digitSlot, list.Find("D")->slot);
  EXPECT_THAT(list.back().places[0].slots, testing::ElementsAre(list.Find("D1")->slot));
}

TEST(FoldingList, OneWithoutFoldingsKnowsNoName) {
  const FoldingList none;
  EXPECT_EQ(none.slots(), 0);
  EXPECT_EQ(none.begin(), none.end());
  EXPECT_EQ(none.Find("SERV"), nullptr);
  EXPECT_TRUE(none.Of("SERV").empty());
  EXPECT_TRUE(none.With("SERV").empty());
}

TEST(Folding, HasItsSubDigitsAndTheirPlacesAsAWhole) {
  const Folding folding{.parameter = "SERV", .places = {{1, 1, {"D1", "E1"}, "D"}, {2, 1, {"D2"}}}};
  for (const char* name : {"D", "D1", "E1", "D2"}) EXPECT_TRUE(folding.Has(name)) << name;
  EXPECT_FALSE(folding.Has("SERV"));
  EXPECT_FALSE(folding.Has("D3"));
}

}  // namespace
}  // namespace cordboard::workbench
