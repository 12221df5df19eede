#include "workbench/forms/Form.h"

#include <gtest/gtest.h>

#include "script/TracingHost.h"

namespace cordboard::workbench {
namespace {

// A form with a whole parameter of six digits: 1 and 4 are parameters of their own, 2 and 3 one parameter, 5 the sum of
// two, and 6 has none.
FormDefinition Definition() {
  FormDefinition form;
  form.command = "TEST";
  for (const char* name : {"DIR", "SERV", "D1", "D2D3", "D4", "D5_A", "D5_B"})
    form.parameters.push_back({.name = name, .title = name});
  form.parameters.push_back({.name = "NOTE", .title = "Note", .text = true});
  form.parameters.push_back({.name = "NUM", .title = "Numbers", .mandatory = true, .multiple = true, .range = true});
  form.foldings = {{.parameter = "SERV",
                    .length = 6,
                    .fill = '0',
                    .places = {{1, 1, {"D1"}}, {2, 2, {"D2D3"}}, {4, 1, {"D4"}}, {5, 1, {"D5_A", "D5_B"}}}}};
  return form;
}

class FormTest : public testing::Test {
 protected:
  std::string Get(const std::string& name) { return TraceText(form_.Get(name)); }
  std::string Previous(const std::string& name) { return TraceText(form_.Previous(name)); }

