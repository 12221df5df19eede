#include <gtest/gtest.h>

#include "script/MessageBox.h"
#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, std::int32_t CmdId = 7) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "NASCS", .CmdId = CmdId, .ParamList = parameters};
}

const Value null = Value::Null();
const std::string countRecords = "SELECT COUNT(*) FROM NASCS";
const std::string readIdentifier = "SELECT CmdID FROM NASCS";
const std::string readRanges = "SELECT Start,End FROM NANSIBlockedRange";
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string countCall = "scRunQuery(\"SELECT COUNT(*) FROM NASCS\", out)";
const std::string rangesCall = "scRunQuery(\"SELECT Start,End FROM NANSIBlockedRange\", out)";

std::string CountSeries(const std::string& pattern) {
  return "SELECT COUNT(*) FROM NANSI WHERE NUMSE LIKE '" + pattern + "%' ";
}
std::string Series(const std::string& pattern) { return "scRunQuery(\"" + CountSeries(pattern) + "\", out)"; }
std::string Query(const std::string& sql) { return "scRunQuery(\"" + sql + "\", out)"; }
std::string Statement(const std::string& sql) { return "scRunQuery(\"" + sql + "\")"; }
std::string Line(const std::string& text) { return "scPrintToDebugWindow(\"" + text + "\")"; }
std::string Read(const std::string& name) { return "scGetParamValue(\"" + name + "\")"; }
std::string BlockSql(const std::string& value) {
  return "INSERT INTO NANSIBlockedRange (Start) VALUES ('" + value + "' )";
}
std::string UnblockSql(const std::string& old) {
  return "DELETE * FROM NANSIBlockedRange WHERE Start = '" + old + "' ";
}
std::string Block(const std::string& value) { return Statement(BlockSql(value)); }
std::string Unblock(const std::string& old) { return Statement(UnblockSql(old)); }

// No series begins with the constant, of two digits.
void NoSeries(ScriptedHost& host, const std::string& digits) {
  for (const char* blanks : {" ", "  ", "   ", ""}) host.Rows(CountSeries(digits + blanks), {{0}});
}
std::string NoSeriesCalls(const std::string& digits) {
  return Lines({Series(digits + " "), Series(digits + "  "), Series(digits + "   "), Series(digits)});
}

// --- Routing.

TEST(NASCS, ServesAddEditAndDeleteOnly) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DDIV"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"DDIV"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"1"})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(NASCS, AddToAnEmptyTableInsertsTheRecordAndBlocksItsConstants) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "12");
  host.Param("PGSA", "34");
  NoSeries(host, "12");
  NoSeries(host, "34");
  host.Rows(readRanges, {{"100"}, {"199"}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, start, countCall, "scBuildCmdID()", Read("DDIV")}) + NoSeriesCalls("12") +
                Lines({rangesCall, Read("CDDIV"), Read("ANSBL"), Read("AGP"), Read("ANS"), Read("ACGN"), Read("PGI"),
                       Read("PGDMI"), Read("PGSI"), Read("PGA"), Read("PGSA")}) +
                NoSeriesCalls("34") +
                Lines({rangesCall,
                       "scSQLInsert(\"NASCS\", [\"CmdID\", \"DDIV\", \"CDDIV\", \"ANSBL\", \"AGP\", \"ANS\", \"ACGN\", "
                       "\"PGI\", \"PGDMI\", \"PGSI\", \"PGA\", \"PGSA\"], [1001, \"12\", Empty, Empty, Empty, Empty, "
                       "Empty, Empty, Empty, Empty, Empty, \"34\"])",
                       Block("12"), Block("34"), commit}));
}

TEST(NASCS, AddToATableWithARecordEditsThatRecord) {
  ScriptedHost host;
  host.Rows(countRecords, {{1}});
  host.Rows(readIdentifier, {{"42"}});
  host.Rows("SELECT * FROM NASCS WHERE CmdId = 42", {});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"}, 0)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, Query(readIdentifier), start, Query("SELECT * FROM NASCS WHERE CmdId = 42"), commit}));
}

