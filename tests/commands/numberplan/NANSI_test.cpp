#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "NANSI", .CmdId = 7, .ParamList = parameters};
}

// --- Lists and checks.

TEST(NANSI, ListsTheNumberTypesFromTheFixedValues) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"NUMTYP"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"}));
}

TEST(NANSI, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"NUMTYP"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()",
                                 "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61021, \"NUMTYP\")"}));
}

TEST(NANSI, ServesNoOtherParameter) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"NUMSE"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"numtyp"})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(NANSI, CheckOfTypeCPForbidsRangesAndSeveralNumbersAndAnswersFalse) {
  ScriptedHost host;
  host.ValueEqual(true, "CP");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"NUMTYP"})));
  EXPECT_EQ(host.Calls(), Lines({"scIsValueEqual(\"CP\")", "scSetCanHaveParamRange(\"NUMSE\", False)",
                                 "scSetCanHaveParamMultiple(\"NUMSE\", False)"}));
}

TEST(NANSI, CheckOfTypeAIForbidsRangesAloneAndAnswersFalse) {
  ScriptedHost host;
  host.ValueEqual(true, "AI");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"NUMTYP"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scIsValueEqual(\"CP\")", "scIsValueEqual(\"AI\")", "scSetCanHaveParamRange(\"NUMSE\", False)"}));
}

TEST(NANSI, CheckOfAnyOtherTypeChangesNothingAndAnswersFalse) {
  ScriptedHost host;
  host.ValueEqual(Value::Null(), "CP");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"NUMTYP"})));
  EXPECT_EQ(host.Calls(), Lines({"scIsValueEqual(\"CP\")", "scIsValueEqual(\"AI\")"}));
}

// --- Add.

struct Length {
  const char* NUMTYP;
  const char* NUMSE;
  const char* message;  // code and arguments, nothing where the host is asked
};

class NANSILength : public testing::TestWithParam<Length> {};

TEST_P(NANSILength, FollowsTheRuleOfTheType) {
  const auto [NUMTYP, NUMSE, message] = GetParam();
  ScriptedHost host;
  host.Param("NUMTYP", NUMTYP);
  host.Param("NUMSE", NUMSE);
  const bool asked = message == nullptr;
  EXPECT_EQ(host.Run(Act("SetInfo")), asked);
  EXPECT_EQ(host.Effects(), asked ? Lines({"scNANSIinitiate(\"" + std::string(NUMSE) + "\", \"" + NUMTYP + "\", out)"})
                                  : Lines({"scErrorMessage(0, 2, 2, \"Add: NANSI\", " + std::string(message) + ")"}));
}

INSTANTIATE_TEST_SUITE_P(
    BothSidesOfEveryLimit, NANSILength,
    testing::Values(Length{"EC", "100", nullptr}, Length{"EC", "1000", "60026, \"3\", \"EC\""},
                    Length{"EC", "100&&199", nullptr}, Length{"EC", "1000&&19", "60026, \"3\", \"EC\""},
                    Length{"EC", "10&&1999", "60026, \"3\", \"EC\""}, Length{"DE", "70", nullptr},
                    Length{"DE", "7", "60027, \"2\", \"DE\""}, Length{"DG", "7", "60027, \"2\", \"DG\""},
                    Length{"DN", "7", "60027, \"2\", \"DN\""}, Length{"MA", "7", "60027, \"2\", \"MA\""},
                    Length{"EX", "100&&199", nullptr}, Length{"EX", "7&&8", "60027, \"2\", \"EX\""},
                    Length{"EX", "70&&8", "60027, \"2\", \"EX\""}, Length{"AI", "1", nullptr},
                    Length{"AI", "12&&34", "60026, \"1\", \"AI\""}, Length{"AI", "1&&34", nullptr},
                    Length{"CP", "7", nullptr}, Length{"OI", "1000000", nullptr}));

TEST(NANSI, AddReportsTheCodeOfTheHostAsItStands) {
  ScriptedHost host;
  host.Param("NUMTYP", "EX");
  host.Param("NUMSE", "100&&199");
  host.Refuse("scNANSIinitiate");
  host.InitiateCode(60010);
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({"scGetParamValue(\"NUMTYP\")", "scGetParamValue(\"NUMSE\")",
                   "scNANSIinitiate(\"100&&199\", \"EX\", out)", "scErrorMessage(0, 2, 2, \"Add: NANSI\", 60010)"}));
}

TEST(NANSI, AddOfANullNumberFailsTheCall) {
  ScriptedHost host;
  host.Param("NUMSE", Value::Null());
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
}

// --- Edit.

TEST(NANSI, EditAnswersFalseAndTouchesNothing) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("EditInfo", {"NUMSE"})));
  EXPECT_EQ(host.Calls(), "");
}

// --- Delete.

const std::string readRecord = "SELECT NUMSE, NUMTYP FROM NANSI \r\n WHERE CmdId = 7";
const std::string readCall = "scRunQuery(\"SELECT NUMSE, NUMTYP FROM NANSI {NL} WHERE CmdId = 7\", out)";
const std::string deleteCall = "scRunQuery(\"DELETE * FROM NANSI{NL}WHERE CmdId = 7\")";
const std::string unblockCall = "scNANSIremoveFromBlockedRange(\"150\", \"EX\")";
const std::string release =
    " UPDATE EQUIPMENT SET USED = FALSE\r\n WHERE EQU NOT IN (SELECT EQU FROM KSEXI) AND\r\n"
    " EQU NOT IN (SELECT EQU FROM EXTEIDIR) AND\r\n EQU NOT IN (SELECT EQU FROM EXTEIAUX) AND\r\n"
    " EQU NOT IN (SELECT EQU FROM ITNUI) AND\r\n EQU NOT IN (SELECT EQU FROM CBELI) AND\r\n"
    " EQU NOT IN (SELECT EQU FROM ITNUI)";
