#include "shared/GenericRecord.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

const List noElements{std::vector<Value>()};

Action On(const std::string& function, const List& parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "OPCOI", .CmdId = 7, .ParamList = parameters};
}

const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";

// --- Add.

const List columns = {"CMDID", "COACC", "NUMTYP", "DESCRIPTION"};
const std::string insert =
    "scSQLInsert(\"OPCOI\", [\"CMDID\", \"COACC\", \"NUMTYP\", \"DESCRIPTION\"], [1001, \"9\", \"OC\", Empty])";
const std::string readCOACC = "scGetParamValue(\"COACC\")";
const std::string readDESCRIPTION = "scGetParamValue(\"DESCRIPTION\")";
const std::string build = "scBuildCmdID()";

bool AddOC() { return GenericSetInfo(On("SetInfo", columns), "OC"); }

TEST(GenericSetInfo, InsertsOneValueAColumnInTheirOrder) {
  ScriptedHost host;
  host.Param("COACC", "9");
  EXPECT_TRUE(host.With(AddOC));
  EXPECT_EQ(host.Calls(), Lines({start, build, readCOACC, readDESCRIPTION, insert, commit}));
}

TEST(GenericSetInfo, PassesTheValuesOfTheFormOnAsTheyStand) {
  ScriptedHost host;
  host.Param("A", Value::Null());
  host.Param("B", "");
  host.Param("C", 5);
  host.Param("D", true);
  EXPECT_TRUE(host.With([] { return GenericSetInfo(On("SetInfo", {"A", "B", "C", "D", "E"})); }));
  EXPECT_EQ(host.Effects(), Lines({start,
                                   "scSQLInsert(\"OPCOI\", [\"A\", \"B\", \"C\", \"D\", \"E\"], "
                                   "[Null, \"\", 5, True, Empty])",
                                   commit}));
}

TEST(GenericSetInfo, WritesAnEmptyTextAndNoNullForANumberTypeThatIsNotGiven) {
  ScriptedHost host;
  host.Param("NUMTYP", "EX");
  EXPECT_TRUE(host.With([] { return GenericSetInfo(On("SetInfo", {"NUMTYP"})); }));
  EXPECT_EQ(host.Calls(), Lines({start, "scSQLInsert(\"OPCOI\", [\"NUMTYP\"], [\"\"])", commit}));
}

TEST(GenericSetInfo, ReadsNamesInOtherCapitalsFromTheForm) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return GenericSetInfo(On("SetInfo", {"CmdId", "NumTyp"}), "OC"); }));
  EXPECT_EQ(host.Calls(), Lines({start, "scGetParamValue(\"CmdId\")", "scGetParamValue(\"NumTyp\")",
                                 "scSQLInsert(\"OPCOI\", [\"CmdId\", \"NumTyp\"], [Empty, Empty])", commit}));
}

TEST(GenericSetInfo, BuildsAnIdentifierForEachColumnThatAsks) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return GenericSetInfo(On("SetInfo", {"CMDID", "CMDID"})); }));
  EXPECT_EQ(host.Calls(),
            Lines({start, build, build, "scSQLInsert(\"OPCOI\", [\"CMDID\", \"CMDID\"], [1001, 1002])", commit}));
}

TEST(GenericSetInfo, OfNoColumnsIsStillOneInsert) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return GenericSetInfo(On("SetInfo", noElements)); }));
  EXPECT_EQ(host.Calls(), Lines({start, "scSQLInsert(\"OPCOI\", [], [])", commit}));
}

TEST(GenericSetInfo, ReportsAnInsertThatFailedAndRollsBack) {
  ScriptedHost host;
  host.Param("COACC", "9");
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.With(AddOC));
  EXPECT_EQ(host.Effects(), Lines({start, build, insert, MessageLine("Add: OPCOI", "61024, \"OPCOI\""), rollBack}));
}

TEST(GenericSetInfo, ReportsAStartThatFailedAndRollsBackAllTheSame) {
  ScriptedHost host;
  host.Refuse("scStartTransaction");
  EXPECT_FALSE(host.With(AddOC));
  EXPECT_EQ(host.Calls(), Lines({start, MessageLine("Add: OPCOI", "62010"), rollBack}));
}

TEST(GenericSetInfo, ReportsACommitThatFailedAndIsTrueAllTheSame) {
  ScriptedHost host;
  host.Param("COACC", "9");
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.With(AddOC));
  EXPECT_EQ(host.Effects(), Lines({start, build, insert, commit, MessageLine("Add: OPCOI", "62011")}));
}

TEST(GenericSetInfo, ReportsARollBackThatFailed) {
  ScriptedHost host;
  host.Param("COACC", "9");
  host.Refuse("scSQLInsert");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.With(AddOC));
  EXPECT_EQ(host.Effects(), Lines({start, build, insert, MessageLine("Add: OPCOI", "61024, \"OPCOI\""), rollBack,
                                   MessageLine("Add: OPCOI", "62012")}));
}