TEST(NASCS, SecondAddOfTheSameConstantIsRefusedByItsOwnBlockedNumber) {
  ScriptedHost host;
  host.Rows(countRecords, {{1}});
  host.Rows(readIdentifier, {{42}});
  host.Rows("SELECT * FROM NASCS WHERE CmdId = 42",
            {{42}, {"12"}, {null}, {null}, {null}, {null}, {null}, {null}, {null}, {null}, {null}, {null}});
  host.Param("DDIV", "12");
  NoSeries(host, "12");
  host.Rows(readRanges, {{"12"}, {null}});
  EXPECT_FALSE(host.Run(Act("SetInfo", {"CMDID", "DDIV", "CDDIV"}, 0)));
  EXPECT_EQ(host.Effects(),
            Lines({countCall, Query(readIdentifier), start, Query("SELECT * FROM NASCS WHERE CmdId = 42")}) +
                NoSeriesCalls("12") +
                Lines({rangesCall, Line("Value 12 is already in the NANSI range"),
                       "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60008, \"NASCS\")",
                       Line("Resetting parameter: DDIV"), rollBack}));
}

TEST(NASCS, AddWithoutACountOrAnIdentifierFailsTheCall) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", countRecords);
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({countCall}));
  }
  {
    ScriptedHost host;
    host.Rows(countRecords, {{1}});
    host.Refuse("scRunQuery", readIdentifier);
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({countCall, Query(readIdentifier)}));
  }
}

TEST(NASCS, CountOfAQueryThatAnswersFalseIsReadAllTheSame) {
  ScriptedHost host;
  host.Rows(countRecords, {{1}});
  host.Refuse("scRunQuery", countRecords);
  host.Rows(readIdentifier, {{42}});
  host.Rows("SELECT * FROM NASCS WHERE CmdId = 42", {});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
}

// --- Add: the series check.

struct Patterns {
  const char* value;
  std::vector<std::string> patterns;
};

class NASCSSeries : public testing::TestWithParam<Patterns> {};

