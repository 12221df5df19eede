#include "script/Generate.h"

#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const Action action{.CmdName = "NANSI", .ParamList = {"12.9"}};
const std::string query = "SELECT NUMSE, USED FROM NANSI";

std::string Insert(const std::string& line) {
  return Call("scRunQuery", "INSERT INTO BuiltCmd VALUES (12,'" + line + "')");
}

std::string LineOf(const LineRow& row) { return Text("X:", row[0], ";"); }

TEST(InsertLine, PutsTheLineUnderTheOrderNumberCutToAWholeOne) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return InsertLine(Reporter("Generating: NANSI"), action, "X:1;"); }));
  EXPECT_EQ(host.Calls(), Lines({Insert("X:1;")}));
}

TEST(InsertLine, GoesToTheDatabaseThatIsNamed) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return InsertLine(Reporter("Generating: NANSI"), action, "X:1;", "site"); }));
  EXPECT_EQ(host.Calls(), Lines({"scRunQuery(\"INSERT INTO BuiltCmd VALUES (12,'X:1;')\", Null, \"site\")"}));
}

TEST(InsertLine, IsReportedWhereItFails) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return InsertLine(Reporter("Generating: NANSI"), action, "X:1;"); }));
  EXPECT_EQ(host.Calls(), Lines({Insert("X:1;"), MessageLine("Generating: NANSI", "61019")}));
}

TEST(LineRow, GivesFieldsWithoutOuterBlanks) {
  const RowSet rows({{" 3 ", "4"}, {Value::Null(), " a b"}, {7, Value()}});
  const LineRow row(rows, 0);
  EXPECT_EQ(row[0], Value("3"));
  EXPECT_EQ(row.Stored(0), Value(" 3 "));
  EXPECT_EQ(row[1], Value::Null());
  EXPECT_EQ(row[2], Value("7"));
}

TEST(LineRow, GivesFieldsAsTextsWhereNullsAreEmptyTexts) {
  const RowSet rows({{" 3 ", "4"}, {Value::Null(), " a b"}, {7, Value()}});
  const auto [a, b, c] = LineRow(rows, 0).Texts<3>();
  EXPECT_EQ(a, "3");
  EXPECT_EQ(b, "");
  EXPECT_EQ(c, "7");
  const auto [d, e, f] = LineRow(rows, 1).Texts<3>();
  EXPECT_EQ(d, "4");
  EXPECT_EQ(e, "a b");
  EXPECT_EQ(f, "");
}

TEST(LineRow, FailsForARowOrAColumnThatIsMissing) {
  const RowSet rows({{"3"}, {"4"}});
  EXPECT_THROW(LineRow(rows, 1).Texts<2>(), RunTimeFailure);
  EXPECT_THROW(LineRow(rows, 0).Texts<3>(), RunTimeFailure);
  EXPECT_THROW(LineRow(RowSet(), 0).Texts<1>(), RunTimeFailure);
}

TEST(InsertLines, GoToTheDatabaseThatIsNamed) {
  ScriptedHost host;
  const RowSet rows({{"100"}});
  EXPECT_TRUE(
      host.With([&] { return InsertLines(Reporter("Generating: NANSI"), action, rows, true, LineOf, "site"); }));
  EXPECT_EQ(host.Calls(), Lines({"scRunQuery(\"INSERT INTO BuiltCmd VALUES (12,'X:100;')\", Null, \"site\")"}));
}

TEST(GenerateLines, InsertsALineForEachRow) {
  ScriptedHost host;
  host.Rows(query, {{"100", " 101"}, {true, false}});
  EXPECT_TRUE(host.With([] { return GenerateLines(action, query, LineOf); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(query), Insert("X:100;"), Insert("X:101;")}));
}

TEST(GenerateLines, PassesOverARowWithoutALine) {
  ScriptedHost host;
  host.Rows(query, {{"100", "101"}});
  const auto secondAlone = [](const LineRow& row) {
    return Equals(row[0], "101") ? std::optional(LineOf(row)) : std::nullopt;
  };
  EXPECT_TRUE(host.With([&] { return GenerateLines(action, query, secondAlone); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(query), Insert("X:101;")}));
}

TEST(GenerateLines, GoesOnAfterALineThatFailsAndAnswersAsTheLast) {
  ScriptedHost host;
  host.Rows(query, {{"100", "101"}});
  host.Refuse("scRunQuery", "INSERT INTO BuiltCmd VALUES (12,'X:100;')");
  EXPECT_TRUE(host.With([] { return GenerateLines(action, query, LineOf); }));
  EXPECT_EQ(host.Calls(),
            Lines({QueryLine(query), Insert("X:100;"), MessageLine("Generating: NANSI", "61019"), Insert("X:101;")}));
}

TEST(GenerateLines, ReportsAQueryThatFails) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return GenerateLines(action, query, LineOf); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(query), MessageLine("Generating: NANSI", "61019")}));
}

TEST(GenerateLines, AnswersTrueForNoRows) {
  ScriptedHost host;
  host.Rows(query, {});
  EXPECT_TRUE(host.With([] { return GenerateLines(action, query, LineOf); }));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(query)}));
}

TEST(UnlessNull, LeavesAPieceOfALineOutForANullAlone) {
  EXPECT_EQ(UnlessNull(",CUST=", Value::Null()), "");
  EXPECT_EQ(UnlessNull(",CUST=", Value()), ",CUST=");
  EXPECT_EQ(UnlessNull(",CUST=", ""), ",CUST=");
  EXPECT_EQ(UnlessNull(",CUST=", 3), ",CUST=3");
}

TEST(UnlessBlank, LeavesItOutForEverythingThatIsBlank) {
  EXPECT_EQ(UnlessBlank(",CUST=", Value::Null()), "");
  EXPECT_EQ(UnlessBlank(",CUST=", Value()), "");
  EXPECT_EQ(UnlessBlank(",CUST=", ""), "");
  EXPECT_EQ(UnlessBlank(",CUST=", " "), ",CUST= ");
  EXPECT_EQ(UnlessBlank(",CUST=", 0), ",CUST=0");
}

}  // namespace
}  // namespace cordboard
