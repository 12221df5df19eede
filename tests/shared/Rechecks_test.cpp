#include "shared/Rechecks.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

// --- Against the list.

bool RecheckRERNUM() { return StatCheck_RecheckValue("OPADC", "RERNUM"); }

const std::string readRERNUM = "scGetParamValue(\"RERNUM\")";
const std::string resetRERNUM = "scResetParam(\"RERNUM\")";
const std::string listRERNUM = "scGetValidValues(\"RERNUM\", out)";

TEST(StatCheck_RecheckValue, PutsBackAValueThatIsStillInTheList) {
  ScriptedHost host;
  host.Param("RERNUM", "100");
  host.ValidValues("RERNUM", {99, 100});
  EXPECT_TRUE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM, "scSetParamValue(\"RERNUM\", \"100\")"}));
  EXPECT_EQ(host.scGetParamValue("RERNUM"), Value("100"));
}

TEST(StatCheck_RecheckValue, DropsAValueThatHasLeftTheListInSilence) {
  ScriptedHost host;
  host.Param("RERNUM", "100");
  host.ValidValues("RERNUM", {"99"});
  EXPECT_TRUE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM}));
  EXPECT_TRUE(host.scGetParamValue("RERNUM").IsEmpty());
}

TEST(StatCheck_RecheckValue, AsksForTheListOfAValueThatWasNeverGivenAsWell) {
  ScriptedHost host;
  host.ValidValues("RERNUM", {"99"});
  EXPECT_TRUE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM}));
}

TEST(StatCheck_RecheckValue, NeverPutsBackANull) {
  ScriptedHost host;
  host.Param("RERNUM", Value::Null());
  host.ValidValues("RERNUM", {Value::Null(), ""});
  EXPECT_TRUE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM}));
}

TEST(StatCheck_RecheckValue, ReportsAResetThatFailedAndStops) {
  ScriptedHost host;
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(),
            Lines({readRERNUM, resetRERNUM, "scErrorMessage(0, 2, 2, \"StatCheck: OPADC\", 61013, \"RERNUM\")"}));
}

TEST(StatCheck_RecheckValue, ReportsAListThatCannotBeHadWithTheCommandAndStops) {
  ScriptedHost host;
  host.Refuse("scGetValidValues");
  EXPECT_FALSE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM,
                                 "scErrorMessage(0, 2, 2, \"StatCheck: OPADC\", 61020, \"OPADC\")"}));
}

TEST(StatCheck_RecheckValue, ReportsAValueThatCouldNotBePutBack) {
  ScriptedHost host;
  host.Param("RERNUM", "100");
  host.ValidValues("RERNUM", {"100"});
  host.Refuse("scSetParamValue");
  EXPECT_FALSE(host.With(RecheckRERNUM));
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM, "scSetParamValue(\"RERNUM\", \"100\")",
                                 "scErrorMessage(0, 2, 2, \"StatCheck: OPADC\", 61016, \"RERNUM\")"}));
}

TEST(StatCheck_RecheckValue, FailsForAListWithoutBounds) {
  ScriptedHost host;
  host.ValidValues("RERNUM", List());
  ExpectFailure(Cause::SubscriptOutOfRange, [&] { host.With(RecheckRERNUM); });
  EXPECT_EQ(host.Calls(), Lines({readRERNUM, resetRERNUM, listRERNUM}));
}

bool RevalidateEQU() { return Revalidate(Reporter("StatCheck: LOCATION"), "EQU", "E"); }

TEST(Revalidate, PutsBackWhatTheCallerKept) {
  ScriptedHost host;
  host.ValidValues("EQU", {"D", "E"});
  EXPECT_TRUE(host.With(RevalidateEQU));
  EXPECT_EQ(host.Calls(),
            Lines({"scResetParam(\"EQU\")", "scGetValidValues(\"EQU\", out)", "scSetParamValue(\"EQU\", \"E\")"}));
}

TEST(Revalidate, DropsWhatHasLeftTheList) {
  ScriptedHost host;
  host.ValidValues("EQU", {"D"});
  EXPECT_TRUE(host.With(RevalidateEQU));
  EXPECT_EQ(host.Calls(), Lines({"scResetParam(\"EQU\")", "scGetValidValues(\"EQU\", out)"}));
}

