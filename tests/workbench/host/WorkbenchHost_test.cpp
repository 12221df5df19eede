#include "workbench/host/WorkbenchHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"
#include "workbench/support/TestForms.h"

namespace cordboard::workbench {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// A form of a command that does not exist: what the command would do when a list is built, a test says itself.
class WorkbenchHostTest : public testing::Test {
 protected:
  WorkbenchHostTest() {
    form_ = TestForm(
        "TEST", {"CMDID"},
        {WithList(Parameter("LIST")), WithList(Parameter("OTHER")), WithFixedList(Parameter("FIXED")),
         Mandatory(Parameter("PLAIN")), WithElements(Parameter("MANY")), AsText(Parameter("NOTE")), Parameter("D1")});
    form_.parameters.push_back(Parameter("WHOLE"));
    form_.foldings = {{.parameter = "WHOLE", .length = 2, .fill = '0', .places = {{1, 1, {"D1"}}}}};
    Connection& fixed = *exchange_->Database("static");
    fixed.Execute(
        "PRAGMA query_only = 0;"
        "INSERT INTO ParamValueDesc ([Command], [Param], [Value], [ValDesc], [DefinitionNo]) VALUES "
        "('TEST', 'FIXED', '1', 'one', 1), ('TEST', 'FIXED', '2', 'two', 1), ('TEST', 'FIXED', '9', 'nine', 2), "
        "('TEST', 'LIST', 'a', 'first', 1), ('TEST', 'LIST', 'b', 'second', 2), ('OTHER', 'LIST', 'x', '', 1)");
    host_.OpenForm(form_);
    host_.SetBuildList([this](const std::string& parameter) {
      ++built_;
      const auto build = builders_.find(parameter);
      return build != builders_.end() && build->second();
    });
  }

  std::string Get(const std::string& name) { return TraceText(host_.scGetParamValue(name)); }

  // The list of a parameter as a rule sees it; "False" where it cannot be read.
  std::string ListOf(const std::string& name) {
    List values;
    return host_.scGetValidValues(name, values) ? TraceText(values) : "False";
  }
  // The list that operations build for LIST.
  template <typename Operations>
  std::string Built(Operations operations) {
    builders_["LIST"] = [operations] {
      operations();
      return true;
    };
    return ListOf("LIST");
  }
  std::string Descriptions(const std::string& name) {
    std::string text;
    for (const auto& [value, description] : host_.FreshList(name)->All()) text += value + ":" + description + " ";
    return text;
  }

  std::string Array(const std::string& name) {
    List values;
    return host_.scGetValueArray(name, values) ? TraceText(values) : "False";
  }

  std::string Query(const std::string& sql, const Selector& database = std::nullopt) {
    RowSet rows;
    return host_.scRunQuery(sql, &rows, database) ? TraceText(rows) : "False";
  }

  std::string DebugLine() {
    const auto lines = host_.TakeDebugLines();
    return lines.empty() ? "no line" : lines.back();
  }