TEST(GenericSetInfo, FailsBeforeTheTransactionForAListWithoutBounds) {
  ScriptedHost host;
  ExpectFailure(Cause::SubscriptOutOfRange, [&] { host.With([] { return GenericSetInfo(On("SetInfo", List())); }); });
  EXPECT_EQ(host.Calls(), "");
}

TEST(GenericRecord, FailsInsideTheTransactionForANameThatIsNull) {
  const List names = {"ONE", Value::Null()};
  ScriptedHost added;
  ExpectFailure(Cause::InvalidUseOfNull, [&] { added.With([&] { return GenericSetInfo(On("SetInfo", names)); }); });
  EXPECT_EQ(added.Effects(), Lines({start}));

  ScriptedHost edited;
  ExpectFailure(Cause::InvalidUseOfNull, [&] { edited.With([&] { return GenericEditInfo(On("EditInfo", names)); }); });
  EXPECT_EQ(edited.Effects(), Lines({start, StatementLine("UPDATE OPCOI SET ONE = Null{NL} WHERE CmdId = 7")}));
}

// --- Edit.

const std::string editOne = "UPDATE OPCOI SET ONE = 'a'{NL} WHERE CmdId = 7";
const std::string editTwo = "UPDATE OPCOI SET TWO = 'b'{NL} WHERE CmdId = 7";
const std::string editThree = "UPDATE OPCOI SET THREE = 'c'{NL} WHERE CmdId = 7";

bool EditThree() { return GenericEditInfo(On("EditInfo", {"ONE", "TWO", "THREE"})); }

void SetThree(ScriptedHost& host) {
  host.Param("ONE", "a");
  host.Param("TWO", "b");
  host.Param("THREE", "c");
}

TEST(GenericEditInfo, WritesEachParameterWithAStatementOfItsOwn) {
  ScriptedHost host;
  SetThree(host);
  EXPECT_TRUE(host.With(EditThree));
  EXPECT_EQ(host.Calls(),
            Lines({start, "scGetParamValue(\"ONE\")", StatementLine(editOne), "scGetParamValue(\"TWO\")",
                   StatementLine(editTwo), "scGetParamValue(\"THREE\")", StatementLine(editThree), commit}));
}

struct Written {
  Value value;
  const char* assignment;
};

class GenericEditInfoOf : public testing::TestWithParam<Written> {};

TEST_P(GenericEditInfoOf, WritesNullForTheEmptyStateAlone) {
  ScriptedHost host;
  host.Param("ONE", GetParam().value);
  EXPECT_TRUE(host.With([] { return GenericEditInfo(On("EditInfo", {"ONE"})); }));
  EXPECT_EQ(
      host.Effects(),
      Lines({start,
             StatementLine(std::string("UPDATE OPCOI SET ONE = ") + GetParam().assignment + "{NL} WHERE CmdId = 7"),
             commit}));
}

INSTANTIATE_TEST_SUITE_P(Values, GenericEditInfoOf,
                         testing::Values(Written{Value(), "Null"}, Written{"", "''"}, Written{Value::Null(), "''"},
                                         Written{"a", "'a'"}, Written{" a ", "' a '"}, Written{5, "'5'"},
                                         Written{0.5, "'0.5'"}, Written{false, "'False'"}));

TEST(GenericEditInfo, StopsAtTheFirstParameterThatFailsAndRollsBack) {
  ScriptedHost host;
  SetThree(host);
  host.Refuse("scRunQuery", "UPDATE OPCOI SET TWO = 'b'\r\n WHERE CmdId = 7");
  EXPECT_FALSE(host.With(EditThree));
  EXPECT_EQ(host.Effects(), Lines({start, StatementLine(editOne), StatementLine(editTwo),
                                   MessageLine("Edit: OPCOI", "61011, \"TWO\""), rollBack}));
  EXPECT_EQ(host.Calls().find("THREE"), std::string::npos);
}

TEST(GenericEditInfo, EscapesNothing) {
  ScriptedHost host;
  host.Param("ONE", "O'Hara");
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return GenericEditInfo(On("EditInfo", {"ONE"})); }));
  EXPECT_EQ(host.Effects(), Lines({start, StatementLine("UPDATE OPCOI SET ONE = 'O'Hara'{NL} WHERE CmdId = 7"),
                                   MessageLine("Edit: OPCOI", "61011, \"ONE\""), rollBack}));
}