TEST_P(NASCSSeries, IsLookedForWithBlanksByTheLengthOfTheConstant) {
  const auto& [value, patterns] = GetParam();
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("ANS", value);
  for (const std::string& pattern : patterns) host.Rows(CountSeries(pattern), {{0}});
  host.Rows(readRanges, {});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  std::string expected = Lines({countCall, start, countCall, "scBuildCmdID()"});
  for (const std::string& pattern : patterns) expected += Lines({Series(pattern)});
  EXPECT_EQ(host.Effects(), expected + Lines({rangesCall, Line(" Invalid Values entered , Try again..."),
                                              "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

TEST_P(NASCSSeries, IsFoundByTheLastPatternAsWell) {
  const auto& [value, patterns] = GetParam();
  if (patterns.empty()) return;  // too long to be looked for
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("ANS", value);
  for (const std::string& pattern : patterns) host.Rows(CountSeries(pattern), {{pattern == patterns.back() ? 3 : 0}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  std::string expected = Lines({countCall, start, countCall, "scBuildCmdID()"});
  for (const std::string& pattern : patterns) expected += Lines({Series(pattern)});
  const std::string digits = std::string(value).substr(std::string(value).find_first_not_of(' '));
  EXPECT_EQ(host.Effects(), expected + Lines({Line("Value " + digits + " is already initiated in the NANSI range"),
                                              "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")",
                                              Line(" Invalid Values entered , Try again..."),
                                              "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

INSTANTIATE_TEST_SUITE_P(EveryLength, NASCSSeries,
                         testing::Values(Patterns{"1", {"1", "1 ", "1  ", "1   ", "1    "}},
                                         Patterns{"12", {"12 ", "12  ", "12   ", "12"}},
                                         Patterns{"  12", {"12 ", "12  ", "12   ", "12"}},
                                         Patterns{"1 ", {"1  ", "1   ", "1    ", "1 "}},
                                         Patterns{"123", {"123 ", "123  ", "123"}}, Patterns{"1234", {"1234 ", "1234"}},
                                         Patterns{"12345", {"12345"}}, Patterns{"123456", {}}, Patterns{"   ", {}}));

TEST(NASCS, FirstPatternThatFindsASeriesEndsTheCheck) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "12");
  host.Rows(CountSeries("12 "), {{1}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()", Series("12 "),
                                   Line("Value 12 is already initiated in the NANSI range"),
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")",
                                   Line(" Invalid Values entered , Try again..."),
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

TEST(NASCS, SeriesThatCannotBeCountedFailTheCallAndLeaveTheTransactionOpen) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "12345");
  host.Refuse("scRunQuery", CountSeries("12345"));
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()", Series("12345")}));
}

TEST(NASCS, SeriesUnderALaterConstantAddsTheRecordWithWhatWasReadSoFar) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "12");
  host.Param("AGP", "34");
  host.Param("ANS", "56");
  NoSeries(host, "12");
  host.Rows(CountSeries("34 "), {{1}});
  host.Rows(readRanges, {{"100"}, {"199"}});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, start, countCall, "scBuildCmdID()", Read("DDIV")}) + NoSeriesCalls("12") +
                Lines({rangesCall, Read("CDDIV"), Read("ANSBL"), Read("AGP"), Series("34 "),
                       Line("Value 34 is already initiated in the NANSI range"),
                       "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")",
                       "scSQLInsert(\"NASCS\", [\"CmdID\", \"DDIV\", \"CDDIV\", \"ANSBL\", \"AGP\", \"ANS\", \"ACGN\", "
                       "\"PGI\", \"PGDMI\", \"PGSI\", \"PGA\", \"PGSA\"], [1001, \"12\", Empty, Empty, \"34\", Empty, "
                       "Empty, Empty, Empty, Empty, Empty, Empty])",
                       Block("12"), Block("34"), commit}));
}

// --- Add: the blocked ranges.

TEST(NASCS, AddOfNoConstantsIsRefused) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({countCall, start, countCall, "scBuildCmdID()", Line(" Invalid Values entered , Try again..."),
                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

TEST(NASCS, AddBeforeAnySeriesIsRefusedWithGoodValuesToo) {
  for (const bool answer : {true, false}) {
    ScriptedHost host;
    host.Rows(countRecords, {{0}});
    host.Param("DDIV", "12");
    NoSeries(host, "12");
    if (answer) host.Rows(readRanges, {});
    if (!answer) host.Refuse("scRunQuery", readRanges);  // a query that fails counts as no rows
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()"}) + NoSeriesCalls("12") +
                                  Lines({rangesCall, Line(" Invalid Values entered , Try again..."),
                                         "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
  }
}

struct Blocked {
  const char* value;
  Value Start;
  Value End;
  const char* line;  // nothing where the value is free
};

class NASCSBlocked : public testing::TestWithParam<Blocked> {};

TEST_P(NASCSBlocked, RangeHoldsBothItsEnds) {
  const auto& [value, Start, End, line] = GetParam();
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("PGI", value);
  host.Rows(CountSeries(std::string(value) + " "), {{0}});
  host.Rows(CountSeries(std::string(value) + "  "), {{0}});
  host.Rows(CountSeries(value), {{0}});
  host.Rows(readRanges, {{"1000", Start, "not read"}, {null, End, null}});
  if (line == nullptr) {
    // The row behind it is read, and is no number.
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    return;
  }
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()", Series(std::string(value) + " "),
                                   Series(std::string(value) + "  "), Series(value), rangesCall, Line(line),
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60008, \"NASCS\")",
                                   Line("Resetting parameter: PGI"), Line(" Invalid Values entered , Try again..."),
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

INSTANTIATE_TEST_SUITE_P(
    BothSidesOfEveryEnd, NASCSBlocked,
    testing::Values(Blocked{"399", "400", "599", nullptr},
                    Blocked{"400", "400", "599", "Value 400 is already in the NANSI range400 to 599"},
                    Blocked{"500", "400", "599", "Value 500 is already in the NANSI range400 to 599"},
                    Blocked{"599", 400, 599, "Value 599 is already in the NANSI range400 to 599"},
                    Blocked{"600", "400", "599", nullptr},
                    Blocked{"500", "0500", null, "Value 500 is already in the NANSI range"},
                    Blocked{"500", "499", null, nullptr}, Blocked{"500", "501", null, nullptr}));

TEST(NASCS, ConstantThatIsNotBlockedByAnyRowIsAdded) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "123456");
  host.Rows(readRanges, {{"123455", "123457"}, {null, "200000"}});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
}

TEST(NASCS, SeriesIsLookedForBeforeBlockedRanges) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "12345");
  host.Rows(CountSeries("12345"), {{1}});
  host.Rows(readRanges, {{"12345"}, {null}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()", Series("12345"),
                                   Line("Value 12345 is already initiated in the NANSI range"),
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")",
                                   Line(" Invalid Values entered , Try again..."),
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

TEST(NASCS, BlockedRangeWithoutStartShowsABoxAndFailsTheCall) {
  for (const Value& End : {null, Value("599")}) {
    ScriptedHost host;
    host.Rows(countRecords, {{0}});
    host.Param("DDIV", "123456");
    host.Rows(readRanges, {{null}, {End}});
    std::string shown;
    const MessageBoxHook before = SetMessageBox([&](const std::string& text, const std::string& title, int style) {
      shown += text + "|" + title + "|" + std::to_string(style) + "\n";
    });
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    SetMessageBox(before);
    EXPECT_EQ(shown, " SHOULDNT GET HERE... ||0\n");
    // The transaction stays open.
    EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()", rangesCall}));
  }
}

TEST(NASCS, ConstantThatIsNoNumberFailsTheCallOnlyWhereARangeIsBlocked) {
  for (const Value& value : {Value("ABCDEF"), Value("12345A"), Value("2147483648"), null}) {
    {
      ScriptedHost host;
      host.Rows(countRecords, {{0}});
      host.Param("DDIV", value);
      host.Rows(readRanges, {{"1"}, {null}});
      EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
      EXPECT_EQ(host.Effects(), Lines({countCall, start, countCall, "scBuildCmdID()", rangesCall}));
    }
    {
      ScriptedHost host;
      host.Rows(countRecords, {{0}});
      host.Param("DDIV", value);
      host.Rows(readRanges, {});
      EXPECT_FALSE(host.Run(Act("SetInfo")));
    }
  }
}

// --- Add: the constants among each other, and the record.

TEST(NASCS, AddOfTwoEqualConstantsReportsTheSecond) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "123456");
  host.Param("ANS", "123456");
  host.Param("PGA", "234567");
  host.Rows(readRanges, {{"1"}, {null}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(
      host.Calls(),
      Lines({countCall, start, countCall, "scBuildCmdID()", Read("DDIV"), rangesCall, Read("CDDIV"), Read("ANSBL"),
             Read("AGP"), Read("ANS"), Line(" The Value for ANS is already used, try another value"),
             "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60013, \"ANS\")", Line(" Invalid Values entered , Try again..."),
             "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60010, \"NASCS\")", rollBack}));
}

TEST(NASCS, EmptyTextIsNotCheckedYetIsEnteredAsBlocked) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "");
  host.Param("CDDIV", "");
  host.Param("ANSBL", "123456");
  host.Rows(readRanges, {{"1"}, {null}});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({countCall, start, countCall, "scBuildCmdID()", rangesCall,
                   "scSQLInsert(\"NASCS\", [\"CmdID\", \"DDIV\", \"CDDIV\", \"ANSBL\", \"AGP\", \"ANS\", \"ACGN\", "
                   "\"PGI\", \"PGDMI\", \"PGSI\", \"PGA\", \"PGSA\"], [1001, \"\", \"\", \"123456\", Empty, Empty, "
                   "Empty, Empty, Empty, Empty, Empty, Empty])",
                   Block(""), Block(""), Block("123456"), commit}));
}

// Scripts an add of two constants that pass every check.
void TwoGoodConstants(ScriptedHost& host) {
  host.Rows(countRecords, {{0}});
  host.Param("DDIV", "123456");
  host.Param("CDDIV", "234567");
  host.Rows(readRanges, {{"1"}, {null}});
}
const std::string untilInsert =
    Lines({countCall, start, countCall, "scBuildCmdID()", rangesCall, rangesCall,
           "scSQLInsert(\"NASCS\", [\"CmdID\", \"DDIV\", \"CDDIV\", \"ANSBL\", \"AGP\", \"ANS\", \"ACGN\", \"PGI\", "
           "\"PGDMI\", \"PGSI\", \"PGA\", \"PGSA\"], [1001, \"123456\", \"234567\", Empty, Empty, Empty, Empty, Empty, "
           "Empty, Empty, Empty, Empty])"});
const std::string insertFailed = "scErrorMessage(0, 2, 2, \"Add: NASCS\", 61024, \"NASCS\")";
const std::string blockFailed = "scErrorMessage(0, 2, 2, \"Add: NASCS\", 61024, \"NANSIBlockedRange\")";

TEST(NASCS, FailedInsertIsReportedAndOvertakenByTheBlockedNumbers) {
  ScriptedHost host;
  TwoGoodConstants(host);
  host.Refuse("scSQLInsert");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), untilInsert + Lines({insertFailed, Block("123456"), Block("234567"), commit}));
}

TEST(NASCS, BlockedNumberThatFailsIsOvertakenByTheNext) {
  ScriptedHost host;
  TwoGoodConstants(host);
  host.Refuse("scRunQuery", BlockSql("123456"));
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), untilInsert + Lines({Block("123456"), blockFailed, Block("234567"), commit}));
}

