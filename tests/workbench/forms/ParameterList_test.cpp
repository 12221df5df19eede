#include "workbench/forms/ParameterList.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace cordboard::workbench {
namespace {

TEST(ParameterList, KeepsTheOrderAndFindsByName) {
  ParameterList list(std::vector<ParameterDefinition>{{.name = "B", .title = "b"}, {.name = "A", .title = "a"}});
  list.push_back({.name = "B", .title = "again"});
  EXPECT_EQ(list.size(), 3);
  EXPECT_EQ(list.PlaceOf("A"), 1);
  EXPECT_EQ(list.PlaceOf("B"), 0) << "the first";
  EXPECT_EQ(list.PlaceOf("C"), 3);
  ParameterList copy = list;
  copy.push_back({.name = "C", .title = "c"});
  copy[copy.PlaceOf("C")].title = "third";
  EXPECT_EQ(copy.back().title, "third");
  EXPECT_EQ(list.PlaceOf("C"), 3);
}

TEST(ParameterDefinition, IsInTheReleasesThatItNamesOrInAll) {
  const ParameterDefinition late{.name = "A", .title = "a", .releases = {"R7", "R8"}};
  EXPECT_TRUE(late.IsIn("R8"));
  EXPECT_FALSE(late.IsIn("R6"));
  EXPECT_TRUE((ParameterDefinition{.name = "A", .title = "a"}.IsIn("R6")));
}

TEST(ParameterDefinition, TakesElementsWhereItTakesSeveralValuesOrARange) {
  EXPECT_FALSE((ParameterDefinition{.name = "A", .title = "a"}.TakesElements()));
  EXPECT_TRUE((ParameterDefinition{.name = "A", .title = "a", .multiple = true}.TakesElements()));
  EXPECT_TRUE((ParameterDefinition{.name = "A", .title = "a", .range = true}.TakesElements()));
}

TEST(Numbers, AreWholeOnesBetweenTheirEnds) {
  const Numbers numbers{.from = 2, .to = 10};
  for (const char* text : {"2", "07", "10"}) EXPECT_TRUE(numbers.Has(text)) << text;
  for (const char* text : {"1", "11", "", " 2", "2.5", "2x", "99999999999999999999"})
    EXPECT_FALSE(numbers.Has(text)) << text;
}

TEST(ParameterFlags, EachHasAKeyAndAFlagOfItsOwn) {
  std::set<std::string_view> keys;
  ParameterDefinition parameter;
  for (const ParameterFlag& flag : ParameterFlags()) {
    EXPECT_TRUE(keys.insert(flag.key).second) << flag.key;
    EXPECT_FALSE(parameter.*flag.flag) << flag.key;
    parameter.*flag.flag = true;
  }
}

}  // namespace
}  // namespace cordboard::workbench
