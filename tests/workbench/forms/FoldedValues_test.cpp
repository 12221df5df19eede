#include "workbench/forms/FoldedValues.h"

#include <gtest/gtest.h>

#include "script/TracingHost.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {
namespace {

class FoldedValuesTest : public testing::Test {
 protected:
  explicit FoldedValuesTest(const FoldingList& foldings) : values_(foldings) {}

  void Set(const std::string& name, const Value& value) { values_.Set(name, values_.Find(name), value, {}); }
  void Reset(const std::string& name) { values_.Reset(name, values_.Find(name), {}); }
  std::string Get(const std::string& name) const { return TraceText(values_.Get(name, values_.Find(name))); }

  FoldedValues values_;
};

// --- A whole of six digits: 1 and 4 are parameters of their own, 2 and 3 one parameter, 5 the sum of two, and 6 has
// none.

struct DigitsTest : FoldedValuesTest {
  DigitsTest()
      : FoldedValuesTest({{.parameter = "SERV",
                           .length = 6,
                           .fill = '0',
                           .places = {{1, 1, {"D1"}}, {2, 2, {"D2D3"}}, {4, 1, {"D4"}}, {5, 1, {"D5_A", "D5_B"}}}}}) {}
};

TEST_F(DigitsTest, AWholeIsFoldedFromItsSubDigitParameters) {
  Set("D1", "7");
  EXPECT_EQ(Get("SERV"), "\"700000\"") << "what is not given is the fill";
  Set("D4", "9");
  Set("D2D3", "12");
  EXPECT_EQ(Get("SERV"), "\"712900\"");
}

TEST_F(DigitsTest, WithoutSubDigitsThereIsNoWhole) { EXPECT_EQ(Get("SERV"), "Empty"); }

TEST_F(DigitsTest, ASubDigitFillsItsPlaceFromTheRight) {
  Set("D2D3", "5");
  EXPECT_EQ(Get("SERV"), "\"005000\"");
  Set("D2D3", "123");
  EXPECT_EQ(Get("SERV"), "\"023000\"");
}

TEST_F(DigitsTest, AWholeFollowsEachChangeOfItsSubDigits) {
  Set("D1", "4");
  EXPECT_EQ(Get("SERV"), "\"400000\"");
  Set("D1", "5");
  EXPECT_EQ(Get("SERV"), "\"500000\"");
  Set("SERV", "123456");
  Reset("D2D3");
  EXPECT_EQ(Get("SERV"), "\"100456\"");
  const FoldedValues copy = values_;
  Set("D4", "9");
  EXPECT_EQ(Get("SERV"), "\"100956\"");
  EXPECT_EQ(TraceText(copy.Get("SERV", copy.Find("SERV"))), "\"100456\"");
}

TEST_F(DigitsTest, SubDigitsOfOnePlaceAddUp) {
  Set("D5_A", "1");
  EXPECT_EQ(Get("SERV"), "\"000010\"");
  Set("D5_B", "4");
  EXPECT_EQ(Get("SERV"), "\"000050\"");
}

TEST_F(DigitsTest, ASubDigitThatIsNoNumberCountsByItsLeadingDigits) {
  Set("D1", "x");
  EXPECT_EQ(Get("SERV"), "\"000000\"");
  Set("D1", "3x");
  EXPECT_EQ(Get("SERV"), "\"300000\"");
  Set("D1", "-3");
  EXPECT_EQ(Get("SERV"), "\"000000\"");
  Set("D1", "99999999999999999999999999");
  EXPECT_EQ(Get("SERV").size(), 8u);
}

TEST_F(DigitsTest, ABlankSubDigitDoesNotCount) {
  Set("D1", "");
  Set("D4", Value::Null());
  EXPECT_EQ(Get("SERV"), "Empty");
}

TEST_F(DigitsTest, TheDigitsOfAWholeGoToItsSubDigitParameters) {
  Set("SERV", "123456");
  EXPECT_EQ(Get("D1"), "\"1\"");
  EXPECT_EQ(Get("D2D3"), "\"23\"");
  EXPECT_EQ(Get("D4"), "\"4\"");
  EXPECT_EQ(Get("D5_A"), "Empty") << "two that add up cannot be told apart";
  EXPECT_EQ(Get("SERV"), "\"123456\"") << "the digits without a parameter of their own stay";
}

TEST_F(DigitsTest, ASubDigitChangesItsPlaceInTheWholeAlone) {
  Set("SERV", "123456");
  Set("D2D3", "99");
  EXPECT_EQ(Get("SERV"), "\"199456\"");
  Set("D5_A", "8");
  EXPECT_EQ(Get("SERV"), "\"199486\"");
}

TEST_F(DigitsTest, ANewWholeLeavesNothingOfTheSubDigitsBefore) {
  Set("D5_A", "3");
  Set("D5_B", "1");
  Set("SERV", "123456");
  EXPECT_EQ(Get("SERV"), "\"123456\"");
  Set("SERV", "77");
  EXPECT_EQ(Get("D4"), "Empty");
  EXPECT_EQ(Get("D1"), "\"7\"");
  EXPECT_EQ(Get("D2D3"), "Empty") << "one digit of two";
}

TEST_F(DigitsTest, AWholeThatIsSetToNoValueTakesItsSubDigitsWithIt) {
  Set("D1", "7");
  Set("SERV", Value::Null());
  EXPECT_EQ(Get("SERV"), "Null");
  EXPECT_EQ(Get("D1"), "Empty");
  Set("D1", "7");
  Set("SERV", "");
  EXPECT_EQ(Get("SERV"), "\"\"");
}

TEST_F(DigitsTest, AResetWholeTakesItsSubDigitsWithIt) {
  Set("SERV", "123456");
  Set("D5_A", "1");
  Reset("SERV");
  EXPECT_EQ(Get("SERV"), "Empty");
  for (const char* name : {"D1", "D2D3", "D4", "D5_A"}) EXPECT_EQ(Get(name), "Empty") << name;
}

TEST_F(DigitsTest, AResetSubDigitGoesBackToTheFillAndTheOtherDigitsStay) {
  Set("SERV", "123456");
  Reset("D2D3");
  EXPECT_EQ(Get("D2D3"), "Empty");
  EXPECT_EQ(Get("SERV"), "\"100456\"");
  Reset("D5_A");
  EXPECT_EQ(Get("SERV"), "\"100406\"");
}

TEST_F(DigitsTest, AWholeWhoseDigitsAreAllResetIsEmpty) {
  Set("SERV", "100400");
  Reset("D1");
  EXPECT_EQ(Get("SERV"), "\"000400\"");
  Reset("D4");
  EXPECT_EQ(Get("SERV"), "\"000000\"") << "two zeros are given";
  Reset("D2D3");
  EXPECT_EQ(Get("SERV"), "Empty");
  Set("D1", "1");
  Reset("D1");
  EXPECT_EQ(Get("SERV"), "Empty");
}

TEST_F(DigitsTest, AShortWholeIsFilledUpOnceItIsFolded) {
  Set("SERV", "12");
  EXPECT_EQ(Get("SERV"), "\"120000\"");
}

// --- Several foldings of one whole: digits 2 and 3, 4 and 5, or else digits 2 to 4, 5 to 7.

struct AlternativesTest : FoldedValuesTest {
  AlternativesTest()
      : FoldedValuesTest({{.parameter = "QUE",
                           .length = 5,
                           .places = {{1, 1, {"QUE_D1"}}, {2, 2, {"QUE_D2D3"}}, {4, 2, {"QUE_D4D5"}}}},
                          {.parameter = "QUE",
                           .length = 7,
                           .places = {{1, 1, {"QUE_D1"}}, {2, 3, {"QUE_D2D3D4"}}, {5, 3, {"QUE_D5D6D7"}}}}}) {}
};

TEST_F(AlternativesTest, TheFoldingHoldsWhoseParametersAreGiven) {
  Set("QUE_D1", "1");
  EXPECT_EQ(Get("QUE"), "\"10000\"") << "the first, where a parameter belongs to each";
  Set("QUE_D2D3D4", "120");
  EXPECT_EQ(Get("QUE"), "\"1120000\"");
  Reset("QUE_D2D3D4");
  Set("QUE_D2D3", "12");
  EXPECT_EQ(Get("QUE"), "\"11200\"");
}

TEST_F(AlternativesTest, AWholeGoesToTheFoldingOfItsLength) {
  Set("QUE", "1120250");
  EXPECT_EQ(Get("QUE_D2D3"), "Empty");
  EXPECT_EQ(Get("QUE_D5D6D7"), "\"250\"");
  Set("QUE_D2D3D4", "130");
  EXPECT_EQ(Get("QUE"), "\"1130250\"");
  Set("QUE", "11099");
  EXPECT_EQ(Get("QUE_D2D3D4"), "Empty");
  EXPECT_EQ(Get("QUE_D4D5"), "\"99\"");
}

// --- Digits that are given as a whole or by their parts: digit 3 is D3 or the sum of three. Another definition has
// other digits.

struct PartsTest : FoldedValuesTest {
  PartsTest()
      : FoldedValuesTest(
            {{.parameter = "ICAT",
              .length = 4,
              .places = {{1, 1, {"D1"}}, {3, 1, {"D3_SUB1", "D3_SUB2", "D3_SUB3"}, "D3"}},
              .definition = 1},
             {.parameter = "ICAT", .length = 4, .places = {{1, 1, {"D1_SUB1", "D1_SUB2"}}}, .definition = 2}}) {}
};

TEST_F(PartsTest, ADigitIsTheSumOfItsParts) {
  EXPECT_EQ(Get("D3"), "Empty");
  Set("D3_SUB1", "1");
  Set("D3_SUB2", "2");
  EXPECT_EQ(Get("D3"), "\"3\"");
  EXPECT_EQ(Get("ICAT"), "\"0030\"");
}

TEST_F(PartsTest, ASumFromTenIsALetter) {
  Set("D3_SUB3", "8");
  for (const auto& [part, digit] :
       {std::pair("1", "\"9\""), {"2", "\"A\""}, {"5", "\"D\""}, {"7", "\"F\""}, {"8", "\"6\""}}) {
    Set("D3_SUB1", part);
    EXPECT_EQ(Get("D3"), digit);
  }
}

TEST_F(PartsTest, ADigitTakesThePlaceOfItsPartsAndAPartThatOfTheDigit) {
  Set("D3_SUB1", "1");
  Set("D3_SUB3", "8");
  Set("D3", "C");
  EXPECT_EQ(Get("D3_SUB3"), "Empty");
  EXPECT_EQ(Get("ICAT"), "\"00C0\"");
  Set("D3_SUB1", "1");
  EXPECT_EQ(Get("D3"), "\"1\"");
  EXPECT_EQ(Get("ICAT"), "\"0010\"");
}

TEST_F(PartsTest, AWholeGivesItsDigitsAndNoParts) {
  Set("ICAT", "12C4");
  EXPECT_EQ(Get("D1"), "\"1\"");
  EXPECT_EQ(Get("D3"), "\"C\"");
  EXPECT_EQ(Get("D3_SUB1"), "Empty");
  Reset("D3_SUB1");
  EXPECT_EQ(Get("ICAT"), "\"1204\"") << "what is left of the digit cannot be told";
  Set("D3_SUB2", "2");
  Reset("D3");
  EXPECT_EQ(Get("D3_SUB2"), "Empty");
  Reset("ICAT");
  EXPECT_EQ(Get("D1"), "Empty");
  EXPECT_EQ(Get("D3"), "Empty");
}

// --- A list whose parts are wholes.

struct ListOfWholesTest : FoldedValuesTest {
  ListOfWholesTest() : FoldedValuesTest(FindForm("CLFOC")->foldings) {}
};

TEST_F(ListOfWholesTest, AListGivesItsValuesToItsPartsAndTheirParts) {
  Set("DATA", "1-6-F&12-4-J");
  EXPECT_EQ(Get("DATA2"), "\"12-4-J\"");
  EXPECT_EQ(Get("DATA2_D1D2"), "\"12\"");
  EXPECT_EQ(Get("DATA2_D3D4"), "\"4\"");
  EXPECT_EQ(Get("DATA2_D5"), "\"J\"");
  EXPECT_EQ(Get("DATA3"), "Empty");
  Set("DATA", "2-1-H");
  EXPECT_EQ(Get("DATA1"), "\"2-1-H\"");
  EXPECT_EQ(Get("DATA2_D5"), "Empty");
  Reset("DATA");
  EXPECT_EQ(Get("DATA1_D5"), "Empty");
  EXPECT_EQ(Get("DATA"), "Empty");
}

TEST_F(ListOfWholesTest, AListIsMadeOfThePartsThatAreGiven) {
  Set("DATA2", "12-4-J");
  Set("DATA7_D5", "H");
  Set("DATA7_D3D4", "1");
  EXPECT_EQ(Get("DATA"), "\"12-4-J\"") << "the other is not whole";
  Set("DATA7_D1D2", "7");
  EXPECT_EQ(Get("DATA"), "\"12-4-J&7-1-H\"");
  Reset("DATA2");
  EXPECT_EQ(Get("DATA"), "\"7-1-H\"");
}

TEST_F(ListOfWholesTest, AListWithoutPartsIsEmpty) {
  Set("DATA", "1-6-F");
  Reset("DATA1");
  EXPECT_EQ(Get("DATA"), "Empty");
}

TEST_F(ListOfWholesTest, AnItemStaysAsItWasTypedUntilItIsWholeAnew) {
  Set("DATA", "1-6-F");
  Reset("DATA1_D1D2");
  EXPECT_EQ(Get("DATA1_D1D2"), "Empty");
  EXPECT_EQ(Get("DATA"), "\"1-6-F\"");
  Set("DATA1_D1D2", "9");
  EXPECT_EQ(Get("DATA"), "\"9-6-F\"");
}

}  // namespace
}  // namespace cordboard::workbench