const std::string releaseCall =
    "scRunQuery(\" UPDATE EQUIPMENT SET USED = FALSE{NL} WHERE EQU NOT IN (SELECT EQU FROM KSEXI) AND{NL}"
    " EQU NOT IN (SELECT EQU FROM EXTEIDIR) AND{NL} EQU NOT IN (SELECT EQU FROM EXTEIAUX) AND{NL}"
    " EQU NOT IN (SELECT EQU FROM ITNUI) AND{NL} EQU NOT IN (SELECT EQU FROM CBELI) AND{NL}"
    " EQU NOT IN (SELECT EQU FROM ITNUI)\")";

TEST(NANSI, DeleteRemovesTheNumberItsBlockAndReleasesEquipment) {
  ScriptedHost host;
  host.Rows(readRecord, {{"150"}, {"EX"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({readCall, deleteCall, unblockCall, releaseCall}));
}

TEST(NANSI, DeleteThatCannotReadTheRecordReportsAndStops) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readRecord);
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({readCall, "scErrorMessage(0, 2, 2, \"Delete: NANSI\", 60006, \"NANSI\")"}));
}

TEST(NANSI, DeleteOfARecordThatIsGoneFailsTheCall) {
  ScriptedHost host;
  host.Rows(readRecord, {});
  EXPECT_THROW(host.Run(Act("DeleteInfo")), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({readCall}));
}

TEST(NANSI, DeleteOfARecordWithoutNumberReportsAndStops) {
  ScriptedHost host;
  host.Rows(readRecord, {{""}, {"EX"}});
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({readCall, "scErrorMessage(0, 2, 2, \"Delete: NANSI\", 60005, \"NUMSE\")"}));
}

TEST(NANSI, DeleteStopsAtTheFirstStepThatFails) {
  {
    ScriptedHost host;
    host.Rows(readRecord, {{"150"}, {"EX"}});
    host.Refuse("scRunQuery", "DELETE * FROM NANSI\r\nWHERE CmdId = 7");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(),
              Lines({readCall, deleteCall, "scErrorMessage(0, 2, 2, \"Delete: NANSI\", 61012, \"NANSI\", 7)"}));
  }
  {
    ScriptedHost host;
    host.Rows(readRecord, {{"150"}, {"EX"}});
    host.Refuse("scNANSIremoveFromBlockedRange");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(),
              Lines({readCall, deleteCall, unblockCall, "scErrorMessage(0, 2, 2, \"Delete: NANSI\", 60007, \"150\")"}));
  }
  {
    ScriptedHost host;
    host.Rows(readRecord, {{"150"}, {"EX"}});
    host.Refuse("scRunQuery", release);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({readCall, deleteCall, unblockCall, releaseCall,
                                   "scErrorMessage(0, 2, 2, \"Delete: NANSI\", 62000)"}));
  }
}

// --- Generate.

const std::string readRanges = "SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange";
const std::string rangesCall = "scRunQuery(\"SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange\", out)";

TEST(NANSI, GeneratesALineForEachRangeAndNoneForASingleConstant) {
  ScriptedHost host;
  host.Rows(
      readRanges,
      {{" 100 ", "7", "20", "300"}, {"199", Value::Null(), "20 ", Value::Null()}, {"EX", Value::Null(), "AC", "OI"}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({rangesCall, "scRunQuery(\"INSERT INTO BuiltCmd VALUES (12,'NANSI:NUMTYP=EX,NUMSE=100&&199;')\")",
                   "scPrintToDebugWindow(\"  Ignoring this value, as it is not a valid NANSI range\")",
                   "scRunQuery(\"INSERT INTO BuiltCmd VALUES (12,'NANSI:NUMTYP=AC,NUMSE=20;')\")",
                   "scRunQuery(\"INSERT INTO BuiltCmd VALUES (12,'NANSI:NUMTYP=OI,NUMSE=300;')\")"}));
}

TEST(NANSI, GenerateOnAnEmptyTableWritesNothing) {
  ScriptedHost host;
  host.Rows(readRanges, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({rangesCall}));
}

TEST(NANSI, GenerateReportsRangesThatCouldNotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readRanges);
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({rangesCall, "scErrorMessage(0, 2, 2, \"Generating: NANSI\", 61019)"}));
}

TEST(NANSI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  ScriptedHost host;
  host.Rows(readRanges, {{"10", "20"}, {"19", "29"}, {"EX", "EX"}});
  host.Refuse("scRunQuery", "INSERT INTO BuiltCmd VALUES (3,'NANSI:NUMTYP=EX,NUMSE=10&&19;')");
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {3.7})));
  EXPECT_EQ(host.Calls(),
            Lines({rangesCall, "scRunQuery(\"INSERT INTO BuiltCmd VALUES (3,'NANSI:NUMTYP=EX,NUMSE=10&&19;')\")",
                   "scErrorMessage(0, 2, 2, \"Generating: NANSI\", 61019)",
                   "scRunQuery(\"INSERT INTO BuiltCmd VALUES (3,'NANSI:NUMTYP=EX,NUMSE=20&&29;')\")"}));
}

}  // namespace
}  // namespace cordboard