  FormDefinition form_;
  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  WorkbenchHost host_{*exchange_};
  std::map<std::string, std::function<bool()>> builders_;
  int built_ = 0;
};

// --- Parameters of the form.

TEST_F(WorkbenchHostTest, AParameterIsReadAsItStandsOnTheForm) {
  EXPECT_EQ(Get("PLAIN"), "Empty");
  EXPECT_EQ(Get("NOTE"), "\"\"");
  host_.form().Set("MANY", "100&&199");
  EXPECT_EQ(Get("MANY"), "\"100&&199\"");
  host_.form().Set("D1", "7");
  EXPECT_EQ(Get("WHOLE"), "\"70\"");
  EXPECT_EQ(Get("unknown"), "Empty");
}

TEST_F(WorkbenchHostTest, AValueIsSetWithoutACheck) {
  EXPECT_TRUE(host_.scSetParamValue("LIST", "not in its list"));
  EXPECT_EQ(Get("LIST"), "\"not in its list\"");
  EXPECT_EQ(built_, 0);
  EXPECT_FALSE(host_.scSetParamValue("unknown", "1"));
  EXPECT_EQ(Get("unknown"), "Empty");
}

TEST_F(WorkbenchHostTest, AFormHoldsTexts) {
  host_.scSetParamValue("PLAIN", 5);
  EXPECT_EQ(Get("PLAIN"), "\"5\"");
  host_.scSetParamValue("PLAIN", true);
  EXPECT_EQ(Get("PLAIN"), "\"True\"");
  host_.scSetParamValue("PLAIN", Value::Null());
  EXPECT_EQ(Get("PLAIN"), "Null");
  host_.scSetParamValue("PLAIN", Value());
  EXPECT_EQ(Get("PLAIN"), "Empty");
}

TEST_F(WorkbenchHostTest, AResetClearsAParameter) {
  host_.form().Set("PLAIN", "1");
  EXPECT_TRUE(host_.scResetParam("PLAIN"));
  EXPECT_EQ(Get("PLAIN"), "Empty");
  EXPECT_TRUE(host_.scResetParam("PLAIN"));
  EXPECT_FALSE(host_.scResetParam("unknown"));
}

TEST_F(WorkbenchHostTest, AParameterCanBeMadeOptionalAndMandatory) {
  EXPECT_TRUE(host_.scSetParamOptional("PLAIN", true));
  EXPECT_FALSE(host_.form().IsMandatory("PLAIN"));
  EXPECT_TRUE(host_.scSetParamOptional("PLAIN", false));
  EXPECT_TRUE(host_.form().IsMandatory("PLAIN"));
  EXPECT_FALSE(host_.scSetParamOptional("unknown", true));
}

TEST_F(WorkbenchHostTest, RangesAndSeveralValuesCanBeAllowedAndForbidden) {
  host_.scSetCanHaveParamRange("MANY", false);
  EXPECT_FALSE(host_.form().TakesRange("MANY"));
  EXPECT_TRUE(host_.form().TakesSeveral("MANY"));
  host_.scSetCanHaveParamMultiple("MANY", false);
  EXPECT_FALSE(host_.form().TakesSeveral("MANY"));
  host_.scSetCanHaveParamRange("MANY", true);
  host_.scSetCanHaveParamMultiple("MANY", true);
  EXPECT_TRUE(host_.form().TakesRange("MANY"));
  EXPECT_TRUE(host_.form().TakesSeveral("MANY"));
}

TEST_F(WorkbenchHostTest, AValueIsComparedWithTheParameterThatIsChecked) {
  host_.form().Set("PLAIN", "CP");
  host_.Checking("PLAIN");
  EXPECT_EQ(TraceText(host_.scIsValueEqual("CP")), "True");
  EXPECT_EQ(TraceText(host_.scIsValueEqual("AI")), "False");
  host_.Checking("MANY");
  EXPECT_EQ(TraceText(host_.scIsValueEqual("CP")), "Null") << "a value that was not given equals and differs from none";
}

TEST_F(WorkbenchHostTest, ARuleMayBeGivenTheFirstOfSeveralValues) {
  ParameterDefinition first = WithElements(Parameter("FIRST"));
  first.firstToRules = true;
  form_.parameters.push_back(first);
  host_.form().Set("FIRST", "7&10&&12");
  EXPECT_EQ(Get("FIRST"), "\"7\"");
  EXPECT_EQ(Array("FIRST"), R"(["7", "10", "11", "12"])");
  host_.form().Set("FIRST", "10&&12");
  EXPECT_EQ(Get("FIRST"), "\"10\"");
  host_.form().Set("FIRST", Value::Null());
  EXPECT_EQ(Get("FIRST"), "Null");
  host_.form().Set("MANY", "7&9");
  EXPECT_EQ(Get("MANY"), "\"7&9\"");
}

TEST_F(WorkbenchHostTest, ARuleMayBeToldThatNoValueWasGiven) {
  ParameterDefinition one = Parameter("ONE");
  one.onlyGiven = true;
  form_.parameters.push_back(one);
  EXPECT_EQ(Array("ONE"), "False");
  host_.form().Set("ONE", "");
  EXPECT_EQ(Array("ONE"), "False");
  host_.form().Set("ONE", "7");
  EXPECT_EQ(Array("ONE"), R"(["7"])");
}

TEST_F(WorkbenchHostTest, ValuesOfTheOtherTableAreNotDelivered) {
  form_.elsewhere = {"MANY", "WHOLE"};
  EXPECT_EQ(Array("MANY"), "False");
  EXPECT_EQ(Array("D1"), "False");
  EXPECT_EQ(Array("PLAIN"), "Empty");
}

TEST_F(WorkbenchHostTest, AnArrayHasOneElementForEachValue) {
  host_.form().Set("MANY", "098&&101&5");
  EXPECT_EQ(Array("MANY"), R"(["098", "099", "100", "101", "5"])");
  host_.form().Set("MANY", "7");
  EXPECT_EQ(Array("MANY"), R"(["7"])");
}

TEST_F(WorkbenchHostTest, AnArrayWithoutAValueHasNoBounds) {
  for (const char* name : {"MANY", "NOTE"}) {
    List values;
    EXPECT_TRUE(host_.scGetValueArray(name, values));
    EXPECT_TRUE(values.IsEmpty());
  }
}

TEST_F(WorkbenchHostTest, AnArrayThatCannotBeDeliveredIsRefused) {
  host_.form().Set("MANY", "5&&4");
  EXPECT_EQ(Array("MANY"), "False");
  EXPECT_EQ(Array("unknown"), "False");
}

TEST_F(WorkbenchHostTest, AParameterThatTakesOneValueIsNotTakenApart) {
  host_.form().Set("PLAIN", "Smith & Sons");
  EXPECT_EQ(Array("PLAIN"), R"(["Smith & Sons"])");
}

TEST_F(WorkbenchHostTest, ThePreviousValueIsThatOfTheParameterThatIsChecked) {
  host_.form().Set("PLAIN", "1");
  host_.form().Set("PLAIN", "2");
  host_.Checking("PLAIN");
  Value previous;
  host_.scGetPreviousValue(previous);
  EXPECT_EQ(TraceText(previous), "\"1\"");
  host_.Checking("LIST");
  host_.scGetPreviousValue(previous);
  EXPECT_EQ(TraceText(previous), "Empty");
}

TEST_F(WorkbenchHostTest, TheActiveDefinitionChoosesTheFixedValues) {
  EXPECT_EQ(ListOf("FIXED"), R"(["1", "2"])");
  EXPECT_TRUE(host_.scActiveDefinition("FIXED", 2));
  EXPECT_EQ(ListOf("FIXED"), R"(["9"])");
  EXPECT_TRUE(host_.scActiveDefinition("FIXED", "1"));
  EXPECT_EQ(ListOf("FIXED"), R"(["1", "2"])");
  EXPECT_FALSE(host_.scActiveDefinition("unknown", 2));
  EXPECT_THROW(host_.scActiveDefinition("FIXED", "x"), RunTimeFailure);
}

// --- What builds a list.

TEST_F(WorkbenchHostTest, SingleValuesComeFromTheConfigurationOrTheDatabaseThatIsNamed) {
  EXPECT_EQ(Built([&] { EXPECT_TRUE(host_.scCollectSingleValues("SELECT CUST FROM CUSTOMERS", std::nullopt)); }),
            R"(["1", "2"])");
  EXPECT_EQ(Built([&] { EXPECT_TRUE(host_.scCollectSingleValues("SELECT CUST FROM CUSTOMERS", Value())); }),
            R"(["1", "2"])");
  EXPECT_EQ(Built([&] {
              EXPECT_TRUE(host_.scCollectSingleValues(
                  "SELECT Value FROM ParamValueDesc WHERE Command = 'TEST' AND Param = 'FIXED'", "static"));
            }),
            R"(["1", "2", "9"])");
}

TEST_F(WorkbenchHostTest, ValuesWithDescriptionsComeFromTheFixedValuesWhereNoDatabaseIsNamed) {
  Built([&] {
    EXPECT_TRUE(host_.scCollectValuesAndDesc(
        "SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'TEST' AND Param = 'FIXED' AND Value = '1'",
        std::nullopt));
  });
  EXPECT_EQ(Descriptions("LIST"), "1:one ");
  Built([&] { EXPECT_TRUE(host_.scCollectValuesAndDesc("SELECT CUST, DESCRIPTION FROM CUSTOMERS", "dynamic")); });
  EXPECT_EQ(Descriptions("LIST"), "1:Head office 2:Works ");
}

TEST_F(WorkbenchHostTest, ACollectionReplacesAndAnAdditionStandsBehind) {
  EXPECT_EQ(Built([&] {
              host_.scPushValidValues("9", std::nullopt);
              host_.scCollectSingleValues("SELECT CUST FROM CUSTOMERS", std::nullopt);
              EXPECT_TRUE(host_.scAddSingleValues("SELECT LIM FROM LIMs"));
            }),
            R"(["1", "2", "1", "2"])");
}

TEST_F(WorkbenchHostTest, ASubtractionTakesAwayAndIgnoresWhatIsNotThere) {
  EXPECT_EQ(Built([&] {
              host_.scPushValidRangeValues(1, 3);
              EXPECT_TRUE(host_.scSubtractSingleValues("SELECT CUST FROM CUSTOMERS WHERE CUST = '2'"));
              EXPECT_TRUE(host_.scSubtractSingleValues("SELECT NUMSE FROM NANSI"));
            }),
            R"(["1", "3"])");
}

TEST_F(WorkbenchHostTest, AStatementOfAListThatFailsLeavesTheListAndADebugLine) {
  EXPECT_EQ(Built([&] {
              host_.scPushValidValues("1", std::nullopt);
              EXPECT_FALSE(host_.scCollectSingleValues("SELECT x FROM CUSTOMERS", std::nullopt));
              EXPECT_FALSE(host_.scAddSingleValues("SELECT FROM"));
              EXPECT_FALSE(host_.scSubtractSingleValues("DELETE * FROM CUSTOMERS"));
              EXPECT_FALSE(host_.scCollectValuesAndDesc("SELECT CUST FROM CUSTOMERS", "nowhere"));
            }),
            R"(["1"])");
  EXPECT_EQ(host_.TakeDebugLines().size(), 4u);
  EXPECT_EQ(Count(*exchange_, "CUSTOMERS"), 2);
}

TEST_F(WorkbenchHostTest, FixedValuesAreThoseOfTheCommandTheParameterAndTheDefinition) {
  Built([&] { EXPECT_TRUE(host_.scSQLSelectValuesAndDesc()); });
  EXPECT_EQ(Descriptions("LIST"), "a:first ");
  host_.scActiveDefinition("LIST", 2);
  EXPECT_EQ(Descriptions("LIST"), "b:second ");
  EXPECT_EQ(Built([&] { EXPECT_TRUE(host_.scSQLSelectValuesAndDescByDefinition(1)); }), R"(["a"])");
  EXPECT_EQ(Built([&] { EXPECT_TRUE(host_.scSQLSelectValuesAndDescByDefinition("2")); }), R"(["b"])");
  EXPECT_EQ(Built([&] { EXPECT_TRUE(host_.scSQLSelectValuesAndDescByDefinition(7)); }), "[]");
}

TEST_F(WorkbenchHostTest, OneValueOrAListOfThemIsPushed) {
  EXPECT_EQ(Built([&] {
              EXPECT_TRUE(host_.scPushValidValues("x", std::nullopt));
              EXPECT_TRUE(host_.scPushValidValues(List{0, "1", 2.5}, std::nullopt));
              EXPECT_TRUE(host_.scPushValidValues(Value(), std::nullopt));
              EXPECT_TRUE(host_.scPushValidValues(List{Value(), Value::Null(), ""}, std::nullopt));
              EXPECT_TRUE(host_.scPushValidValues("y", "LIST"));
            }),
            R"(["x", "0", "1", "2.5", "y"])");
  EXPECT_THROW(host_.scPushValidValues(List(), std::nullopt), RunTimeFailure);
}

TEST_F(WorkbenchHostTest, RangesArePushedAndRemovedWithBothEnds) {
  EXPECT_EQ(Built([&] {
              EXPECT_TRUE(host_.scPushValidRangeValues("1", 6));
              EXPECT_TRUE(host_.scRemoveFromValidRangeValues("LIST", 2, "4"));
              EXPECT_TRUE(host_.scRemoveFromValidValues("LIST", 6));
            }),
            R"(["1", "5"])");
  EXPECT_THROW(host_.scPushValidRangeValues("x", 6), RunTimeFailure);
  EXPECT_THROW(host_.scRemoveFromValidRangeValues("LIST", 1, Value::Null()), RunTimeFailure);
}

// --- Whose list it is, and what of it lasts.

TEST_F(WorkbenchHostTest, AListIsBuiltAnewEachTimeItIsAskedFor) {
  builders_["LIST"] = [&] {
    host_.scPushValidValues(host_.scGetParamValue("PLAIN"), std::nullopt);
    return true;
  };
  host_.form().Set("PLAIN", "1");
  EXPECT_EQ(ListOf("LIST"), R"(["1"])");
  host_.form().Set("PLAIN", "2");
  EXPECT_EQ(ListOf("LIST"), R"(["2"])");
  EXPECT_EQ(built_, 2);
}

TEST_F(WorkbenchHostTest, AListRightAfterAResetReflectsTheFormAsItIs) {
  builders_["LIST"] = [&] {
    if (host_.scGetParamValue("LIST").IsEmpty()) host_.scPushValidRangeValues(1, 3);
    return true;
  };
  host_.form().Set("LIST", "2");
  EXPECT_EQ(ListOf("LIST"), "[]");
  host_.scResetParam("LIST");
  EXPECT_EQ(ListOf("LIST"), R"(["1", "2", "3"])");
}

TEST_F(WorkbenchHostTest, BuildingOneListCanAskForAnother) {
  builders_["OTHER"] = [&] {
    host_.scPushValidRangeValues(1, 3);
    return true;
  };
  EXPECT_EQ(Built([&] {
              host_.scPushValidValues("a", std::nullopt);
              List other;
              EXPECT_TRUE(host_.scGetValidValues("OTHER", other));
              host_.scPushValidValues(other, std::nullopt);
            }),
            R"(["a", "1", "2", "3"])");
  EXPECT_EQ(ListOf("OTHER"), R"(["1", "2", "3"])");
}

TEST_F(WorkbenchHostTest, AListThatIsBeingBuiltIsSeenAsItStands) {
  EXPECT_EQ(Built([&] {
              Value count;
              host_.scPushValidRangeValues(1, 4);
              EXPECT_TRUE(host_.scGetNumberOfValidValues("LIST", 1, count));
              EXPECT_EQ(count, Value(4));
              host_.scPushValidValues(count, std::nullopt);
            }),
            R"(["1", "2", "3", "4", "4"])");
  EXPECT_EQ(built_, 1);
}

TEST_F(WorkbenchHostTest, ANumberOfValuesIsThatOfTheList) {
  Value count;
  EXPECT_TRUE(host_.scGetNumberOfValidValues("FIXED", 1, count));
  EXPECT_EQ(count, Value(2));
  EXPECT_FALSE(host_.scGetNumberOfValidValues("PLAIN", 1, count));
}

TEST_F(WorkbenchHostTest, AParameterWithoutAListHasNone) {
  EXPECT_EQ(ListOf("PLAIN"), "False");
  EXPECT_EQ(ListOf("unknown"), "False");
  EXPECT_EQ(host_.FreshList("PLAIN"), nullptr);
}

TEST_F(WorkbenchHostTest, AListThatItsCommandRefusesToBuildIsNone) {
  builders_["LIST"] = [&] {
    host_.scPushValidValues("1", std::nullopt);
    return false;
  };
  EXPECT_EQ(ListOf("LIST"), "False");
  EXPECT_EQ(ListOf("OTHER"), "False");
}

TEST_F(WorkbenchHostTest, WhatACheckChangesInAListLastsUntilItsParameterIsReset) {
  Built([&] { host_.scPushValidRangeValues(1, 3); });
  host_.scRemoveFromValidValues("LIST", "2");
  host_.scPushValidValues("9", "LIST");
  EXPECT_EQ(ListOf("LIST"), R"(["1", "3", "9"])");
  EXPECT_EQ(ListOf("LIST"), R"(["1", "3", "9"])");
  EXPECT_FALSE(host_.FreshList("LIST")->Contains("2"));
  host_.scResetParam("LIST");
  EXPECT_EQ(ListOf("LIST"), R"(["1", "2", "3"])") << "a reset brings the whole list back";
  host_.scRemoveFromValidRangeValues("LIST", 1, 2);
  EXPECT_EQ(ListOf("LIST"), R"(["3"])");
  host_.scActiveDefinition("LIST", 2);
  EXPECT_EQ(ListOf("LIST"), R"(["1", "2", "3"])");
}

TEST_F(WorkbenchHostTest, TheSameHoldsForFixedValues) {
  host_.scRemoveFromValidValues("FIXED", "1");
  EXPECT_EQ(ListOf("FIXED"), R"(["2"])");
  host_.scPushValidValues("1", "FIXED");
  EXPECT_EQ(ListOf("FIXED"), R"(["2", "1"])");
  host_.scResetParam("FIXED");
  EXPECT_EQ(ListOf("FIXED"), R"(["1", "2"])");
}

TEST_F(WorkbenchHostTest, WithoutANameTheListIsThatOfTheParameterThatIsChecked) {
  host_.Checking("FIXED");
  host_.scPushValidValues("7", std::nullopt);
  EXPECT_EQ(ListOf("FIXED"), R"(["1", "2", "7"])");
  host_.scCollectSingleValues("SELECT CUST FROM CUSTOMERS WHERE CUST = '2'", std::nullopt);
  EXPECT_EQ(ListOf("FIXED"), R"(["2"])");
}

TEST_F(WorkbenchHostTest, AnotherFormBeginsWithoutListsAndMessages) {
  host_.scRemoveFromValidValues("FIXED", "1");
  host_.scErrorMessage(0, 2, 2, "x", 62000, {});
  host_.scPrintToDebugWindow("line");
  host_.OpenForm(form_);
  EXPECT_EQ(ListOf("FIXED"), R"(["1", "2"])");
  EXPECT_TRUE(host_.TakeMessages().empty());
  EXPECT_TRUE(host_.TakeDebugLines().empty());
}

TEST_F(WorkbenchHostTest, AFormThatIsClosedIsGoneWithItsMessages) {
  host_.scErrorMessage(0, 2, 2, "x", 62000, {});
  host_.CloseForm();
  EXPECT_TRUE(host_.TakeMessages().empty());
  EXPECT_THROW(host_.form(), std::logic_error);
  EXPECT_THROW(host_.scGetParamValue("CUST"), std::logic_error);
}

TEST_F(WorkbenchHostTest, AListThatFailsWhenItIsReadIsRefused) {
  exchange_->Dynamic().Execute("CREATE TABLE [gone] ([a])");
  Built([&] { host_.scPushValidValues("1", std::nullopt); });
  builders_["LIST"] = [&] { return host_.scCollectSingleValues("SELECT a FROM gone", std::nullopt); };
  ASSERT_NE(host_.FreshList("LIST"), nullptr);
  builders_["LIST"] = [&] {
    const bool collected = host_.scCollectSingleValues("SELECT a FROM gone", std::nullopt);
    exchange_->Dynamic().Execute("DROP TABLE [gone]");
    return collected;
  };
  EXPECT_EQ(ListOf("LIST"), "False");
  EXPECT_THAT(DebugLine(), HasSubstr("no such table: gone"));
}

// --- The database.

TEST_F(WorkbenchHostTest, AQueryFillsTheRowSetAndLeavesItEmptyWhereNothingIsFound) {
  EXPECT_EQ(Query("SELECT CUST, DESCRIPTION FROM CUSTOMERS"), R"([["1", "2"], ["Head office", "Works"]])");
  EXPECT_EQ(Query("SELECT CUST FROM CUSTOMERS WHERE CUST = '7'"), "Empty");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM CUSTOMERS WHERE CUST = '7'"), "[[0]]");
  EXPECT_EQ(Query("SELECT Value FROM ParamValueDesc WHERE Command = 'OTHER'", "static"), R"([["x"]])");
  EXPECT_EQ(Query("SELECT CUST FROM CUSTOMERS WHERE CUST = '1'", Value()), R"([["1"]])");
}

TEST_F(WorkbenchHostTest, AnActionStatementNeedsNoRowSet) {
  EXPECT_TRUE(host_.scRunQuery("UPDATE CUSTOMERS SET DESCRIPTION = 'x'", nullptr, std::nullopt));
  EXPECT_TRUE(host_.scRunQuery("DELETE * FROM CUSTOMERS WHERE CUST = '7'", nullptr, std::nullopt));
  EXPECT_TRUE(host_.scRunQuery("SELECT CUST FROM CUSTOMERS", nullptr, std::nullopt));
  EXPECT_EQ(Query("SELECT DISTINCT DESCRIPTION FROM CUSTOMERS"), R"([["x"]])");
}

TEST_F(WorkbenchHostTest, AStatementThatFailsGivesFalseADebugLineAndNoRows) {
  RowSet rows;
  EXPECT_FALSE(host_.scRunQuery("SELECT x FROM CUSTOMERS", &rows, std::nullopt));
  EXPECT_TRUE(rows.IsEmpty());
  EXPECT_THAT(DebugLine(), StartsWith("Failed statement: no such column: x"));
  EXPECT_FALSE(host_.scRunQuery("UPDATE CUSTOMERS SET DESCRIPTION = 'O'Neill'", nullptr, std::nullopt));
  EXPECT_THAT(DebugLine(), StartsWith("Malformed statement: "));
  EXPECT_FALSE(host_.scRunQuery("SELECT CUST FROM CUSTOMERS", &rows, "nowhere"));
  EXPECT_THAT(DebugLine(), HasSubstr("there is no database 'nowhere'"));
}

TEST_F(WorkbenchHostTest, RowsGoInByNamesAndValues) {
  EXPECT_TRUE(host_.scSQLInsert("GESPI", {"CMDID", "CSP", "DESCRIPTION"}, {1, "O'Neill", Value()}));
  EXPECT_EQ(Query("SELECT CMDID, CSP, DESCRIPTION FROM GESPI"), R"([[1], ["O'Neill"], [Null]])");
  EXPECT_TRUE(host_.scSQLUpdate("GESPI", {"CSP"}, {"2"}, {"CMDID", ""}, {1, "x"}));
  EXPECT_EQ(TraceText(host_.scSQLSelect("GESPI", {"CSP", "CMDID"}, {"CMDID"}, {1})), R"([["2"], [1]])");
  EXPECT_TRUE(host_.scSQLSelect("GESPI", {"CSP"}, {"CMDID"}, {2}).IsEmpty());
}

TEST_F(WorkbenchHostTest, RowsThatDoNotFitAreRefusedWithADebugLine) {
  EXPECT_FALSE(host_.scSQLInsert("GESPI", {"x"}, {1}));
  EXPECT_THAT(DebugLine(), HasSubstr("insert into GESPI"));
  EXPECT_FALSE(host_.scSQLUpdate("GESPI", {"x"}, {1}, {"CMDID"}, {1}));
  EXPECT_THAT(DebugLine(), HasSubstr("update of GESPI"));
  EXPECT_TRUE(host_.scSQLSelect("GESPI", {"x"}, {"CMDID"}, {1}).IsEmpty());
  EXPECT_THAT(DebugLine(), HasSubstr("select from GESPI"));
}

TEST_F(WorkbenchHostTest, RowsOfATemplateCommandGoToTheTemplates) {
  host_.SetTemplate(true);
  EXPECT_TRUE(host_.scSQLInsert("KSEXITEMPLATE", {"CMDID"}, {1}));
  EXPECT_TRUE(host_.scSQLUpdate("KSEXITEMPLATE", {"CMDID"}, {2}, {"CMDID"}, {1}));
  EXPECT_EQ(TraceText(host_.scSQLSelect("KSEXITEMPLATE", {"CMDID"}, {"CMDID"}, {2})), "[[2]]");
  EXPECT_EQ(Query("SELECT CMDID FROM KSEXITEMPLATE", "site"), "[[2]]");
  EXPECT_EQ(Query("SELECT CUST FROM CUSTOMERS WHERE CUST = '1'"), R"([["1"]])") << "statements name their database";
  host_.OpenForm(form_);
  EXPECT_TRUE(host_.scSQLInsert("GESPI", {"CMDID"}, {1})) << "the next form is no template";
  EXPECT_EQ(Query("SELECT CMDID FROM GESPI"), "[[1]]");
}

TEST_F(WorkbenchHostTest, EveryIdentifierIsGivenOnce) {
  const Value first = host_.scBuildCmdID();
  EXPECT_TRUE(first.IsNumber());
  EXPECT_EQ(host_.scBuildCmdID(), Value(first.number() + 1));
}

TEST_F(WorkbenchHostTest, AnIdentifierThatCannotBeGivenFailsTheCall) {
  exchange_->Dynamic().Execute("PRAGMA query_only = 1");
  try {
    host_.scBuildCmdID();
    ADD_FAILURE() << "no failure";
  } catch (const RunTimeFailure& failure) {
    EXPECT_EQ(failure.cause(), RunTimeFailure::Cause::HostFailure);
  }
}

TEST_F(WorkbenchHostTest, TransactionsNestAndAreClosedByThoseWhoStartedThem) {
  EXPECT_TRUE(host_.scStartTransaction());
  host_.scSQLInsert("GESPI", {"CMDID"}, {1});
  EXPECT_TRUE(host_.scStartTransaction());
  host_.scSQLInsert("GESPI", {"CMDID"}, {2});
  EXPECT_TRUE(host_.scRollBackTransaction());
  EXPECT_TRUE(host_.scCommitTransaction());
  EXPECT_EQ(Query("SELECT CMDID FROM GESPI"), "[[1]]");
  EXPECT_FALSE(host_.scCommitTransaction());
  EXPECT_EQ(DebugLine(), "There is no transaction to close");
  EXPECT_FALSE(host_.scRollBackTransaction());

  Transaction around(*exchange_);
  EXPECT_EQ(host_.Enclose(1), 0);
  EXPECT_FALSE(host_.scCommitTransaction());
  EXPECT_FALSE(host_.scRollBackTransaction());
  EXPECT_TRUE(host_.scStartTransaction());
  EXPECT_TRUE(host_.scRollBackTransaction());
  EXPECT_EQ(exchange_->OpenTransactions(), 1);
}

// A file that is held, a full disk: no rule is asked what to do about it.
TEST_F(WorkbenchHostTest, WhatNoStatementCanHelpIsNoAnswer) {
  const TemporaryFolder folder;
  const auto first = Exchange::Create(folder / "a.cbx", "R7", ReadPlant("example"));
  const auto second = Exchange::OpenForWriting(folder / "a.cbx", std::chrono::milliseconds(0));
  Transaction held(*first);
  WorkbenchHost host(*second);
  EXPECT_THROW(host.scStartTransaction(), StorageError);
  EXPECT_THROW(host.scBuildCmdID(), StorageError);
  EXPECT_EQ(host.TakeDebugLines(), std::vector<std::string>{});
}

// --- Operations of the exchange.

TEST_F(WorkbenchHostTest, ASeriesIsCreatedWithItsNumbersAndItsRange) {
  Value code;
  EXPECT_TRUE(host_.scNANSIinitiate("100&&101", "EX", code));
  EXPECT_TRUE(code.IsEmpty());
  EXPECT_EQ(Query("SELECT NUMSE, NUMTYP, USED FROM NANSI"), R"([["100", "101"], ["EX", "EX"], [False, False]])");
  EXPECT_EQ(Query("SELECT Start, End, Numtyp FROM NANSIBlockedRange"), R"([["100"], ["101"], ["EX"]])");
}

TEST_F(WorkbenchHostTest, ASeriesThatIsRefusedGivesTheCodeOfAMessageThatNamesTheNumber) {
  Value code;
  host_.scNANSIinitiate("100&&199", "EX", code);
  EXPECT_FALSE(host_.scNANSIinitiate("150", "OI", code));
  EXPECT_EQ(TraceText(code), "60008");
  host_.scErrorMessage(0, 2, 2, "Add: NANSI", code, {});
  EXPECT_EQ(host_.TakeMessages()[0].reason, "150 collides with the series 100&&199");
  host_.scErrorMessage(0, 2, 2, "Add: NANSI", code, {});
  EXPECT_EQ(host_.TakeMessages()[0].reason, "") << "the reason is told once";
  EXPECT_FALSE(host_.scNANSIinitiate("5&&4", "OI", code));
  EXPECT_EQ(TraceText(code), "60049");
}

TEST_F(WorkbenchHostTest, ASeriesThatTheDatabaseRefusesGivesTheCodeOfAFailedStatement) {
  exchange_->Dynamic().Execute("PRAGMA query_only = 1");
  Value code;
  EXPECT_FALSE(host_.scNANSIinitiate("100", "EX", code));
  EXPECT_EQ(TraceText(code), "62000");
  EXPECT_FALSE(host_.scNANSIremoveFromBlockedRange("100", "EX"));
}

TEST_F(WorkbenchHostTest, ANumberIsTakenOutOfTheBlockedRanges) {
  Value code;
  host_.scNANSIinitiate("100&&102", "EX", code);
  EXPECT_TRUE(host_.scNANSIremoveFromBlockedRange("101", "EX"));
  EXPECT_EQ(Query("SELECT Start, End FROM NANSIBlockedRange"), R"([["100", "102"], ["100", "102"]])");
  EXPECT_TRUE(host_.scNANSIremoveFromBlockedRange("999", "EX"));
}

TEST_F(WorkbenchHostTest, EquipmentIsChosenInTheOrderOfTheRules) {
  Value clause;
  EXPECT_FALSE(host_.scGetAutoEquOptionValue(clause));
  EXPECT_TRUE(clause.IsEmpty());
  host_.scFilterEQU(2, "2");
}

// --- Reports.

TEST_F(WorkbenchHostTest, MessagesAreKeptWithTheirTexts) {
  host_.scErrorMessage(0, 2, 2, "Add: NANSI", 60026, {"3", "EC"});
  host_.scErrorMessage(0, 3, 1, "Edit", "60049", {"DIR"});
  const auto messages = host_.TakeMessages();
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].third, 2);
  EXPECT_EQ(messages[0].context, "Add: NANSI");
  EXPECT_EQ(messages[0].code, "60026");
  EXPECT_EQ(messages[0].arguments, (std::vector<Value>{"3", "EC"}));
  EXPECT_EQ(messages[0].text, "The number is too long. Type EC takes at most 3 digits.");
  EXPECT_EQ(messages[1].third, 1);
  EXPECT_TRUE(host_.TakeMessages().empty()) << "they are taken once";
}

TEST_F(WorkbenchHostTest, DebugLinesAreKeptAsTheyCome) {
  host_.scPrintToDebugWindow("  first");
  host_.scPrintToDebugWindow("");
  EXPECT_EQ(host_.TakeDebugLines(), (std::vector<std::string>{"  first", ""}));
  EXPECT_TRUE(host_.TakeDebugLines().empty());
}

TEST(WorkbenchHost, HasNoFormUntilOneIsOpened) {
  const auto exchange = ExampleExchange();
  WorkbenchHost host(*exchange);
  EXPECT_THROW(host.form(), std::logic_error);
}

}  // namespace
}  // namespace cordboard::workbench
