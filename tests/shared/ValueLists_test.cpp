#include "shared/ValueLists.h"

#include <gtest/gtest.h>

#include "script/Module.h"
#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

Action ListOf(const std::string& parameter) {
  return {.Definition = 3,
          .oaRelease = "R7",
          .FunctionName = "GetValidValForParam",
          .CmdName = "KSEXI",
          .ParamList = {parameter}};
}

bool CORGsOfNoTable(const Action& action) { return GetValuesFor_CORG(action, ""); }

// --- The providers that are one statement.

struct Provider {
  const char* name;
  Worker worker;
  std::string call;
  std::string context;
  std::string code;
};

void PrintTo(const Provider& provider, std::ostream* out) { *out << provider.name; }

class ValueList : public testing::TestWithParam<Provider> {};

TEST_P(ValueList, IsFilledByOneStatement) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return GetParam().worker(ListOf("P")); }));
  EXPECT_EQ(host.Effects(), Lines({GetParam().call}));
}

TEST_P(ValueList, ThatCannotBeBuiltIsReportedWithItsParameter) {
  ScriptedHost host;
  host.Refuse(GetParam().call.substr(0, GetParam().call.find('(')));
  EXPECT_FALSE(host.With([] { return GetParam().worker(ListOf("P")); }));
  EXPECT_EQ(host.Effects(), Lines({GetParam().call, "scErrorMessage(0, 2, 2, \"" + GetParam().context + "\", " +
                                                        GetParam().code + ", \"P\")"}));
}

INSTANTIATE_TEST_SUITE_P(
    Providers, ValueList,
    testing::Values(
        Provider{"ValuesAndDescription", GetValuesAndDescription, "scSQLSelectValuesAndDesc()",
                 "GetValuesAndDescription", "61021"},
        Provider{"ByDefinition", GetValuesAndDescriptionByDefinition, "scSQLSelectValuesAndDescByDefinition(3)",
                 "GetValuesAndDescription", "61021"},
        Provider{"CUST", GetValuesFor_CUST,
                 "scCollectValuesAndDesc(\"SELECT CUST, DESCRIPTION {NL} FROM CUSTOMERS {NL} ORDER BY VAL(CUST)\", "
                 "\"dynamic\")",
                 "GetValuesFor_CUST", "61021"},
        Provider{"LOCATION", GetValuesFor_LOCATION,
                 "scCollectValuesAndDesc(\"SELECT Location, Description {NL} FROM Locations {NL} ORDER BY Location\", "
                 "\"dynamic\")",
                 "GetValuesFor_LOCATION", "61021"},
        Provider{"LIM", GetValuesFor_LIM,
                 "scCollectValuesAndDesc(\"SELECT LIM, Description FROM LIMs {NL} ORDER BY LIM\", \"dynamic\")",
                 "GetValuesFor_LIM", "61021"},
        Provider{"CAT", GetValuesFor_CAT,
                 "scCollectValuesAndDesc(\"SELECT CAT, DESCRIPTION {NL} FROM EXCCS {NL}WHERE NOT (SERV IS Null)ORDER "
                 "BY VAL(CAT) \", \"dynamic\")",
                 "GetValuesFor_CAT", "61021"},
        Provider{"CORG", CORGsOfNoTable,
                 "scCollectValuesAndDesc(\"SELECT DISTINCT CORG, DESCRIPTION {NL} FROM OPCTS {NL}\", \"dynamic\")",
                 "GetValuesFor_CORG", "61021"},
        Provider{"CSP", GetValuesFor_CSP,
                 "scCollectValuesAndDesc(\"SELECT CSP, DESCRIPTION {NL} FROM GESPI {NL} ORDER BY CSP \", \"dynamic\")",
                 "GetValuesFor_CSP", "61021"},
        Provider{"ROU", GetValuesFor_ROU,
                 "scCollectValuesAndDesc(\"SELECT ROU, DESCRIPTION FROM ROCAI {NL}ORDER BY VAL(ROU) \", \"dynamic\")",
                 "GetValuesFor_ROU", "61021"},
        Provider{"EX", GetValuesFor_EX,
                 "scCollectSingleValues(\" SELECT NUMSE FROM NANSI {NL} WHERE NUMTYP = 'EX' {NL} AND USED = FALSE {NL}"
                 " ORDER BY NUMSE\")",
                 "GetValidValForParam", "61020"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ValueLists, ReadNothingOfTheFormButTheLocationOfALIM) {
  ScriptedHost host;
  for (Worker provider :
       {GetValuesAndDescription, GetValuesAndDescriptionByDefinition, GetValuesFor_CUST, GetValuesFor_LOCATION,
        GetValuesFor_CAT, CORGsOfNoTable, GetValuesFor_CSP, GetValuesFor_ROU, GetValuesFor_EX}) {
    host.With([&] { return provider(ListOf("P")); });
  }
  EXPECT_EQ(host.Calls(), host.Effects());
}

// --- Whole numbers.

TEST(ValueLists, WholeNumbersArePushedAsOneList) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return PushWholeNumbers(ListOf("GRP"), 8, 11); }));
  EXPECT_TRUE(host.With([] { return PushWholeNumbers(ListOf("GRP"), 1, 1); }));
  EXPECT_EQ(host.Calls(), Lines({"scPushValidValues([8, 9, 10, 11])", "scPushValidValues([1])"}));
}