TEST(NASCS, LastBlockedNumberThatFailsRollsBack) {
  ScriptedHost host;
  TwoGoodConstants(host);
  host.Refuse("scRunQuery", BlockSql("234567"));
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), untilInsert + Lines({Block("123456"), Block("234567"), blockFailed, rollBack}));
}

TEST(NASCS, AddReportsARecordThatCameInBetween) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Rows(countRecords, {{1}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(), Lines({countCall, start, countCall,
                                 "scErrorMessage(0, 2, 2, \"Add: NASCS\", 60031, \"NASCS\")", rollBack}));
}

TEST(NASCS, AddThatCannotCountAgainFailsTheCallAndLeavesTheTransactionOpen) {
  ScriptedHost host;
  host.Rows(countRecords, {{0}});
  host.Rows(countRecords, {});
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({countCall, start, countCall}));
}

TEST(NASCS, AddReportsATransactionThatFails) {
  {
    ScriptedHost host;
    host.Rows(countRecords, {{0}});
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Calls(), Lines({countCall, start, "scErrorMessage(0, 2, 2, \"Add: NASCS\", 62010)", rollBack,
                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 62012)"}));
  }
  {
    ScriptedHost host;
    TwoGoodConstants(host);
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), untilInsert + Lines({Block("123456"), Block("234567"), commit,
                                                   "scErrorMessage(0, 2, 2, \"Add: NASCS\", 62011)"}));
  }
}

