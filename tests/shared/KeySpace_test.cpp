#include "shared/KeySpace.h"

#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

TEST(KeyDefinition, IsOneMoreThanTheInstrument) {
  EXPECT_EQ(KeyDefinition("0"), 1);
  EXPECT_EQ(KeyDefinition("24"), 25);
  EXPECT_EQ(KeyDefinition(" 7x"), 8);
  EXPECT_EQ(KeyDefinition(12), 13);
}

TEST(KeyDefinition, IsTheFirstWithoutAValue) {
  EXPECT_EQ(KeyDefinition(Value()), 1);
  EXPECT_EQ(KeyDefinition(Value::Null()), 1);
  EXPECT_EQ(KeyDefinition(""), 1);
  EXPECT_EQ(KeyDefinition(" "), 1);
}

// --- Lines. Each row is an extension; a line tells the instrument that was found.

const RowSet extensions(std::vector<std::vector<Value>>{{" 100 ", "101"}});
std::string ReadITYPE(const std::string& DIR) { return "SELECT ITYPE FROM KSEXI WHERE DIR = '" + DIR + "'"; }
std::string InsertSql(const std::string& line) { return "INSERT INTO BuiltCmd VALUES (12,'" + line + "')"; }

bool InsertInstruments(ScriptedHost& host, bool flag = true) {
  const Action action{.CmdName = "KSFKC", .ParamList = {12}};
  return host.With([&] {
    return InsertKeyLines(Reporter("Generating: KSFKC"), action, extensions, 0, flag,
                          [](const LineRow& row, const Value& ITYPE) { return Text(row[0], "/", ITYPE); });
  });
}

TEST(KeyLines, AreMadeWithTheInstrumentOfTheirExtension) {
  ScriptedHost host;
  host.Rows(ReadITYPE("100"), {{"12"}});
  host.Rows(ReadITYPE("101"), {{"3"}});
  EXPECT_TRUE(InsertInstruments(host, false));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(ReadITYPE("100")), StatementLine(InsertSql("100/12")),
                                 QueryLine(ReadITYPE("101")), StatementLine(InsertSql("101/3"))}));
}

TEST(KeyLines, KeepTheInstrumentForAnExtensionThatIsNotThere) {
  ScriptedHost host;
  host.Rows(ReadITYPE("100"), {{"12"}});
  host.Rows(ReadITYPE("101"), {});
  EXPECT_TRUE(InsertInstruments(host));
  EXPECT_TRUE(host.Calls().ends_with(Lines({StatementLine(InsertSql("101/12"))})));
}

TEST(KeyLines, EndInSilenceWithFalseWhereAnInstrumentCannotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", ReadITYPE("100"));
  EXPECT_FALSE(InsertInstruments(host));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(ReadITYPE("100"))}));
}

TEST(KeyLines, GoOnAfterALineThatFailsAndAnswerAsTheLast) {
  ScriptedHost host;
  host.Rows(ReadITYPE("100"), {{"12"}});
  host.Rows(ReadITYPE("101"), {{"3"}});
  host.Refuse("scRunQuery", InsertSql("100/12"));
  EXPECT_TRUE(InsertInstruments(host));
  host.Refuse("scRunQuery", InsertSql("101/3"));
  EXPECT_FALSE(InsertInstruments(host));
}

TEST(Given, ExtensionsAreNeitherEmptyNorNull) {
  EXPECT_EQ(Given({"100", Value(), Value::Null(), "", "101"}), (std::vector<Value>{"100", "", "101"}));
  EXPECT_THROW(Given(List()), RunTimeFailure);
}

const std::string functions = "SELECT KEY FROM KSFKC WHERE DIR =  '100' AND FCN = 'ABC'";
const std::string additional = "SELECT KEY FROM KSANI WHERE DIR = '100'";
const std::string further = "SELECT KEY FROM KSMDI WHERE DIR = '100'";
const std::string count = "scGetNumberOfValidValues(\"KEY\", 13, out)";

bool Subtract(ScriptedHost& host) {
  Action action;
  action.Definition = 13;
  action.ParamList = {"KEY"};
  return host.With([&] { return SubtractTakenKeys(action, "100", functions); });
}

TEST(TakenKeys, AreThoseOfAllThreeTables) {
  ScriptedHost host;
  host.NumberOfValidValues("KEY", 1);
  EXPECT_TRUE(Subtract(host));
  EXPECT_EQ(host.Calls(), Lines({Call("scSubtractSingleValues", functions), Call("scSubtractSingleValues", additional),
                                 Call("scSubtractSingleValues", further), count}));
}