  const FormDefinition definition_ = Definition();
  Form form_{definition_};
};

// --- Values.

TEST_F(FormTest, AValueThatWasNotGivenIsEmpty) {
  EXPECT_EQ(Get("DIR"), "Empty");
  EXPECT_EQ(Get("NOTE"), "\"\"") << "a parameter may read as the empty text instead";
  EXPECT_EQ(Get("unknown"), "Empty");
}

TEST_F(FormTest, RulesReadWhatTheFormAssumes) {
  FormDefinition assuming = definition_;
  assuming.assumed = {{"DIR", "7"}, {"KIND", "main"}};
  EXPECT_EQ(TraceText(Form(assuming).Get("KIND")), "\"main\"");
  EXPECT_EQ(TraceText(Form(assuming).Get("DIR")), "Empty") << "the form shows it";
}

TEST_F(FormTest, AValueIsKeptAsItWasGiven) {
  form_.Set("DIR", "100");
  EXPECT_EQ(Get("DIR"), "\"100\"");
  form_.Set("DIR", "");
  EXPECT_EQ(Get("DIR"), "\"\"");
  form_.Set("DIR", Value::Null());
  EXPECT_EQ(Get("DIR"), "Null");
  form_.Set("NOTE", Value::Null());
  EXPECT_EQ(Get("NOTE"), "Null");
}

TEST_F(FormTest, AResetValueIsAsIfItWasNeverGiven) {
  form_.Set("DIR", "100");
  form_.Set("NOTE", "x");
  form_.Reset("DIR");
  form_.Reset("NOTE");
  EXPECT_EQ(Get("DIR"), "Empty");
  EXPECT_EQ(Get("NOTE"), "\"\"");
}

TEST_F(FormTest, ThePreviousValueIsThatBeforeTheLastChange) {
  EXPECT_EQ(Previous("DIR"), "Empty");
  form_.Set("DIR", "100");
  EXPECT_EQ(Previous("DIR"), "Empty");
  form_.Set("DIR", "200");
  EXPECT_EQ(Previous("DIR"), "\"100\"");
  form_.Reset("DIR");
  EXPECT_EQ(Previous("DIR"), "\"200\"");
  form_.Set("DIR", "300");
  EXPECT_EQ(Previous("DIR"), "Empty");
}

// --- Folding.

TEST_F(FormTest, AWholeIsFoldedFromItsSubDigitParameters) {
  form_.Set("D1", "7");
  EXPECT_EQ(Get("SERV"), "\"700000\"") << "what is not given is the fill";
  form_.Set("D4", "9");
  form_.Set("D2D3", "12");
  EXPECT_EQ(Get("SERV"), "\"712900\"");
}

TEST_F(FormTest, WithoutSubDigitsThereIsNoWhole) { EXPECT_EQ(Get("SERV"), "Empty"); }

TEST_F(FormTest, ASubDigitFillsItsPlaceFromTheRight) {
  form_.Set("D2D3", "5");
  EXPECT_EQ(Get("SERV"), "\"005000\"");
  form_.Set("D2D3", "123");
  EXPECT_EQ(Get("SERV"), "\"023000\"");
}

TEST_F(FormTest, AWholeFollowsEachChangeOfItsSubDigits) {
  form_.Set("D1", "4");
  EXPECT_EQ(Get("SERV"), "\"400000\"");
  form_.Set("D1", "5");
  EXPECT_EQ(Get("SERV"), "\"500000\"");
  form_.Set("SERV", "123456");
  form_.Reset("D2D3");
  EXPECT_EQ(Get("SERV"), "\"100456\"");
  const Form copy = form_;
  form_.Set("D4", "9");
  EXPECT_EQ(Get("SERV"), "\"100956\"");
  EXPECT_EQ(TraceText(copy.Get("SERV")), "\"100456\"");
}

TEST_F(FormTest, SubDigitsOfOnePlaceAddUp) {
  form_.Set("D5_A", "1");
  EXPECT_EQ(Get("SERV"), "\"000010\"");
  form_.Set("D5_B", "4");
  EXPECT_EQ(Get("SERV"), "\"000050\"");
}

TEST_F(FormTest, ASubDigitThatIsNoNumberCountsByItsLeadingDigits) {
  form_.Set("D1", "x");
  EXPECT_EQ(Get("SERV"), "\"000000\"");
  form_.Set("D1", "3x");
  EXPECT_EQ(Get("SERV"), "\"300000\"");
  form_.Set("D1", "-3");
  EXPECT_EQ(Get("SERV"), "\"000000\"");
  form_.Set("D1", "99999999999999999999999999");
  EXPECT_EQ(Get("SERV").size(), 8u);
}

TEST_F(FormTest, ABlankSubDigitDoesNotCount) {
  form_.Set("D1", "");
  form_.Set("D4", Value::Null());
  EXPECT_EQ(Get("SERV"), "Empty");
}

TEST_F(FormTest, TheDigitsOfAWholeGoToItsSubDigitParameters) {
  form_.Set("SERV", "123456");
  EXPECT_EQ(Get("D1"), "\"1\"");
  EXPECT_EQ(Get("D2D3"), "\"23\"");
  EXPECT_EQ(Get("D4"), "\"4\"");
  EXPECT_EQ(Get("D5_A"), "Empty") << "two that add up cannot be told apart";
  EXPECT_EQ(Get("SERV"), "\"123456\"") << "the digits without a parameter of their own stay";
}

TEST_F(FormTest, ASubDigitChangesItsPlaceInTheWholeAlone) {
  form_.Set("SERV", "123456");
  form_.Set("D2D3", "99");
  EXPECT_EQ(Get("SERV"), "\"199456\"");
  form_.Set("D5_A", "8");
  EXPECT_EQ(Get("SERV"), "\"199486\"");
}

TEST_F(FormTest, ANewWholeLeavesNothingOfTheSubDigitsBefore) {
  form_.Set("D5_A", "3");
  form_.Set("D5_B", "1");
  form_.Set("SERV", "123456");
  EXPECT_EQ(Get("SERV"), "\"123456\"");
  form_.Set("SERV", "77");
  EXPECT_EQ(Get("D4"), "Empty");
  EXPECT_EQ(Get("D1"), "\"7\"");
  EXPECT_EQ(Get("D2D3"), "Empty") << "one digit of two";
}

TEST_F(FormTest, AWholeThatIsSetToNoValueTakesItsSubDigitsWithIt) {
  form_.Set("D1", "7");
  form_.Set("SERV", Value::Null());
  EXPECT_EQ(Get("SERV"), "Null");
  EXPECT_EQ(Get("D1"), "Empty");
  form_.Set("D1", "7");
  form_.Set("SERV", "");
  EXPECT_EQ(Get("SERV"), "\"\"");
}

TEST_F(FormTest, AResetWholeTakesItsSubDigitsWithIt) {
  form_.Set("SERV", "123456");
  form_.Set("D5_A", "1");
  form_.Reset("SERV");
  EXPECT_EQ(Get("SERV"), "Empty");
  for (const char* name : {"D1", "D2D3", "D4", "D5_A"}) EXPECT_EQ(Get(name), "Empty") << name;
}

TEST_F(FormTest, AResetSubDigitGoesBackToTheFillAndTheOtherDigitsStay) {
  form_.Set("SERV", "123456");
  form_.Reset("D2D3");
  EXPECT_EQ(Get("D2D3"), "Empty");
  EXPECT_EQ(Get("SERV"), "\"100456\"");
  form_.Reset("D5_A");
  EXPECT_EQ(Get("SERV"), "\"100406\"");
}

TEST_F(FormTest, AWholeWhoseDigitsAreAllResetIsEmpty) {
  form_.Set("SERV", "100400");
  form_.Reset("D1");
  EXPECT_EQ(Get("SERV"), "\"000400\"");
  form_.Reset("D4");
  EXPECT_EQ(Get("SERV"), "\"000000\"") << "two zeros are given";
  form_.Reset("D2D3");
  EXPECT_EQ(Get("SERV"), "Empty");
  form_.Set("D1", "1");
  form_.Reset("D1");
  EXPECT_EQ(Get("SERV"), "Empty");
}

TEST_F(FormTest, AShortWholeIsFilledUpOnceItIsFolded) {
  form_.Set("SERV", "12");
  EXPECT_EQ(Get("SERV"), "\"120000\"");
}

// --- Several foldings of one whole: digits 2 and 3, 4 and 5, or else digits 2 to 4, 5 to 7.

class FormWithAlternatives : public testing::Test {
 protected:
  static FormDefinition Definition() {
    FormDefinition form;
    for (const char* name : {"QUE", "QUE_D1", "QUE_D2D3", "QUE_D4D5", "QUE_D2D3D4", "QUE_D5D6D7"})
      form.parameters.push_back({.name = name, .title = name});
    form.foldings = {
        {.parameter = "QUE", .length = 5, .places = {{1, 1, {"QUE_D1"}}, {2, 2, {"QUE_D2D3"}}, {4, 2, {"QUE_D4D5"}}}},
        {.parameter = "QUE",
         .length = 7,
         .places = {{1, 1, {"QUE_D1"}}, {2, 3, {"QUE_D2D3D4"}}, {5, 3, {"QUE_D5D6D7"}}}}};
    return form;
  }
  std::string Get(const std::string& name) { return TraceText(form_.Get(name)); }