TEST(EditRecord, WritesAColumnUnderTheNameThatItHasInAStatement) {
  ScriptedHost host;
  SetThree(host);
  host.Refuse("scRunQuery", "UPDATE OPCOI SET THREE = 'c'\r\n WHERE CmdId = 7");
  EXPECT_FALSE(host.With([] {
    return EditRecord(On("EditInfo", {"ONE", "one", "THREE"}), {{"TWO", "[TWO]"}, {"ONE", "OPCOI.ONE"}});
  }));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine("UPDATE OPCOI SET OPCOI.ONE = 'a'{NL} WHERE CmdId = 7"),
                   StatementLine("UPDATE OPCOI SET one = Null{NL} WHERE CmdId = 7"), StatementLine(editThree),
                   MessageLine("Edit: OPCOI", "61011, \"THREE\""), rollBack}));
}

TEST(EditRecord, NamesTheParameterInAMessage) {
  ScriptedHost host;
  SetThree(host);
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return EditRecord(On("EditInfo", {"ONE", "TWO"}), {{"ONE", "[ONE]"}}); }));
  EXPECT_EQ(host.Effects(), Lines({start, StatementLine("UPDATE OPCOI SET [ONE] = 'a'{NL} WHERE CmdId = 7"),
                                   MessageLine("Edit: OPCOI", "61011, \"ONE\""), rollBack}));
}

TEST(WriteParameters, LeavesTheTransactionToTheCaller) {
  ScriptedHost host;
  SetThree(host);
  const Action action = On("EditInfo", {"ONE", "TWO"});
  EXPECT_TRUE(host.With([&] { return WriteParameters(action, Reporter("Edit: OTHER")); }));
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([&] { return WriteParameters(action, Reporter("Edit: OTHER")); }));
  EXPECT_EQ(host.Effects(), Lines({StatementLine(editOne), StatementLine(editTwo), StatementLine(editOne),
                                   MessageLine("Edit: OTHER", "61011, \"ONE\"")}));
}

TEST(GenericEditInfo, WritesTheIdentifierLikeAnyOtherColumn) {
  ScriptedHost host;
  host.Param("CMDID", 8);
  EXPECT_TRUE(host.With([] { return GenericEditInfo(On("EditInfo", {"CMDID"})); }));
  EXPECT_EQ(host.Effects(), Lines({start, StatementLine("UPDATE OPCOI SET CMDID = '8'{NL} WHERE CmdId = 7"), commit}));
}

TEST(GenericEditInfo, OfNoParametersCommits) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return GenericEditInfo(On("EditInfo", noElements)); }));
  EXPECT_EQ(host.Calls(), Lines({start, commit}));
}

TEST(GenericEditInfo, ReportsTheTransactionStepsThatFail) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.With(EditThree));
    EXPECT_EQ(host.Calls(),
              Lines({start, MessageLine("Edit: OPCOI", "62010"), rollBack, MessageLine("Edit: OPCOI", "62012")}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.With([] { return GenericEditInfo(On("EditInfo", noElements)); }));
    EXPECT_EQ(host.Calls(), Lines({start, commit, MessageLine("Edit: OPCOI", "62011")}));
  }
}

TEST(GenericEditInfo, FailsInsideTheTransactionForAListWithoutBounds) {
  ScriptedHost host;
  ExpectFailure(Cause::SubscriptOutOfRange, [&] { host.With([] { return GenericEditInfo(On("EditInfo", List())); }); });
  EXPECT_EQ(host.Calls(), Lines({start}));
}

// --- Delete.

const std::string deleteCall = StatementLine("DELETE * FROM OPCOI{NL} WHERE CmdId = 7");

bool Delete() { return GenericDeleteInfo(On("DeleteInfo")); }

TEST(GenericDeleteInfo, DeletesTheRecordWithoutAskingWhoUsesIt) {
  ScriptedHost host;
  EXPECT_TRUE(host.With(Delete));
  EXPECT_EQ(host.Calls(), Lines({start, deleteCall, commit}));
}

TEST(GenericDeleteInfo, ReportsARecordThatCouldNotBeDeletedAndRollsBack) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With(Delete));
  EXPECT_EQ(host.Calls(), Lines({start, deleteCall, MessageLine("Delete: OPCOI", "61012, \"OPCOI\", 7"), rollBack}));
}

TEST(GenericDeleteInfo, ReportsTheTransactionStepsThatFail) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    EXPECT_FALSE(host.With(Delete));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine("Delete: OPCOI", "62010"), rollBack}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.With(Delete));
    EXPECT_EQ(host.Calls(), Lines({start, deleteCall, commit, MessageLine("Delete: OPCOI", "62011")}));
  }
  {
    ScriptedHost host;
    host.Refuse("scRunQuery");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.With(Delete));
    EXPECT_EQ(host.Calls(), Lines({start, deleteCall, MessageLine("Delete: OPCOI", "61012, \"OPCOI\", 7"), rollBack,
                                   MessageLine("Delete: OPCOI", "62012")}));
  }
}

}  // namespace
}  // namespace cordboard