TEST(Revalidate, ReportsEachStepThatFailsWithTheParameter) {
  {
    ScriptedHost host;
    host.Refuse("scResetParam");
    EXPECT_FALSE(host.With(RevalidateEQU));
    EXPECT_EQ(host.Calls(),
              Lines({"scResetParam(\"EQU\")", "scErrorMessage(0, 2, 2, \"StatCheck: LOCATION\", 61013, \"EQU\")"}));
  }
  {
    ScriptedHost host;
    host.Refuse("scGetValidValues");
    EXPECT_FALSE(host.With(RevalidateEQU));
    EXPECT_EQ(host.Calls(), Lines({"scResetParam(\"EQU\")", "scGetValidValues(\"EQU\", out)",
                                   "scErrorMessage(0, 2, 2, \"StatCheck: LOCATION\", 61020, \"EQU\")"}));
  }
  {
    ScriptedHost host;
    host.ValidValues("EQU", {"E"});
    host.Refuse("scSetParamValue");
    EXPECT_FALSE(host.With(RevalidateEQU));
    EXPECT_EQ(host.Calls(),
              Lines({"scResetParam(\"EQU\")", "scGetValidValues(\"EQU\", out)", "scSetParamValue(\"EQU\", \"E\")",
                     "scErrorMessage(0, 2, 2, \"StatCheck: LOCATION\", 61016, \"EQU\")"}));
  }
}

TEST(Revalidate, ConsistsOfTwoHalves) {
  ScriptedHost host;
  const Reporter fail("StatCheck: ");
  host.ValidValues("EQU", {"E"});
  EXPECT_TRUE(host.With([&] { return ResetForRecheck(fail, "EQU"); }));
  EXPECT_TRUE(host.With([&] { return PutBackIfListed(fail, "EQU", "E"); }));
  EXPECT_EQ(host.Calls(),
            Lines({"scResetParam(\"EQU\")", "scGetValidValues(\"EQU\", out)", "scSetParamValue(\"EQU\", \"E\")"}));
}

// --- LIM and EQU against the location on the form: the same steps with another statement.

struct Located {
  const char* name;
  bool (*check)(const std::string&);
  std::string argument;
  std::string location;   // the parameter of the location
  std::string parameter;  // the parameter that is checked
  std::string sql;        // as traced
};

void PrintTo(const Located& located, std::ostream* out) { *out << located.name; }

class LocationCheck : public testing::TestWithParam<Located> {
 protected:
  const Located& it() { return GetParam(); }
  bool Check() {
    return host.With([&] { return it().check(it().argument); });
  }
  std::string Reads() {
    return Lines({"scGetParamValue(\"" + it().location + "\")", "scGetParamValue(\"" + it().parameter + "\")"});
  }
  std::string Reset() { return Lines({"scResetParam(\"" + it().parameter + "\")"}); }
  std::string Query() { return Lines({"scRunQuery(\"" + it().sql + "\", out)"}); }
  std::string PutBack() { return Lines({"scSetParamValue(\"" + it().parameter + "\", \"012\")"}); }
  std::string Message(const std::string& codeAndArgument) {
    return Lines({"scErrorMessage(0, 2, 2, \"StatCheck: " + it().argument + "\", " + codeAndArgument + ")"});
  }
  void SetForm(const Value& location, const Value& kept) {
    host.Param(it().location, location);
    host.Param(it().parameter, kept);
  }

  ScriptedHost host;
};

TEST_P(LocationCheck, PutsBackAValueOfTheLocation) {
  SetForm("North", "012");
  host.Rows(AsSent(it().sql), {{"North", "South"}});
  EXPECT_TRUE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query() + PutBack());
  EXPECT_EQ(host.scGetParamValue(it().parameter), Value("012"));
}

TEST_P(LocationCheck, DropsAValueOfAnotherLocationInSilence) {
  SetForm("North", "012");
  host.Rows(AsSent(it().sql), {{"South", "North"}});
  EXPECT_TRUE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query());
  EXPECT_TRUE(host.scGetParamValue(it().parameter).IsEmpty());
}