// --- Edit.

const std::string readRecord = "SELECT * FROM NASCS WHERE CmdId = 7";
const std::string notWritten = "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60001, \"PGI\", \"NASCS\")";

// The record holds "77" in PGI, the form nothing.
void Record(ScriptedHost& host) {
  host.Rows(readRecord, {{7}, {null}, {null}, {null}, {null}, {null}, {null}, {"77"}, {null}, {null}, {null}, {null}});
}
std::string Update(const std::string& assignment) {
  return Statement("UPDATE NASCS SET " + assignment + "{NL} WHERE CmdId = 7");
}

TEST(NASCS, EditThatClearsAConstantFreesItsNumber) {
  ScriptedHost host;
  Record(host);
  EXPECT_TRUE(host.Run(Act("EditInfo", {"PGI"})));
  EXPECT_EQ(host.Calls(), Lines({start, Query(readRecord), Read("PGI"), Unblock("77"), Update("PGI = Null"), commit}));
}

TEST(NASCS, EditToANewValueMovesTheBlockedNumber) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "78");
  NoSeries(host, "78");
  host.Rows(readRanges, {{"77", "100"}, {null, "199"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CMDID", "PGI"})));
  EXPECT_EQ(host.Calls(),
            Lines({start, Query(readRecord), Read("PGI"), Read("DDIV"), Read("CDDIV"), Read("ANSBL"), Read("AGP"),
                   Read("ANS"), Read("ACGN"), Read("PGDMI"), Read("PGSI"), Read("PGA"), Read("PGSA")}) +
                NoSeriesCalls("78") + Lines({rangesCall, Update("PGI = '78'"), Unblock("77"), Block("78"), commit}));
}

TEST(NASCS, EditNeedsNoBlockedRange) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "123456");
  host.Rows(readRanges, {});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"PGI"})));
  EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), rangesCall, Update("PGI = '123456'"), Unblock("77"),
                                   Block("123456"), commit}));
}

