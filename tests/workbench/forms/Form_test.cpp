#include "workbench/forms/Form.h"

#include <gtest/gtest.h>

#include "script/TracingHost.h"

namespace cordboard::workbench {
namespace {

FormDefinition Definition() {
  FormDefinition form;
  form.command = "TEST";
  for (const char* name : {"DIR", "SERV", "D1"}) form.parameters.push_back({.name = name, .title = name});
  form.parameters.push_back({.name = "NOTE", .title = "Note", .text = true});
  form.parameters.push_back({.name = "NUM", .title = "Numbers", .mandatory = true, .multiple = true, .range = true});
  form.foldings = {{.parameter = "SERV", .length = 6, .fill = '0', .places = {{1, 1, {"D1"}}}}};
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

TEST_F(FormTest, ThePreviousValueOfAWholeIsWhatItsDigitsMade) {
  form_.Set("D1", "7");
  form_.Set("SERV", "123456");
  EXPECT_EQ(Previous("SERV"), "\"700000\"");
  form_.Set("NOTE", "x");
  EXPECT_EQ(Previous("NOTE"), "\"\"") << "as it was read before";
}

// --- Digits that depend on the definition of their whole: digit 1 is D1 in definition 1 and the sum of two in
// definition 2, which has no digit 3 and none of its parts.

class FormWithDefinitions : public testing::Test {
 protected:
  static FormDefinition Definition() {
    FormDefinition form;
    for (const char* name : {"ICAT", "D1", "D1_SUB1", "D1_SUB2", "D3", "D3_SUB1", "D3_SUB2"})
      form.parameters.push_back({.name = name, .title = name});
    form.foldings = {{.parameter = "ICAT",
                      .length = 4,
                      .places = {{1, 1, {"D1"}}, {3, 1, {"D3_SUB1", "D3_SUB2"}, "D3"}},
                      .definition = 1},
                     {.parameter = "ICAT", .length = 4, .places = {{1, 1, {"D1_SUB1", "D1_SUB2"}}}, .definition = 2}};
    return form;
  }
  std::string Get(const std::string& name) { return TraceText(form_.Get(name)); }

  const FormDefinition definition_ = Definition();
  Form form_{definition_};
};

TEST_F(FormWithDefinitions, TheDigitsAreThoseOfTheActiveDefinition) {
  EXPECT_TRUE(form_.IsInDefinition("D1"));
  EXPECT_FALSE(form_.IsInDefinition("D1_SUB1"));
  EXPECT_TRUE(form_.IsInDefinition("ICAT"));
  form_.SetActiveDefinition("ICAT", 2);
  EXPECT_EQ(form_.ActiveDefinition("D1_SUB1"), 2) << "a digit has the definition of its whole";
  EXPECT_TRUE(form_.IsInDefinition("D1_SUB1"));
  EXPECT_FALSE(form_.IsInDefinition("D3"));
  EXPECT_EQ(form_.PlaceOf("D3"), nullptr);
  EXPECT_EQ(form_.PlaceOf("DIR"), nullptr);
  EXPECT_EQ(form_.PlaceOf("D1_SUB1")->first, 1);
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

}  // namespace
}  // namespace cordboard::workbench