TEST(ValueLists, WholeNumbersThatCannotBePushedAreReported) {
  ScriptedHost host;
  host.Refuse("scPushValidValues");
  EXPECT_FALSE(host.With([] { return PushWholeNumbers(ListOf("GRP"), 1, 2); }));
  EXPECT_EQ(host.Calls(),
            Lines({"scPushValidValues([1, 2])", "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61020, \"GRP\")"}));
}

// --- LIM.

std::string LIMsOf(const std::string& location) {
  return "scCollectValuesAndDesc(\"SELECT LIM, Description FROM LIMs {NL} WHERE Location = '" + location +
         "'{NL} ORDER BY LIM\", \"dynamic\")";
}

TEST(ValueLists, LIMsAreThoseOfTheLocationOnTheForm) {
  ScriptedHost host;
  host.Param("LOCATION", "North");
  EXPECT_TRUE(host.With([] { return GetValuesFor_LIM(ListOf("LIM")); }));
  EXPECT_EQ(host.Calls(), Lines({"scGetParamValue(\"LOCATION\")", LIMsOf("North")}));
}

TEST(ValueLists, LIMsOfANullOrEmptyTextLocationAreThoseOfNoName) {
  for (const Value& location : {Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Param("LOCATION", location);
    EXPECT_TRUE(host.With([] { return GetValuesFor_LIM(ListOf("LIM")); }));
    EXPECT_EQ(host.Effects(), Lines({LIMsOf("")}));
  }
}

TEST(ValueLists, LIMsOfALocationThatCannotBeListedAreReported) {
  ScriptedHost host;
  host.Param("LOCATION", "North");
  host.Refuse("scCollectValuesAndDesc");
  EXPECT_FALSE(host.With([] { return GetValuesFor_LIM(ListOf("LIM")); }));
  EXPECT_EQ(host.Effects(), Lines({LIMsOf("North"), "scErrorMessage(0, 2, 2, \"GetValuesFor_LIM\", 61021, \"LIM\")"}));
}

// --- CORG.

const std::string collectCORG =
    "scCollectValuesAndDesc(\"SELECT DISTINCT CORG, DESCRIPTION {NL} FROM OPCTS {NL}\", \"dynamic\")";
const std::string subtractCORG = "scSubtractSingleValues(\"SELECT CORG FROM OPADC\")";

TEST(ValueLists, CORGsOfATableAreLessThoseThatItHolds) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return GetValuesFor_CORG(ListOf("CORG"), "OPADC"); }));
  EXPECT_EQ(host.Calls(), Lines({collectCORG, subtractCORG}));
}

TEST(ValueLists, CORGsThatCannotBeTakenOutAreReported) {
  ScriptedHost host;
  host.Refuse("scSubtractSingleValues");
  EXPECT_FALSE(host.With([] { return GetValuesFor_CORG(ListOf("CORG"), "OPADC"); }));
  EXPECT_EQ(host.Calls(),
            Lines({collectCORG, subtractCORG, "scErrorMessage(0, 2, 2, \"GetValuesFor_CORG\", 61021, \"CORG\")"}));
}