TEST(NASCS, EditWritesAnEmptyTextUncheckedAndBlocksIt) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"PGI"})));
  EXPECT_EQ(host.Calls(),
            Lines({start, Query(readRecord), Read("PGI"), Update("PGI = ''"), Unblock("77"), Block(""), commit}));
}

TEST(NASCS, EditWithoutAnOldValueFreesTheNumberWithoutCharacters) {
  {
    ScriptedHost host;  // a null in the record
    Record(host);
    EXPECT_TRUE(host.Run(Act("EditInfo", {"DDIV"})));
    EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), Unblock(""), Update("DDIV = Null"), commit}));
  }
  {
    ScriptedHost host;  // no record
    host.Rows(readRecord, {});
    EXPECT_TRUE(host.Run(Act("EditInfo", {"PGI"})));
    EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), Unblock(""), Update("PGI = Null"), commit}));
  }
  {
    ScriptedHost host;  // no constant
    Record(host);
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CmdID"})));
    EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), Unblock(""), Update("CmdID = Null"), commit}));
  }
}

TEST(NASCS, EditThatCannotReadTheRecordReportsAndStops) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readRecord);
  EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI"})));
  EXPECT_EQ(host.Calls(),
            Lines({start, Query(readRecord), "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 62000)", rollBack}));
}

TEST(NASCS, EditOfARecordWithTooFewColumnsFailsTheCall) {
  ScriptedHost host;
  host.Rows(readRecord, {{7}, {"1"}});
  EXPECT_THROW(host.Run(Act("EditInfo", {"DDIV"})), RunTimeFailure);
}

TEST(NASCS, EditComparesWithTheOtherConstantsOnTheFormAndStops) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "78");
  host.Param("ANSBL", "78");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI", "DDIV"})));
  EXPECT_EQ(host.Calls(), Lines({start, Query(readRecord), Read("PGI"), Read("DDIV"), Read("CDDIV"), Read("ANSBL"),
                                 Line(" The Value for PGI is already used, try another value"),
                                 "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60013, \"PGI\")", rollBack}));
}

TEST(NASCS, EditStopsAtAConstantThatBeginsASeries) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "12345");
  host.Rows(CountSeries("12345"), {{2}});
  EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI", "DDIV"})));
  EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), Series("12345"),
                                   Line("Value 12345 is already initiated in the NANSI range"),
                                   "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60010, \"NASCS\")", rollBack}));
}

TEST(NASCS, EditStopsAtAConstantInABlockedRange) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "123456");
  host.Rows(readRanges, {{"1", "100000"}, {null, "199999"}});
  EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI", "DDIV"})));
  EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), rangesCall,
                                   Line("Value 123456 is already in the NANSI range100000 to 199999"),
                                   "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60008, \"NASCS\")",
                                   Line("Resetting parameter: PGI"), rollBack}));
}

TEST(NASCS, EditDoesNotTestTheUpdateOfANewValue) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "123456");
  host.Rows(readRanges, {});
  host.Refuse("scRunQuery", "UPDATE NASCS SET PGI = '123456'\r\n WHERE CmdId = 7");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"PGI"})));
  EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), rangesCall, Update("PGI = '123456'"), Unblock("77"),
                                   Block("123456"), commit}));
}

TEST(NASCS, EditReportsAnUpdateToNullThatFails) {
  ScriptedHost host;
  Record(host);
  host.Refuse("scRunQuery", "UPDATE NASCS SET PGI = Null\r\n WHERE CmdId = 7");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, Query(readRecord), Unblock("77"), Update("PGI = Null"), notWritten, rollBack}));
}

TEST(NASCS, EditReportsAnOldNumberThatCouldNotBeFreed) {
  const std::string notFreed = "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60007, \"PGI\")";
  {
    ScriptedHost host;
    Record(host);
    host.Refuse("scRunQuery", UnblockSql("77"));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI"})));
    EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), Unblock("77"), notFreed, notWritten, rollBack}));
  }
  {
    ScriptedHost host;
    Record(host);
    host.Param("PGI", "123456");
    host.Rows(readRanges, {});
    host.Refuse("scRunQuery", UnblockSql("77"));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI"})));
    EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), rangesCall, Update("PGI = '123456'"), Unblock("77"),
                                     notFreed, notWritten, rollBack}));
  }
}