  const FormDefinition definition_ = Definition();
  Form form_{definition_};
};

TEST_F(FormWithAlternatives, TheFoldingHoldsWhoseParametersAreGiven) {
  form_.Set("QUE_D1", "1");
  EXPECT_EQ(Get("QUE"), "\"10000\"") << "the first, where a parameter belongs to each";
  form_.Set("QUE_D2D3D4", "120");
  EXPECT_EQ(Get("QUE"), "\"1120000\"");
  form_.Reset("QUE_D2D3D4");
  form_.Set("QUE_D2D3", "12");
  EXPECT_EQ(Get("QUE"), "\"11200\"");
}

TEST_F(FormWithAlternatives, AWholeGoesToTheFoldingOfItsLength) {
  form_.Set("QUE", "1120250");
  EXPECT_EQ(Get("QUE_D2D3"), "Empty");
  EXPECT_EQ(Get("QUE_D5D6D7"), "\"250\"");
  form_.Set("QUE_D2D3D4", "130");
  EXPECT_EQ(Get("QUE"), "\"1130250\"");
  form_.Set("QUE", "11099");
  EXPECT_EQ(Get("QUE_D2D3D4"), "Empty");
  EXPECT_EQ(Get("QUE_D4D5"), "\"99\"");
}

// --- Digits that are given as a whole or by their parts, and that depend on the definition of their whole: digit 1 is
// D1 in definition 1 and the sum of two in definition 2, digit 3 is D3 or its parts in definition 1.

class FormWithDefinitions : public testing::Test {
 protected:
  static FormDefinition Definition() {
    FormDefinition form;
    for (const char* name : {"ICAT", "D1", "D1_SUB1", "D1_SUB2", "D3", "D3_SUB1", "D3_SUB2", "D3_SUB3"})
      form.parameters.push_back({.name = name, .title = name});
    form.foldings = {{.parameter = "ICAT",
                      .length = 4,
                      .places = {{1, 1, {"D1"}}, {3, 1, {"D3_SUB1", "D3_SUB2", "D3_SUB3"}, "D3"}},
                      .definition = 1},
                     {.parameter = "ICAT", .length = 4, .places = {{1, 1, {"D1_SUB1", "D1_SUB2"}}}, .definition = 2}};
    return form;
  }
  std::string Get(const std::string& name) { return TraceText(form_.Get(name)); }

