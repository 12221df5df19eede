#include "shared/SingleRecord.h"

#include <gtest/gtest.h>

#include "script/HostOperations.h"
#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

Action Act(List parameters) {
  return {.oaRelease = "R7", .FunctionName = "SetInfo", .CmdName = "ONE", .CmdId = 7, .ParamList = parameters};
}

const std::string count = "SELECT COUNT(*) FROM ONE";
const std::string identifier = "SELECT CmdID FROM ONE";
const std::string oldValues = "SELECT A, B FROM ONE WHERE CmdId = 7";

std::string Write(const std::string& assignment) {
  return StatementLine("UPDATE ONE SET " + assignment + "{NL} WHERE CmdId = 7");
}

bool ChosenAdd(const Action&) {
  scPrintToDebugWindow("add");
  return true;
}
bool ChosenEdit(const Action& action) {
  scPrintToDebugWindow("edit " + std::to_string(action.CmdId));
  return false;
}

TEST(SingleRecord, AnEmptyTableTakesTheAdd) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  EXPECT_TRUE(host.With([] { return SetSingleRecord(Act({"A"}), ChosenAdd, ChosenEdit); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(count), "scPrintToDebugWindow(\"add\")"}));
}

TEST(SingleRecord, ARecordThatStandsIsEditedWhateverRecordTheActionNames) {
  ScriptedHost host;
  host.Rows(count, {{"1"}});
  host.Rows(identifier, {{12}});
  EXPECT_FALSE(host.With([] { return SetSingleRecord(Act({"A"}), ChosenAdd, ChosenEdit); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(count), QueryLine(identifier), "scPrintToDebugWindow(\"edit 12\")"}));
}

TEST(SingleRecord, ACountOrAnIdentifierThatCannotBeHadFailsTheCall) {
  ScriptedHost uncounted;
  uncounted.Refuse("scRunQuery", count);
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange,
                [&] { uncounted.With([] { return SetSingleRecord(Act({"A"}), ChosenAdd, ChosenEdit); }); });
  ScriptedHost unnamed;
  unnamed.Rows(count, {{1}});
  unnamed.Rows(identifier, {{"twelve"}});
  ExpectFailure(RunTimeFailure::Cause::TypeMismatch,
                [&] { unnamed.With([] { return SetSingleRecord(Act({"A"}), ChosenAdd, ChosenEdit); }); });
}

TEST(SingleRecord, AddCountsOnceMoreAndRefusesATableThatIsNoLongerEmpty) {
  ScriptedHost host;
  host.Rows(count, {{1}});
  EXPECT_FALSE(host.With([] { return AddSingleRecord(Act({"CMDID", "A"})); }));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", QueryLine(count), MessageLine("Add: ONE", "60031, \"ONE\""),
                                 "scRollBackTransaction()"}));
}

TEST(SingleRecord, AddTakesAnIdentifierAndTheFormsValues) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Param("A", "5");
  EXPECT_TRUE(host.With([] { return AddSingleRecord(Act({"CMDID", "A", "B"})); }));
  EXPECT_EQ(host.Effects(),
            Lines({"scStartTransaction()", QueryLine(count), "scBuildCmdID()",
                   "scSQLInsert(\"ONE\", [\"CMDID\", \"A\", \"B\"], [1001, \"5\", Empty])", "scCommitTransaction()"}));
}

TEST(SingleRecord, AddReportsAnInsertThatFails) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.With([] { return AddSingleRecord(Act({"A"})); }));
  EXPECT_TRUE(host.Calls().ends_with(Lines({MessageLine("Add: ONE", "61024, \"ONE\""), "scRollBackTransaction()"})));
}

TEST(SingleRecord, EditWritesTheChangedParametersAndClearsAnEmptyOne) {
  ScriptedHost host;
  host.Rows(oldValues, {{"1"}, {"2"}});
  host.Param("B", "9");
  EXPECT_TRUE(host.With([] { return EditSingleRecord(Act({"A", "B"}), oldValues); }));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", QueryLine(oldValues), Write("A = Null"), Write("B = '9'"),
                                   "scCommitTransaction()"}));
}

TEST(SingleRecord, RewriteKeepsWhatTheFormLeavesBlank) {
  for (const Value& blank : {Value(), Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Rows(oldValues, {{"1"}, {Value::Null()}});
    host.Param("A", blank);
    EXPECT_TRUE(host.With([] { return RewriteSingleRecord(Act({}), oldValues, {"A", "B"}); }));
    EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", QueryLine(oldValues), Write("A = '1'"), Write("B = Null"),
                                     "scCommitTransaction()"}));
  }
}

TEST(SingleRecord, EditAndRewriteEndInSilenceWhereTheOldValuesCannotBeRead) {
  for (const bool rewrite : {false, true}) {
    ScriptedHost host;
    host.Refuse("scRunQuery", oldValues);
    EXPECT_FALSE(host.With([&] {
      return rewrite ? RewriteSingleRecord(Act({}), oldValues, {"A"}) : EditSingleRecord(Act({"A"}), oldValues);
    }));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", QueryLine(oldValues), "scRollBackTransaction()"}));
  }
}

TEST(SingleRecord, AnUpdateThatFailsEndsTheEdit) {
  ScriptedHost host;
  host.Rows(oldValues, {{"1"}, {"2"}});
  host.Refuse("scRunQuery", AsSent("UPDATE ONE SET A = '1'{NL} WHERE CmdId = 7"));
  EXPECT_FALSE(host.With([] { return RewriteSingleRecord(Act({}), oldValues, {"A", "B"}); }));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", QueryLine(oldValues), Write("A = '1'"),
                                   MessageLine("Edit: ONE", "61011, \"A\""), "scRollBackTransaction()"}));
}

}  // namespace
}  // namespace cordboard