TEST(NASCS, EditGoesOnBehindAConstantThatWasNotWrittenAndWritesNoMore) {
  ScriptedHost host;
  Record(host);
  host.Param("PGI", "123456");
  host.Param("PGA", "234567");
  host.Rows(readRanges, {});
  host.Refuse("scRunQuery", BlockSql("123456"));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI", "PGA", "DDIV"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, Query(readRecord), rangesCall, Update("PGI = '123456'"), Unblock("77"), Block("123456"),
                   "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 61024, \"NANSIBlockedRange\")", notWritten,
                   rangesCall, "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60001, \"PGA\", \"NASCS\")",
                   "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 60001, \"DDIV\", \"NASCS\")", rollBack}));
}

TEST(NASCS, EditReportsATransactionThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"PGI"})));
    EXPECT_EQ(host.Calls(), Lines({start, "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 62010)", rollBack,
                                   "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 62012)"}));
  }
  {
    ScriptedHost host;
    Record(host);
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"PGI"})));
    EXPECT_EQ(host.Effects(), Lines({start, Query(readRecord), Unblock("77"), Update("PGI = Null"), commit,
                                     "scErrorMessage(0, 2, 2, \"NASCS - EditInfo\", 62011)"}));
  }
}

// --- Delete.

const std::string readDeleted = "SELECT * FROM NASCS WHERE CmdID = 7";
const std::string deleteRecord = Statement("DELETE * FROM NASCS{NL} WHERE CmdId = 7");
const std::string notDeleted = "scErrorMessage(0, 2, 2, \"NASCS\", 61012, \"NASCS -Delete\", 7)";

std::string FreeSql(const std::string& value) {
  return " DELETE * FROM NANSIBlockedRange WHERE Start =  '" + value + "'";
}
void DeletedRecord(ScriptedHost& host) {
  host.Rows(readDeleted, {{7}, {"11"}, {null}, {""}, {null}, {null}, {null}, {null}, {null}, {null}, {null}, {"22"}});
}

TEST(NASCS, DeleteFreesEachConstantThatIsNotNullAndDeletesTheRecord) {
  ScriptedHost host;
  DeletedRecord(host);
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, Query(readDeleted), Statement(FreeSql("11")), Statement(FreeSql("")),
                                 Statement(FreeSql("22")), deleteRecord, commit}));
}

TEST(NASCS, DeleteThatCannotReadTheRecordReportsAndRollsBack) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readDeleted);
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, Query(readDeleted), notDeleted, rollBack}));
}

TEST(NASCS, DeleteOfARecordThatIsGoneReportsYetSucceeds) {
  ScriptedHost host;
  host.Rows(readDeleted, {});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, Query(readDeleted), notDeleted, commit}));
}

TEST(NASCS, DeleteLeavesBlockedNumbersBehindWhereOneCannotBeFreed) {
  ScriptedHost host;
  DeletedRecord(host);
  host.Refuse("scRunQuery", FreeSql("11"));
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, Query(readDeleted), Statement(FreeSql("11")), notDeleted, deleteRecord, commit}));
}

TEST(NASCS, DeleteThatFailsRollsBack) {
  ScriptedHost host;
  DeletedRecord(host);
  host.Refuse("scRunQuery", "DELETE * FROM NASCS\r\n WHERE CmdId = 7");
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, Query(readDeleted), Statement(FreeSql("11")), Statement(FreeSql("")),
                                 Statement(FreeSql("22")), deleteRecord, notDeleted, rollBack}));
}

TEST(NASCS, DeleteNamesItselfInTheMessagesOfTheTransaction) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, "scErrorMessage(0, 2, 2, \"NASCS\", 62010, \"NASCS -Delete\")", rollBack,
                                   "scErrorMessage(0, 2, 2, \"NASCS\", 62012, \"NASCS -Delete\")"}));
  }
  {
    ScriptedHost host;
    host.Rows(readDeleted, {});
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, Query(readDeleted), notDeleted, commit,
                                   "scErrorMessage(0, 2, 2, \"NASCS\", 62011, \"NASCS -Delete\")"}));
  }
}

}  // namespace
}  // namespace cordboard