TEST_P(LocationCheck, DropsAValueWhereTheFormHasNoLocation) {
  SetForm(Value(), "012");
  host.Rows(AsSent(it().sql), {{"North"}});
  EXPECT_TRUE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query());
}

TEST_P(LocationCheck, DropsAValueWhoseLocationIsNull) {
  SetForm("", "012");
  host.Rows(AsSent(it().sql), {{Value::Null()}});
  EXPECT_TRUE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query());
}

TEST_P(LocationCheck, StopsBehindTheResetWithoutAValue) {
  for (const Value& none : {Value(), Value("")}) {
    ScriptedHost fresh;
    fresh.Param(it().parameter, none);
    EXPECT_TRUE(fresh.With([&] { return it().check(it().argument); }));
    EXPECT_EQ(fresh.Calls(), Reads() + Reset());
  }
}

TEST_P(LocationCheck, ReportsAResetThatFailedAndStops) {
  SetForm("North", "012");
  host.Refuse("scResetParam");
  EXPECT_FALSE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Message("61013, \"" + it().parameter + "\""));
}

TEST_P(LocationCheck, ReportsAReadThatFailedWithTheValueAndStops) {
  SetForm("North", "012");
  host.Refuse("scRunQuery");
  EXPECT_FALSE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query() + Message("61014, \"012\""));
}

TEST_P(LocationCheck, ReportsAValueThatCouldNotBePutBack) {
  SetForm("North", "012");
  host.Rows(AsSent(it().sql), {{"North"}});
  host.Refuse("scSetParamValue");
  EXPECT_FALSE(Check());
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query() + PutBack() + Message("61016, \"" + it().parameter + "\""));
}

TEST_P(LocationCheck, FailsForAValueThatIsInNoLocation) {
  SetForm("North", "012");
  host.Rows(AsSent(it().sql), {});
  ExpectFailure(Cause::SubscriptOutOfRange, [&] { host.With([&] { return it().check(it().argument); }); });
  EXPECT_EQ(host.Calls(), Reads() + Reset() + Query());
}