TEST(ValueLists, CORGsAnswerForTheLastOperationAlone) {
  ScriptedHost host;
  host.Refuse("scCollectValuesAndDesc");
  EXPECT_TRUE(host.With([] { return GetValuesFor_CORG(ListOf("CORG"), "OPADC"); }));
  EXPECT_EQ(host.Calls(), Lines({collectCORG, subtractCORG}));
}

// --- LOCATION for those who have an EQU.

const std::string readLocation = "SELECT LOCATION FROM LIMS WHERE LIM = '1'";
const std::string readLocationCall = "scRunQuery(\"" + readLocation + "\", out)";
const std::string allLocations =
    "scCollectValuesAndDesc(\"SELECT Location, Description FROM Locations {NL} ORDER BY Location\", \"dynamic\")";
const std::string oneLocation =
    "scCollectValuesAndDesc(\"SELECT LOCATION, DESCRIPTION {NL} FROM LOCATIONS WHERE LOCATION = 'North'\", "
    "\"dynamic\")";
const std::string locationReport = "scErrorMessage(0, 2, 2, \"StatCheck_EQU_LOCATION\", 61021, \"Location\")";

TEST(ValueLists, LocationsWithoutAnEQUAreAll) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }));
  EXPECT_EQ(host.Calls(), Lines({"scGetParamValue(\"EQU\")", allLocations}));
}

TEST(ValueLists, LocationsOfAnEQUAreTheOneOfItsLIMWithoutLeadingZeros) {
  for (const char* EQU : {"001-0-10-05", " 1 -0-10-05", "1"}) {
    ScriptedHost host;
    host.Param("EQU", EQU);
    host.Rows(readLocation, {{"North", "South"}});
    EXPECT_TRUE(host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }));
    EXPECT_EQ(host.Calls(), Lines({"scGetParamValue(\"EQU\")", readLocationCall, oneLocation}));
  }
}

TEST(ValueLists, LocationsThatCannotBeListedAreReportedUnderTheirFixedName) {
  {
    ScriptedHost host;
    host.Refuse("scCollectValuesAndDesc");
    EXPECT_FALSE(host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }));
    EXPECT_EQ(host.Effects(), Lines({allLocations, locationReport}));
  }
  {
    ScriptedHost host;
    host.Param("EQU", "001-0-10-05");
    host.Rows(readLocation, {{"North"}});
    host.Refuse("scCollectValuesAndDesc");
    EXPECT_FALSE(host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }));
    EXPECT_EQ(host.Effects(), Lines({readLocationCall, oneLocation, locationReport}));
  }
}

TEST(ValueLists, LocationsOfALIMThatCannotBeReadAnswerFalseInSilence) {
  ScriptedHost host;
  host.Param("EQU", "001-0-10-05");
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }));
  EXPECT_EQ(host.Effects(), Lines({readLocationCall}));
}

TEST(ValueLists, LocationsOfAnUnknownLIMFailTheCall) {
  ScriptedHost host;
  host.Param("EQU", "001-0-10-05");
  host.Rows(readLocation, {});
  ExpectFailure(Cause::SubscriptOutOfRange, [&] { host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }); });
  EXPECT_EQ(host.Effects(), Lines({readLocationCall}));
}

TEST(ValueLists, LocationsOfAnEQUThatBeginsWithNoNumberFailTheCall) {
  for (const char* EQU : {"A01-0-10-05", "1-0-10-05", "", "   1"}) {
    ScriptedHost host;
    host.Param("EQU", EQU);
    ExpectFailure(Cause::TypeMismatch, [&] { host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }); });
    EXPECT_EQ(host.Effects(), "");
  }
}

TEST(ValueLists, LocationsOfANullEQUFailTheCall) {
  ScriptedHost host;
  host.Param("EQU", Value::Null());
  ExpectFailure(Cause::InvalidUseOfNull, [&] { host.With([] { return StatCheck_EQU_LOCATION(ListOf("P")); }); });
}

}  // namespace
}  // namespace cordboard
