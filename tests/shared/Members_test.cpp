#include "shared/Members.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const Reporter fail("Add: GDNDI");

Action AddOf(List columns) { return {.FunctionName = "SetInfo", .CmdName = "GDNDI", .ParamList = std::move(columns)}; }

std::string Reported(const std::string& codeAndArguments) { return MessageLine("Add: GDNDI", codeAndArguments); }

// Rules that take the group 7 alone, and give each number a type of its own.
const MemberRules rules = {.NUMTYP = [](const Value& DIR) -> Value { return Text("T", DIR); },
                           .GRP = [](const Value& GRP) { return Equals(GRP, "7"); }};

bool Insert(ScriptedHost& host, const List& columns, const List& numbers) {
  return host.With([&] { return InsertMembers(AddOf(columns), fail, numbers, rules); });
}

// --- The rows.

TEST(InsertMembers, MakesARowForEachNumberInTheOrderOfTheColumns) {
  ScriptedHost host;
  host.Param("GRP", "7");
  host.Param("LIM", "1");
  EXPECT_TRUE(Insert(host, {"LIM", "DIR", "GRP", "CMDID", "NUMTYP"}, {"100", "101"}));
  const std::string columns = R"(["LIM", "DIR", "GRP", "CMDID", "NUMTYP"])";
  EXPECT_EQ(host.Calls(), Lines({Read("LIM"), Read("GRP"), Call("scBuildCmdID"),
                                 R"(scSQLInsert("GDNDI", )" + columns + R"(, ["1", "100", "7", 1001, "T100"]))",
                                 Read("LIM"), Read("GRP"), Call("scBuildCmdID"),
                                 R"(scSQLInsert("GDNDI", )" + columns + R"(, ["1", "101", "7", 1002, "T101"]))"}));
}

TEST(InsertMembers, ComparesNamesExactly) {
  ScriptedHost host;
  EXPECT_TRUE(Insert(host, {"CmdId", "dir", "Grp"}, {"100"}));
  EXPECT_EQ(host.Effects(), Lines({R"(scSQLInsert("GDNDI", ["CmdId", "dir", "Grp"], [Empty, Empty, Empty]))"}));
}

TEST(InsertMembers, EndsAtTheGroupThatIsRefused) {
  ScriptedHost host;
  host.Param("GRP", "8");
  EXPECT_FALSE(Insert(host, {"GRP", "CMDID", "LIM"}, {"100", "101"}));
  EXPECT_EQ(host.Calls(), Lines({Read("GRP")}));
}

TEST(InsertMembers, EndsAtTheRowThatIsNotInserted) {
  ScriptedHost host;
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(Insert(host, {"DIR"}, {"100", "101"}));
  EXPECT_EQ(host.Calls(), Lines({R"(scSQLInsert("GDNDI", ["DIR"], ["100"]))", Reported(R"(61024, "GDNDI")")}));
}

TEST(InsertMembers, NeedsNumbersAndColumns) {
  ScriptedHost host;
  EXPECT_TRUE(Insert(host, List(), List(std::vector<Value>{})));
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange, [&] { Insert(host, {"DIR"}, List()); });
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange, [&] { Insert(host, List(), {"100"}); });
  EXPECT_EQ(host.Calls(), "");
}

// --- The type of a number.

const std::string operators = "SELECT DIR, NUMTYP FROM OPERI{NL}WHERE DIR = '900'";

Value OperatorOrExtension(ScriptedHost& host) {
  return host.With([] { return OperatorOrExtensionType(fail, "900"); });
}

TEST(ExtensionType, IsThatOfAnyNumberAndAsksNothing) {
  ScriptedHost host;
  EXPECT_EQ(host.With([] { return ExtensionType("900"); }), Value("EX"));
  EXPECT_EQ(host.Calls(), "");
}

TEST(OperatorOrExtensionType, IsThatOfTheFirstOperatorWithTheNumber) {
  ScriptedHost host;
  host.Rows(AsSent(operators), {{"900", "900"}, {"OI", "OC"}});
  EXPECT_EQ(OperatorOrExtension(host), Value("OI"));
}

TEST(OperatorOrExtensionType, IsEXWithoutAnOperator) {
  ScriptedHost host;
  host.Rows(AsSent(operators), {});
  EXPECT_EQ(OperatorOrExtension(host), Value("EX"));
}

TEST(OperatorOrExtensionType, IsEmptyAfterAReportWhereOperatorsCannotBeRead) {
  ScriptedHost host;
  host.Rows(AsSent(operators), {{"900"}, {"OI"}});
  host.Refuse("scRunQuery");
  EXPECT_EQ(OperatorOrExtension(host), Value());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(operators), Reported("62000")}));
}

// --- The group.

const std::string heads = " SELECT GRP FROM CS_GDNDI{NL} WHERE GRP = '7'";

bool FindOrInsert(ScriptedHost& host) {
  return host.With([] { return FindOrInsertHead(fail, "CS_GDNDI", "7"); });
}

TEST(FindHead, TellsWhetherTheGroupIsThere) {
  ScriptedHost host;
  host.Rows(AsSent(heads), {{"7"}});
  host.Rows(AsSent(heads), {});
  bool found = false;
  EXPECT_TRUE(host.With([&] { return FindHead(fail, "CS_GDNDI", "7", found); }));
  EXPECT_TRUE(found);
  EXPECT_TRUE(host.With([&] { return FindHead(fail, "CS_GDNDI", "7", found); }));
  EXPECT_FALSE(found);
}

TEST(FindOrInsertHead, LeavesAGroupThatIsThere) {
  ScriptedHost host;
  host.Rows(AsSent(heads), {{"7"}});
  EXPECT_TRUE(FindOrInsert(host));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(heads)}));
}

TEST(FindOrInsertHead, MakesOneOfItsNumberAlone) {
  ScriptedHost host;
  host.Rows(AsSent(heads), {});
  EXPECT_TRUE(FindOrInsert(host));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(heads), Call("scBuildCmdID"),
                                 R"(scSQLInsert("CS_GDNDI", ["CMDID", "GRP"], [1001, "7"]))"}));
}

TEST(FindOrInsertHead, ReportsAHeadThatCannotBeReadOrInserted) {
  ScriptedHost unread;
  unread.Rows(AsSent(heads), {{"7"}});
  unread.Refuse("scRunQuery");
  EXPECT_FALSE(FindOrInsert(unread));
  EXPECT_EQ(unread.Calls(), Lines({QueryLine(heads), Reported("62000")}));

  ScriptedHost refused;
  refused.Rows(AsSent(heads), {});
  refused.Refuse("scSQLInsert");
  EXPECT_FALSE(FindOrInsert(refused));
  EXPECT_EQ(refused.Effects(),
            Lines({QueryLine(heads), Call("scBuildCmdID"), R"(scSQLInsert("CS_GDNDI", ["CMDID", "GRP"], [1001, "7"]))",
                   Reported(R"(61024, "CS_GDNDI")")}));
}

}  // namespace
}  // namespace cordboard