TEST_P(LocationCheck, FailsForANullOnTheForm) {
  SetForm("North", Value::Null());
  ExpectFailure(Cause::InvalidUseOfNull, [&] { host.With([&] { return it().check(it().argument); }); });
  EXPECT_EQ(host.Calls(), Reads());

  ScriptedHost other;
  other.Param(it().location, Value::Null());
  ExpectFailure(Cause::InvalidUseOfNull, [&] { other.With([&] { return it().check(it().argument); }); });
  EXPECT_EQ(other.Effects(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Checks, LocationCheck,
    testing::Values(
        Located{"LIM", [](const std::string& CmdName) { return StatCheck_LIM({.CmdName = CmdName}); }, "ACGRI",
                "LOCATION", "LIM", "SELECT Location FROM LIMs {NL} WHERE LIM = '012'{NL}"},
        // One bracket closes that was never opened.
        Located{"EQU", StatCheck_EQU, "LOCOP", "LOCOP", "EQU",
                "SELECT LIMs.Location FROM Locations {NL} INNER JOIN (Boards {NL} INNER JOIN Equipment ON (Boards.Slot "
                "= Equipment.Slot) {NL} AND (Boards.Magazine = Equipment.Magazine) {NL} AND (Boards.LIM = "
                "Equipment.LIM)) {NL} INNER JOIN LIMs ON Boards.LIM = LIMs.LIM) {NL} ON Locations.Location = "
                "LIMs.Location {NL} WHERE Equipment.EQU = '012'{NL}"}),
    [](const auto& test) { return std::string(test.param.name); });

// --- BPOS against the location on the form.

bool CheckBPOS() { return StatCheck_BPOS("LOCATION"); }

std::string BoardStatement(const std::string& LIM, const std::string& magazine, const std::string& slot) {
  return "SELECT LIMs.Location FROM Boards {NL} INNER JOIN LIMs ON Boards.LIM = LIMs.LIM{NL} WHERE Boards.LIM = '" +
         LIM + "'{NL} AND Boards.Magazine = '" + magazine + "'{NL} AND Boards.Slot = '" + slot + "'";
}

const std::string readBPOS = Lines({"scGetParamValue(\"LOCATION\")", "scGetParamValue(\"BPOS\")"});
const std::string resetBPOS = Lines({"scResetParam(\"BPOS\")"});
const std::string board = BoardStatement("001", "0", "10");
const std::string boardCall = Lines({"scRunQuery(\"" + board + "\", out)"});
const std::string setBPOS = Lines({"scSetParamValue(\"BPOS\", \"001-0-10\")"});

void SetBoard(ScriptedHost& host, std::vector<std::vector<Value>> location) {
  host.Param("LOCATION", "North");
  host.Param("BPOS", "001-0-10");
  host.Rows(AsSent(board), std::move(location));
}

TEST(StatCheck_BPOS, PutsBackABoardOfTheLocation) {
  ScriptedHost host;
  SetBoard(host, {{"North", "South"}});
  EXPECT_TRUE(host.With(CheckBPOS));
  EXPECT_EQ(host.Calls(), readBPOS + resetBPOS + boardCall + setBPOS);
}

TEST(StatCheck_BPOS, DropsABoardOfAnotherLocation) {
  const std::string calls = readBPOS + resetBPOS + boardCall;
  for (const Value& location : {Value("South"), Value::Null()}) {
    ScriptedHost host;
    SetBoard(host, {{location}});
    EXPECT_TRUE(host.With(CheckBPOS));
    EXPECT_EQ(host.Calls(), calls);
  }
}

TEST(StatCheck_BPOS, DropsAPositionWithoutABoard) {
  ScriptedHost host;
  SetBoard(host, {});
  EXPECT_TRUE(host.With(CheckBPOS));
  EXPECT_EQ(host.Calls(), readBPOS + resetBPOS + boardCall);
  EXPECT_TRUE(host.scGetParamValue("BPOS").IsEmpty());
}

TEST(StatCheck_BPOS, ReadsThePositionFromItsRightEndWhateverTheSeparators) {
  struct Position {
    Value BPOS;
    std::string LIM, magazine, slot;
  };
  for (const Position& position : {Position{"1/2/34", "1", "2", "34"}, Position{"1000-2-34", "1000", "2", "34"},
                                   Position{"-2-34", "", "2", "34"}, Position{1020304, "10", "0", "04"}}) {
    ScriptedHost host;
    host.Param("BPOS", position.BPOS);
    const std::string sql = BoardStatement(position.LIM, position.magazine, position.slot);
    host.Rows(AsSent(sql), {});
    EXPECT_TRUE(host.With(CheckBPOS));
    EXPECT_EQ(host.Calls(), readBPOS + resetBPOS + Lines({"scRunQuery(\"" + sql + "\", out)"}));
  }
}

TEST(StatCheck_BPOS, PutsBackTheValueItselfAndNotItsText) {
  ScriptedHost host;
  host.Param("LOCATION", "North");
  host.Param("BPOS", 1020304);
  host.Rows(AsSent(BoardStatement("10", "0", "04")), {{"North"}});
  EXPECT_TRUE(host.With(CheckBPOS));
  EXPECT_EQ(host.scGetParamValue("BPOS"), Value(1020304));
}

TEST(StatCheck_BPOS, StopsBehindTheResetWithoutAValue) {
  ScriptedHost host;
  EXPECT_TRUE(host.With(CheckBPOS));
  EXPECT_EQ(host.Calls(), readBPOS + resetBPOS);
}

TEST(StatCheck_BPOS, FailsForAPositionThatIsTooShort) {
  for (const char* BPOS : {"", "1", "0-10"}) {
    ScriptedHost host;
    host.Param("BPOS", BPOS);
    ExpectFailure(Cause::InvalidCall, [&] { host.With(CheckBPOS); });
    EXPECT_EQ(host.Calls(), readBPOS + resetBPOS);
  }
}

TEST(StatCheck_BPOS, FailsForANullOnTheForm) {
  {
    ScriptedHost host;
    host.Param("BPOS", Value::Null());
    ExpectFailure(Cause::InvalidUseOfNull, [&] { host.With(CheckBPOS); });
    EXPECT_EQ(host.Calls(), readBPOS + resetBPOS);
  }
  {
    ScriptedHost host;
    host.Param("LOCATION", Value::Null());
    ExpectFailure(Cause::InvalidUseOfNull, [&] { host.With(CheckBPOS); });
    EXPECT_EQ(host.Effects(), "");
  }
}

TEST(StatCheck_BPOS, ReportsEachStepThatFails) {
  const auto message = [](const std::string& codeAndArgument) {
    return Lines({"scErrorMessage(0, 2, 2, \"StatCheck: LOCATION\", " + codeAndArgument + ")"});
  };
  {
    ScriptedHost host;
    SetBoard(host, {{"North"}});
    host.Refuse("scResetParam");
    EXPECT_FALSE(host.With(CheckBPOS));
    EXPECT_EQ(host.Calls(), readBPOS + resetBPOS + message("61013, \"BPOS\""));
  }
  {
    ScriptedHost host;
    SetBoard(host, {{"North"}});
    host.Refuse("scRunQuery");
    EXPECT_FALSE(host.With(CheckBPOS));
    EXPECT_EQ(host.Calls(), readBPOS + resetBPOS + boardCall + message("62000"));
  }
  {
    ScriptedHost host;
    SetBoard(host, {{"North"}});
    host.Refuse("scSetParamValue");
    EXPECT_FALSE(host.With(CheckBPOS));
    EXPECT_EQ(host.Calls(), readBPOS + resetBPOS + boardCall + setBPOS + message("61016, \"BPOS\""));
  }
}

// --- Values in lists.

const List noElements{std::vector<Value>()};

TEST(IsValueInList, FindsAnyElement) {
  EXPECT_TRUE(IsValueInList("1", {"1", "2", "3"}));
  EXPECT_TRUE(IsValueInList("3", {"1", "2", "3"}));
  EXPECT_FALSE(IsValueInList("4", {"1", "2", "3"}));
}

TEST(IsValueInList, ComparesNumbersAndDigitsByTheirValue) {
  EXPECT_TRUE(IsValueInList("5", {5}));
  EXPECT_TRUE(IsValueInList("05", {5}));
  EXPECT_TRUE(IsValueInList(5, {"05"}));
  EXPECT_FALSE(IsValueInList("5A", {5}));
}

TEST(IsValueInList, ComparesTwoTextsByTheirCharacters) {
  EXPECT_FALSE(IsValueInList("5", {"05"}));
  EXPECT_FALSE(IsValueInList("a", {"A"}));
  EXPECT_FALSE(IsValueInList("A", {"A "}));
}

TEST(IsValueInList, TakesEmptyForTheEmptyTextAndForZero) {
  EXPECT_TRUE(IsValueInList(Value(), {""}));
  EXPECT_TRUE(IsValueInList(Value(), {0}));
  EXPECT_FALSE(IsValueInList("", {0}));
}

TEST(IsValueInList, NeverFindsANullNorByANull) {
  EXPECT_FALSE(IsValueInList(Value::Null(), {Value::Null(), "", Value()}));
  EXPECT_FALSE(IsValueInList("", {Value::Null()}));
}

TEST(IsValueInList, FindsNothingInAListOfNoElements) { EXPECT_FALSE(IsValueInList("1", noElements)); }

TEST(IsValueInList, FailsForAListWithoutBounds) {
  ExpectFailure(Cause::SubscriptOutOfRange, [] { IsValueInList("1", List()); });
  ExpectFailure(Cause::SubscriptOutOfRange, [] { IsValueInList("1", List::Null()); });
}

// --- Checks without a value.

TEST(AlwaysTrue, IsTrueAndCallsNothing) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return AlwaysTrue(Action()); }));
  EXPECT_EQ(host.Calls(), "");
}

TEST(ResetLOCATION, GivesTheAnswerOfTheResetAndReportsNothing) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return ResetLOCATION(Action()); }));
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.With([] { return ResetLOCATION(Action()); }));
  EXPECT_EQ(host.Calls(), Lines({"scResetParam(\"LOCATION\")", "scResetParam(\"LOCATION\")"}));
}

}  // namespace
}  // namespace cordboard