  const FormDefinition definition_ = Definition();
  Form form_{definition_};
};

TEST_F(FormWithDefinitions, ADigitIsTheSumOfItsParts) {
  EXPECT_EQ(Get("D3"), "Empty");
  form_.Set("D3_SUB1", "1");
  form_.Set("D3_SUB2", "2");
  EXPECT_EQ(Get("D3"), "\"3\"");
  EXPECT_EQ(Get("ICAT"), "\"0030\"");
}

TEST_F(FormWithDefinitions, ASumFromTenIsALetter) {
  form_.Set("D3_SUB3", "8");
  for (const auto& [part, digit] :
       {std::pair("1", "\"9\""), {"2", "\"A\""}, {"5", "\"D\""}, {"7", "\"F\""}, {"8", "\"6\""}}) {
    form_.Set("D3_SUB1", part);
    EXPECT_EQ(Get("D3"), digit);
  }
}

TEST_F(FormWithDefinitions, ADigitTakesThePlaceOfItsPartsAndAPartThatOfTheDigit) {
  form_.Set("D3_SUB1", "1");
  form_.Set("D3_SUB3", "8");
  form_.Set("D3", "C");
  EXPECT_EQ(Get("D3_SUB3"), "Empty");
  EXPECT_EQ(Get("ICAT"), "\"00C0\"");
  form_.Set("D3_SUB1", "1");
  EXPECT_EQ(Get("D3"), "\"1\"");
  EXPECT_EQ(Get("ICAT"), "\"0010\"");
}

TEST_F(FormWithDefinitions, AWholeGivesItsDigitsAndNoParts) {
  form_.Set("ICAT", "12C4");
  EXPECT_EQ(Get("D1"), "\"1\"");
  EXPECT_EQ(Get("D3"), "\"C\"");
  EXPECT_EQ(Get("D3_SUB1"), "Empty");
  form_.Reset("D3_SUB1");
  EXPECT_EQ(Get("ICAT"), "\"1204\"") << "what is left of the digit cannot be told";
  form_.Set("D3_SUB2", "2");
  form_.Reset("D3");
  EXPECT_EQ(Get("D3_SUB2"), "Empty");
  form_.Reset("ICAT");
  EXPECT_EQ(Get("D1"), "Empty");
  EXPECT_EQ(Get("D3"), "Empty");
}

TEST_F(FormWithDefinitions, TheDigitsAreThoseOfTheActiveDefinition) {
  EXPECT_TRUE(form_.IsInDefinition("D1"));
  EXPECT_FALSE(form_.IsInDefinition("D1_SUB1"));
  EXPECT_TRUE(form_.IsInDefinition("ICAT"));
  form_.SetActiveDefinition("ICAT", 2);
  EXPECT_EQ(form_.ActiveDefinition("D1_SUB1"), 2) << "a digit has the definition of its whole";
  EXPECT_TRUE(form_.IsInDefinition("D1_SUB1"));
  EXPECT_FALSE(form_.IsInDefinition("D3"));
  form_.Set("D1", "9");
  form_.Set("D3_SUB1", "9");
  form_.Set("D1_SUB1", "1");
  form_.Set("D1_SUB2", "2");
  EXPECT_EQ(Get("ICAT"), "\"3000\"");
}

TEST_F(FormWithDefinitions, AnotherDefinitionClearsTheWhole) {
  form_.Set("ICAT", "1234");
  form_.SetActiveDefinition("ICAT", 1);
  EXPECT_EQ(Get("ICAT"), "\"1234\"");
  form_.SetActiveDefinition("ICAT", 2);
  EXPECT_EQ(Get("ICAT"), "Empty");
  EXPECT_EQ(Get("D1"), "Empty");
  form_.SetActiveDefinition("ICAT", 3);
  form_.Set("ICAT", "1234");
  EXPECT_EQ(Get("ICAT"), "\"1234\"") << "as it was typed, where no digit is known";
}

// --- What the form asks of the user.

TEST_F(FormTest, WhatOnlyTheOtherTableHasIsNotAskedFor) {
  FormDefinition second = definition_;
  second.elsewhere = {"NUM"};
  EXPECT_FALSE(Form(second).IsMandatory("NUM"));
}

TEST_F(FormTest, AFormAsksWhatItsDefinitionSaysUntilACheckChangesIt) {
  EXPECT_TRUE(form_.IsMandatory("NUM"));
  EXPECT_TRUE(form_.TakesRange("NUM"));
  EXPECT_TRUE(form_.TakesSeveral("NUM"));
  EXPECT_FALSE(form_.IsMandatory("DIR"));
  EXPECT_FALSE(form_.TakesRange("DIR"));
  EXPECT_FALSE(form_.TakesSeveral("DIR"));
  form_.SetMandatory("NUM", false);
  form_.SetTakesRange("NUM", false);
  form_.SetTakesSeveral("NUM", false);
  form_.SetMandatory("DIR", true);
  form_.SetTakesRange("DIR", true);
  form_.SetTakesSeveral("DIR", true);
  EXPECT_FALSE(form_.IsMandatory("NUM"));
  EXPECT_FALSE(form_.TakesRange("NUM"));
  EXPECT_FALSE(form_.TakesSeveral("NUM"));
  EXPECT_TRUE(form_.IsMandatory("DIR"));
  EXPECT_TRUE(form_.TakesRange("DIR"));
  EXPECT_TRUE(form_.TakesSeveral("DIR"));
}

TEST_F(FormTest, AFormOfOneRecordTakesOneValueWhateverACheckAllows) {
  FormDefinition held = definition_;
  held.parameters[held.Place("NUM")].oneInEdit = true;
  Form form(held);
  EXPECT_TRUE(form.TakesRange("NUM"));
  EXPECT_TRUE(form.TakesSeveral("NUM"));
  form.ShowOneRecord();
  for (const char* name : {"NUM", "DIR"}) {
    form.SetTakesRange(name, true);
    form.SetTakesSeveral(name, true);
  }
  EXPECT_FALSE(form.TakesRange("NUM"));
  EXPECT_FALSE(form.TakesSeveral("NUM"));
  EXPECT_TRUE(form.TakesRange("DIR"));
  EXPECT_TRUE(form.TakesSeveral("DIR"));
}

TEST_F(FormTest, AnUnknownParameterIsNeverAskedFor) {
  EXPECT_FALSE(form_.IsMandatory("unknown"));
  EXPECT_FALSE(form_.TakesRange("unknown"));
  EXPECT_FALSE(form_.TakesSeveral("unknown"));
}

TEST_F(FormTest, TheFirstDefinitionIsActiveUntilACheckChangesIt) {
  EXPECT_EQ(form_.ActiveDefinition("DIR"), 1);
  form_.SetActiveDefinition("DIR", 4);
  EXPECT_EQ(form_.ActiveDefinition("DIR"), 4);
  EXPECT_EQ(form_.ActiveDefinition("SERV"), 1);
}

// --- A list whose parts are wholes.

struct FormWithListTest : testing::Test {
  std::string Get(const std::string& name) { return TraceText(form_.Get(name)); }

