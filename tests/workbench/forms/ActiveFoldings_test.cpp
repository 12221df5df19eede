#include "workbench/forms/ActiveFoldings.h"

#include <gtest/gtest.h>

namespace cordboard::workbench {
namespace {

// Digit 1 is D1 in the definitions 1 and 2, digit 2 D2 in the second alone.
class ActiveFoldingsTest : public testing::Test {
 protected:
  static FoldingList Foldings() {
    return {
        {.parameter = "ICAT", .length = 4, .places = {{1, 1, {"D1"}}}, .definition = 1},
        {.parameter = "ICAT", .length = 4, .places = {{1, 1, {"D1"}}, {2, 1, {"D2_A", "D2_B"}, "D2"}}, .definition = 2},
        {.parameter = "SERV", .length = 2, .places = {{1, 2, {"D1D2"}}}}};
  }
  const FoldedName& Named(const std::string& name) const { return *foldings_.Find(name); }
  // The number of the definition of the folding that the digit is in, or -1.
  int With(const std::string& subDigit) const {
    const Folding* folding = active_.FoldingWith(Named(subDigit));
    return folding == nullptr ? -1 : folding->definition;
  }

  const FoldingList foldings_ = Foldings();
  ActiveFoldings active_{foldings_};
};

TEST_F(ActiveFoldingsTest, TheFirstDefinitionIsActiveUntilAnotherOneIsSet) {
  EXPECT_EQ(active_.DefinitionOf("ICAT"), 1);
  EXPECT_EQ(active_.DefinitionOf("DIR"), 1);
  active_.SetDefinition("DIR", 3);
  EXPECT_EQ(active_.DefinitionOf("DIR"), 3);
  EXPECT_EQ(active_.DefinitionOf("ICAT"), 1);
}

TEST_F(ActiveFoldingsTest, ADigitHasTheDefinitionOfItsWholeUnlessItHasItsOwn) {
  active_.SetDefinition("ICAT", 2);
  EXPECT_EQ(active_.DefinitionOf("D2_A"), 2);
  active_.SetDefinition("D2_A", 1);
  EXPECT_EQ(active_.DefinitionOf("D2_A"), 1);
  EXPECT_EQ(active_.DefinitionOf("ICAT"), 2);
}

TEST_F(ActiveFoldingsTest, AFoldingHoldsInItsDefinitionAndOneWithoutInAny) {
  EXPECT_EQ(With("D1"), 1);
  EXPECT_EQ(With("D2_A"), -1);
  EXPECT_EQ(With("D1D2"), 0);
  active_.SetDefinition("ICAT", 2);
  active_.SetDefinition("SERV", 2);
  EXPECT_EQ(With("D1"), 2);
  EXPECT_EQ(With("D2_A"), 2);
  EXPECT_EQ(With("D1D2"), 0);
  active_.SetDefinition("ICAT", 3);
  EXPECT_EQ(With("D1"), -1);
}

TEST_F(ActiveFoldingsTest, APlaceIsKnownByItsDigitAndByItsParts) {
  EXPECT_EQ(active_.PlaceOf(Named("D2")), nullptr);
  active_.SetDefinition("ICAT", 2);
  for (const char* name : {"D2", "D2_A", "D2_B"}) EXPECT_EQ(active_.PlaceOf(Named(name))->first, 2) << name;
  EXPECT_EQ(active_.PlaceOf(Named("D1"))->first, 1);
}

}  // namespace
}  // namespace cordboard::workbench