TEST(TakenKeys, ThatLeaveNoneAreReportedAndCountAsAFailure) {
  ScriptedHost host;
  host.NumberOfValidValues("KEY", 0);
  EXPECT_FALSE(Subtract(host));
  EXPECT_TRUE(host.Calls().ends_with(Lines({count, DebugLine("There are no available keys for this DIR"),
                                            MessageLine("GetValidValForParam", "60020, \"100\"")})));
}

TEST(TakenKeys, ThatCannotBeCountedCountAsLeavingNone) {
  ScriptedHost host;
  host.Refuse("scGetNumberOfValidValues");
  EXPECT_FALSE(Subtract(host));
  EXPECT_TRUE(host.Calls().ends_with(Lines({count, DebugLine("There are no available keys for this DIR"),
                                            MessageLine("GetValidValForParam", "60020, \"100\"")})));
}

TEST(TakenKeys, ThatCannotBeSubtractedAreReportedAndNothingFollows) {
  for (const std::string& step : {functions, additional, further}) {
    ScriptedHost host;
    host.Refuse("scSubtractSingleValues", step);
    EXPECT_FALSE(Subtract(host));
    EXPECT_TRUE(host.Calls().ends_with(
        Lines({Call("scSubtractSingleValues", step), MessageLine("GetValidValForParam", "61021, \"KEY\"")})));
  }
}

struct Split {
  const char* DIRK;
  const char* DIR;
  const char* KEY;
};

TEST(CompositeKey, IsCutAtItsFirstHyphen) {
  for (const auto& [DIRK, expectedDIR, expectedKEY] :
       {Split{"100-13", "100", "13"}, Split{"100-A-1", "100", "A-1"}, Split{"-13", "", "13"}, Split{"100-", "100", ""},
        Split{"100", "100", ""}, Split{"", "", ""}}) {
    std::string DIR = "old";
    std::string KEY = "old";
    SplitDIRK(DIRK, DIR, KEY);
    EXPECT_EQ(DIR, expectedDIR) << DIRK;
    EXPECT_EQ(KEY, expectedKEY) << DIRK;
  }
  std::string DIR;
  std::string KEY;
  EXPECT_THROW(SplitDIRK(Value::Null(), DIR, KEY), RunTimeFailure);
}

TEST(CompositeKey, IsMadeOfNumberAndKey) {
  EXPECT_EQ(ComposeDIRK("100", "A1"), "100-A1");
  EXPECT_EQ(ComposeDIRK(Value(), Value::Null()), "-");
}

struct FixedKey {
  Value ITYPE;
  const char* KEY;
  bool fixed;
};

class FixedKeys : public testing::TestWithParam<FixedKey> {};

TEST_P(FixedKeys, AreReleasedInFront) {
  const auto& [ITYPE, KEY, fixed] = GetParam();
  EXPECT_EQ(ReleaseOfFixedKey(ITYPE, "100", KEY), fixed ? "KSFKC:DIR=100,KEY=" + std::string(KEY) + ",FCN=TNS;\n" : "");
}

INSTANTIATE_TEST_SUITE_P(
    BothSidesOfEveryLimit, FixedKeys,
    testing::Values(FixedKey{"9", "12", true}, FixedKey{"9", "13", true}, FixedKey{"12", "12", true},
                    FixedKey{"12", "13", true}, FixedKey{"10", "11", false}, FixedKey{"10", "14", false},
                    FixedKey{"11", "1", false}, FixedKey{"11", "2", false}, FixedKey{"11", "A1", false},
                    FixedKey{"11", "A2", false}, FixedKey{"8", "12", false}, FixedKey{"13", "13", false},
                    FixedKey{"8", "1", true}, FixedKey{"13", "2", true}, FixedKey{"13", "A1", true},
                    FixedKey{"13", "A2", true}, FixedKey{"13", "A3", false}, FixedKey{"13", "3", false},
                    FixedKey{Value(), "1", true}, FixedKey{Value::Null(), "12", false}, FixedKey{"", "A2", true}));

TEST(FixedKeys, DoNotHoldAKeyWithoutValue) { EXPECT_EQ(ReleaseOfFixedKey("3", "100", Value::Null()), ""); }

}  // namespace
}  // namespace cordboard
