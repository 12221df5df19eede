#include "shared/Row.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Update = bool (*)(const std::string& table, const Value& CmdId, const std::string& column, const Value& value);

bool UpdateInLine(const std::string& table, const Value& CmdId, const std::string& column, const Value& value) {
  return UpdateColumnInLine(table, CmdId, column, value);
}

struct Case {
  Update update;
  Value value;
  const char* statement;
};

TEST(Column, IsWrittenByAStatementOfItsOwn) {
  for (const auto& [update, value, statement] : {
           Case{UpdateColumn, "3", "UPDATE KSEXI SET CUST = '3'{NL} WHERE CmdId = 7"},
           Case{UpdateColumn, Value(), "UPDATE KSEXI SET CUST = ''{NL} WHERE CmdId = 7"},
           Case{UpdateColumn, Value::Null(), "UPDATE KSEXI SET CUST = ''{NL} WHERE CmdId = 7"},
           Case{UpdateColumnOrNull, "a'b", "UPDATE KSEXI SET CUST = 'a'b'{NL} WHERE CmdId = 7"},
           Case{UpdateColumnOrNull, Value(), "UPDATE KSEXI SET CUST = Null{NL} WHERE CmdId = 7"},
           Case{UpdateColumnOrNull, "", "UPDATE KSEXI SET CUST = ''{NL} WHERE CmdId = 7"},
           Case{UpdateColumnOrNull, Value::Null(), "UPDATE KSEXI SET CUST = ''{NL} WHERE CmdId = 7"},
           Case{UpdateInLine, 3, "UPDATE KSEXI SET CUST = '3' WHERE CmdId = 7"},
           Case{UpdateInLine, Value(), "UPDATE KSEXI SET CUST = '' WHERE CmdId = 7"},
           Case{UpdateColumnOrNullInLine, Value(), "UPDATE KSEXI SET CUST = Null WHERE CmdId = 7"},
           Case{UpdateColumnOrNullInLine, "3", "UPDATE KSEXI SET CUST = '3' WHERE CmdId = 7"},
       }) {
    ScriptedHost host;
    EXPECT_TRUE(host.With([&, update = update, &value = value] { return update("KSEXI", 7, "CUST", value); }));
    EXPECT_EQ(host.Calls(), Lines({StatementLine(statement)}));
  }
}

TEST(Column, IsWrittenInTheDatabaseThatIsNamed) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return UpdateColumnInLine("KSEXITemplate", 7, "CUST", "3", "site"); }));
  EXPECT_EQ(host.Calls(),
            Lines({"scRunQuery(\"UPDATE KSEXITemplate SET CUST = '3' WHERE CmdId = 7\", Null, \"site\")"}));
}

TEST(Column, GivesTheStatementsAnswerAndReportsNothing) {
  for (const Update update : {UpdateColumn, UpdateColumnOrNull, UpdateInLine, UpdateColumnOrNullInLine}) {
    ScriptedHost host;
    host.Refuse("scRunQuery");
    EXPECT_FALSE(host.With([&] { return update("KSEXI", 7, "CUST", "3"); }));
    EXPECT_EQ(host.Calls().find("scErrorMessage"), std::string::npos);
  }
}

// --- What is stored.

const std::string selection = " SELECT EQU FROM KSEXI WHERE CmdId = 7";

bool ReadOldEQU(Value& old) { return ReadOld(Reporter("Edit: KSEXI"), "KSEXI", 7, "EQU", old); }

TEST(ReadOld, GivesWhatTheFirstRowHas) {
  ScriptedHost host;
  host.Rows(AsSent(selection), {{"E1", "E2"}});
  Value old;
  EXPECT_TRUE(host.With([&] { return ReadOldEQU(old); }));
  EXPECT_EQ(old, Value("E1"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(selection)}));
}

TEST(ReadOld, AsksTheDatabaseThatIsNamed) {
  ScriptedHost host;
  host.Rows(AsSent(selection), {{"E1"}});
  Value old;
  EXPECT_TRUE(host.With([&] { return ReadOld(Reporter("Edit: KSEXI"), "KSEXI", 7, "EQU", old, "site"); }));
  EXPECT_EQ(host.Calls(), Lines({"scRunQuery(\"" + selection + "\", out, \"site\")"}));
}

TEST(ReadOld, LeavesTheValueWhereThereIsNoRecord) {
  ScriptedHost host;
  host.Rows(AsSent(selection), {});
  Value old = "E9";
  EXPECT_TRUE(host.With([&] { return ReadOldEQU(old); }));
  EXPECT_EQ(old, Value("E9"));
}

TEST(ReadOld, ReportsAStatementThatFailsAndTakesNothingFromIt) {
  ScriptedHost host;
  host.Rows(AsSent(selection), {{"E1"}});
  host.Refuse("scRunQuery");
  Value old;
  EXPECT_FALSE(host.With([&] { return ReadOldEQU(old); }));
  EXPECT_EQ(old, Value());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(selection), MessageLine("Edit: KSEXI", "62000")}));
}

// --- The row.

TEST(Row, IsDeletedByItsIdentifier) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return DeleteRow("KSEXI", 7); }));
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return DeleteRow("KSEXI", 7); }));
  const std::string deletion = StatementLine("DELETE * FROM KSEXI{NL} WHERE CmdId = 7");
  EXPECT_EQ(host.Calls(), Lines({deletion, deletion}));
}

TEST(OrStored, IsTheValueWhereItIsGiven) { EXPECT_EQ(OrStored("3", RowSet(), 0), Value("3")); }

TEST(OrStored, IsWhatIsStoredWhereTheValueIsBlank) {
  const RowSet stored({{"1", "9"}, {"2", "9"}});
  for (const Value& blank : {Value(), Value::Null(), Value("")}) EXPECT_EQ(OrStored(blank, stored, 1), Value("2"));
}

TEST(OrStored, IsEmptyWhereBothAreBlank) {
  const RowSet stored({{Value::Null()}, {""}});
  EXPECT_EQ(OrStored("", stored, 0), Value());
  EXPECT_EQ(OrStored(Value::Null(), stored, 1), Value());
}

TEST(OrStored, FailsWithoutTheRowThatItNeeds) {
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange, [] { OrStored("", RowSet(), 0); });
}

}  // namespace
}  // namespace cordboard