  Form form_{*FindForm("CLFOC")};
};

TEST_F(FormWithListTest, AListGivesItsValuesToItsPartsAndTheirParts) {
  form_.Set("DATA", "1-6-F&12-4-J");
  EXPECT_EQ(Get("DATA2"), "\"12-4-J\"");
  EXPECT_EQ(Get("DATA2_D1D2"), "\"12\"");
  EXPECT_EQ(Get("DATA2_D3D4"), "\"4\"");
  EXPECT_EQ(Get("DATA2_D5"), "\"J\"");
  EXPECT_EQ(Get("DATA3"), "Empty");
  form_.Set("DATA", "2-1-H");
  EXPECT_EQ(Get("DATA1"), "\"2-1-H\"");
  EXPECT_EQ(Get("DATA2_D5"), "Empty");
  form_.Reset("DATA");
  EXPECT_EQ(Get("DATA1_D5"), "Empty");
  EXPECT_EQ(Get("DATA"), "Empty");
}

TEST_F(FormWithListTest, AListIsMadeOfThePartsThatAreGiven) {
  form_.Set("DATA2", "12-4-J");
  form_.Set("DATA7_D5", "H");
  form_.Set("DATA7_D3D4", "1");
  EXPECT_EQ(Get("DATA"), "\"12-4-J\"") << "the other is not whole";
  form_.Set("DATA7_D1D2", "7");
  EXPECT_EQ(Get("DATA"), "\"12-4-J&7-1-H\"");
  form_.Reset("DATA2");
  EXPECT_EQ(Get("DATA"), "\"7-1-H\"");
}

TEST_F(FormWithListTest, AListWithoutPartsIsEmpty) {
  form_.Set("DATA", "1-6-F");
  form_.Reset("DATA1");
  EXPECT_EQ(Get("DATA"), "Empty");
}

TEST_F(FormWithListTest, AnItemStaysAsItWasTypedUntilItIsWholeAnew) {
  form_.Set("DATA", "1-6-F");
  form_.Reset("DATA1_D1D2");
  EXPECT_EQ(Get("DATA1_D1D2"), "Empty");
  EXPECT_EQ(Get("DATA"), "\"1-6-F\"");
  form_.Set("DATA1_D1D2", "9");
  EXPECT_EQ(Get("DATA"), "\"9-6-F\"");
}

}  // namespace
}  // namespace cordboard::workbench
