#include "shared/Capacity.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

std::string Query(const std::string& sql) { return Lines({QueryLine(sql)}); }
std::string Traced(const std::string& line) { return Lines({"scPrintToDebugWindow(\"" + line + "\")"}); }
std::string Message(const std::string& context, const std::string& codeAndArguments) {
  return Lines({MessageLine(context, codeAndArguments)});
}

// A row set of that many rows; without bounds for none.
std::vector<std::vector<Value>> Counted(std::size_t count) { return {std::vector<Value>(count, "100")}; }

constexpr std::size_t mostRows = 32767;

// --- Groups per system.

const std::string groups = "SELECT GRP FROM CBELI";

bool FiftyGroups() { return CheckGroupsPerSystem("CBELI", 50); }

TEST(CheckGroupsPerSystem, IsTrueBelowTheLimit) {
  for (std::size_t count : {0, 1, 49}) {
    ScriptedHost host;
    host.Rows(groups, Counted(count));
    EXPECT_TRUE(host.With(FiftyGroups));
    EXPECT_EQ(host.Calls(), Query(groups));
  }
}

TEST(CheckGroupsPerSystem, IsFullAtTheLimitAndBeyond) {
  for (std::size_t count : {50, 51}) {
    ScriptedHost host;
    host.Rows(groups, Counted(count));
    EXPECT_FALSE(host.With(FiftyGroups));
    EXPECT_EQ(host.Calls(), Query(groups) + Message("CheckGroupsPerSystem", "61017, 50"));
  }
}

TEST(CheckGroupsPerSystem, ReportsGroupsThatCouldNotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With(FiftyGroups));
  EXPECT_EQ(host.Calls(), Query(groups) + Message("CheckGroupsPerSystem", "61019"));
}

TEST(CheckGroupsPerSystem, CountsAnyColumn) {
  const std::string sql = "SELECT NEXGNO FROM OPNEI";
  {
    ScriptedHost host;
    host.Rows(sql, Counted(63));
    EXPECT_TRUE(host.With([] { return CheckGroupsPerSystem("OPNEI", "NEXGNO", 64); }));
    EXPECT_EQ(host.Calls(), Query(sql));
  }
  {
    ScriptedHost host;
    host.Rows(sql, Counted(64));
    EXPECT_FALSE(host.With([] { return CheckGroupsPerSystem("OPNEI", "NEXGNO", 64); }));
    EXPECT_EQ(host.Calls(), Query(sql) + Message("CheckGroupsPerSystem", "61017, 64"));
  }
}

TEST(CheckGroupsPerSystem, CountsInSixteenBits) {
  {
    ScriptedHost host;
    host.Rows(groups, Counted(mostRows));
    EXPECT_TRUE(host.With([] { return CheckGroupsPerSystem("CBELI", 40000); }));
  }
  {
    ScriptedHost host;
    host.Rows(groups, Counted(mostRows + 1));
    ExpectFailure(Cause::Overflow, [&] { host.With([] { return CheckGroupsPerSystem("CBELI", 40000); }); });
    EXPECT_EQ(host.Calls(), Query(groups));
  }
}

// --- Groups per LIM.

std::string LIMOf(const std::string& EQU) { return "SELECT LIM FROM Equipment{NL} WHERE EQU = '" + EQU + "'"; }
std::string GroupsAtPositionsOf(const std::string& LIM) {
  return "SELECT CBELI.GRP FROM CBELI{NL} INNER JOIN Equipment ON CBELI.EQU = Equipment.EQU{NL} WHERE Equipment.LIM = "
         "'" +
         LIM + "'";
}

const std::string tracedPerLIM = Traced("MaxGroupsPerLIM = 50");

bool FiftyGroupsPerLIM() { return CheckGroupsPerLIM_EQU("CBELI", "E", 50); }

TEST(CheckGroupsPerLIM_EQU, IsTrueBelowTheLimit) {
  for (std::size_t count : {0, 49}) {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{"2", "3"}});
    host.Rows(AsSent(GroupsAtPositionsOf("2")), Counted(count));
    EXPECT_TRUE(host.With(FiftyGroupsPerLIM));
    EXPECT_EQ(host.Calls(), Query(LIMOf("E")) + Query(GroupsAtPositionsOf("2")) + tracedPerLIM +
                                Traced("GroupsInLIM = " + std::to_string(count)));
  }
}

TEST(CheckGroupsPerLIM_EQU, IsFullAtTheLimitAndBeyond) {
  for (std::size_t count : {50, 51}) {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{2}});
    host.Rows(AsSent(GroupsAtPositionsOf("2")), Counted(count));
    EXPECT_FALSE(host.With(FiftyGroupsPerLIM));
    EXPECT_EQ(host.Calls(), Query(LIMOf("E")) + Query(GroupsAtPositionsOf("2")) + tracedPerLIM +
                                Traced("GroupsInLIM = " + std::to_string(count)) +
                                Message("CheckGroupsPerLIM_EQU", "61023, 50"));
  }
}

TEST(CheckGroupsPerLIM_EQU, ReportsAPositionThatIsUnknownOrCouldNotBeRead) {
  {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {});
    EXPECT_FALSE(host.With(FiftyGroupsPerLIM));
    EXPECT_EQ(host.Calls(), Query(LIMOf("E")) + Message("CheckGroupsPerLIM_EQU", "61018"));
  }
  {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{"2"}});
    host.Refuse("scRunQuery", AsSent(LIMOf("E")));
    EXPECT_FALSE(host.With(FiftyGroupsPerLIM));
    EXPECT_EQ(host.Calls(), Query(LIMOf("E")) + Message("CheckGroupsPerLIM_EQU", "61018"));
  }
}

TEST(CheckGroupsPerLIM_EQU, ReportsALIMThatCouldNotBeCounted) {
  ScriptedHost host;
  host.Rows(AsSent(LIMOf("E")), {{2}});
  host.Refuse("scRunQuery", AsSent(GroupsAtPositionsOf("2")));
  EXPECT_FALSE(host.With(FiftyGroupsPerLIM));
  EXPECT_EQ(host.Calls(),
            Query(LIMOf("E")) + Query(GroupsAtPositionsOf("2")) + Message("CheckGroupsPerLIM_EQU", "61022, 2"));
}

TEST(CheckGroupsPerLIM_EQU, CountsInSixteenBits) {
  ScriptedHost host;
  host.Rows(AsSent(LIMOf("E")), {{"2"}});
  host.Rows(AsSent(GroupsAtPositionsOf("2")), Counted(mostRows + 1));
  ExpectFailure(Cause::Overflow, [&] { host.With(FiftyGroupsPerLIM); });
  EXPECT_EQ(host.Calls(), Query(LIMOf("E")) + Query(GroupsAtPositionsOf("2")));
}

// --- A move to a new position.

bool MoveToF() { return CheckLIMCapacity("CBELI", "E", "F", 50); }

const std::string tracedMove = Traced("Function CheckLIMCapacity called") + Traced("  OldEQU = E") +
                               Traced("  NewEQU = F") + Traced("  MaxGroupsPerLIM = 50");
const std::string foundBoth = tracedMove + Query(LIMOf("E")) + Query(LIMOf("F"));
const std::string movesFrom1To2 = foundBoth + Traced("OldLIM = 1") + Traced("NewLIM = 2");

void SetLIMs(ScriptedHost& host, const Value& oldLIM, const Value& newLIM) {
  host.Rows(AsSent(LIMOf("E")), {{oldLIM}});
  host.Rows(AsSent(LIMOf("F")), {{newLIM}});
}

TEST(CheckLIMCapacity, WithinOneLIMIsTrueAndCountsNothing) {
  ScriptedHost host;
  SetLIMs(host, "1", 1);
  EXPECT_TRUE(host.With(MoveToF));
  EXPECT_EQ(host.Calls(), foundBoth + Traced("OldLIM = 1") + Traced("NewLIM = 1"));
}

TEST(CheckLIMCapacity, ComparesTwoTextsByTheirCharacters) {
  ScriptedHost host;
  SetLIMs(host, "01", "1");
  host.Rows(AsSent(GroupsAtPositionsOf("1")), Counted(0));
  EXPECT_TRUE(host.With(MoveToF));
  EXPECT_EQ(host.Calls(), foundBoth + Traced("OldLIM = 01") + Traced("NewLIM = 1") + Query(GroupsAtPositionsOf("1")) +
                              Traced("GroupsInLIM = 0"));
}

TEST(CheckLIMCapacity, CountsWhereALIMIsNull) {
  ScriptedHost host;
  SetLIMs(host, Value::Null(), Value::Null());
  host.Rows(AsSent(GroupsAtPositionsOf("")), Counted(1));
  EXPECT_TRUE(host.With(MoveToF));
  EXPECT_EQ(host.Calls(), foundBoth + Traced("OldLIM = ") + Traced("NewLIM = ") + Query(GroupsAtPositionsOf("")) +
                              Traced("GroupsInLIM = 1"));
}

TEST(CheckLIMCapacity, IsTrueBelowTheLimitAndBeyondIt) {
  for (std::size_t count : {0, 49, 51}) {
    ScriptedHost host;
    SetLIMs(host, "1", "2");
    host.Rows(AsSent(GroupsAtPositionsOf("2")), Counted(count));
    EXPECT_TRUE(host.With(MoveToF));
    EXPECT_EQ(host.Calls(),
              movesFrom1To2 + Query(GroupsAtPositionsOf("2")) + Traced("GroupsInLIM = " + std::to_string(count)));
  }
}

TEST(CheckLIMCapacity, IsFullAtTheLimitExactly) {
  ScriptedHost host;
  SetLIMs(host, "1", "2");
  host.Rows(AsSent(GroupsAtPositionsOf("2")), Counted(50));
  EXPECT_FALSE(host.With(MoveToF));
  EXPECT_EQ(host.Calls(), movesFrom1To2 + Query(GroupsAtPositionsOf("2")) + Traced("GroupsInLIM = 50") +
                              Message("CheckLIMCapacity", "61023, 50"));
}

TEST(CheckLIMCapacity, ReportsTheFirstPositionThatIsNotFound) {
  {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {});
    EXPECT_FALSE(host.With(MoveToF));
    EXPECT_EQ(host.Calls(), tracedMove + Query(LIMOf("E")) + Message("CheckLIMCapacity", "61018"));
  }
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", AsSent(LIMOf("E")));
    EXPECT_FALSE(host.With(MoveToF));
    EXPECT_EQ(host.Calls(), tracedMove + Query(LIMOf("E")) + Message("CheckLIMCapacity", "61018"));
  }
  {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{"1"}});
    host.Rows(AsSent(LIMOf("F")), {});
    EXPECT_FALSE(host.With(MoveToF));
    EXPECT_EQ(host.Calls(), foundBoth + Message("CheckLIMCapacity", "61018"));
  }
  {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{"1"}});
    host.Refuse("scRunQuery", AsSent(LIMOf("F")));
    EXPECT_FALSE(host.With(MoveToF));
    EXPECT_EQ(host.Calls(), foundBoth + Message("CheckLIMCapacity", "61018"));
  }
}

TEST(CheckLIMCapacity, ReportsALIMThatCouldNotBeCounted) {
  ScriptedHost host;
  SetLIMs(host, "1", "2");
  host.Refuse("scRunQuery", AsSent(GroupsAtPositionsOf("2")));
  EXPECT_FALSE(host.With(MoveToF));
  EXPECT_EQ(host.Calls(),
            movesFrom1To2 + Query(GroupsAtPositionsOf("2")) + Message("CheckLIMCapacity", "61022, \"2\""));
}

TEST(CheckLIMCapacity, CountsInSixteenBits) {
  ScriptedHost host;
  SetLIMs(host, "1", "2");
  host.Rows(AsSent(GroupsAtPositionsOf("2")), Counted(mostRows + 1));
  ExpectFailure(Cause::Overflow, [&] { host.With(MoveToF); });
}

// --- A move to a new LIM.

bool MoveToLIM2() { return CheckLIMCapacityFromLIM("ACGRI", "1", "2", 100); }

std::string TracedLIMs(const std::string& oldLIM, const std::string& newLIM) {
  return Traced("Function CheckLIMCapacityFromLIM called") + Traced("  OldLIM = " + oldLIM) +
         Traced("  NewLIM = " + newLIM) + Traced("  MaxGroupsPerLIM = 100");
}

const std::string groupsOfLIM2 = "SELECT GRP FROM ACGRI{NL} WHERE LIM = '2'";

TEST(CheckLIMCapacityFromLIM, OfEqualLIMsIsFalseInSilence) {
  for (const Value& newLIM : {Value("1"), Value(1)}) {
    ScriptedHost host;
    EXPECT_FALSE(host.With([&] { return CheckLIMCapacityFromLIM("ACGRI", "1", newLIM, 100); }));
    EXPECT_EQ(host.Calls(), TracedLIMs("1", "1"));
  }
}

TEST(CheckLIMCapacityFromLIM, CountsWhereALIMIsNull) {
  ScriptedHost host;
  host.Rows(AsSent("SELECT GRP FROM ACGRI{NL} WHERE LIM = ''"), Counted(0));
  EXPECT_TRUE(host.With([] { return CheckLIMCapacityFromLIM("ACGRI", Value::Null(), Value::Null(), 100); }));
  EXPECT_EQ(host.Calls(),
            TracedLIMs("", "") + Query("SELECT GRP FROM ACGRI{NL} WHERE LIM = ''") + Traced("GroupsInLIM = 0"));
}

TEST(CheckLIMCapacityFromLIM, IsTrueBelowTheLimitAndBeyondIt) {
  for (std::size_t count : {0, 99, 101}) {
    ScriptedHost host;
    host.Rows(AsSent(groupsOfLIM2), Counted(count));
    EXPECT_TRUE(host.With(MoveToLIM2));
    EXPECT_EQ(host.Calls(),
              TracedLIMs("1", "2") + Query(groupsOfLIM2) + Traced("GroupsInLIM = " + std::to_string(count)));
  }
}

TEST(CheckLIMCapacityFromLIM, IsFullAtTheLimitExactly) {
  ScriptedHost host;
  host.Rows(AsSent(groupsOfLIM2), Counted(100));
  EXPECT_FALSE(host.With(MoveToLIM2));
  EXPECT_EQ(host.Calls(), TracedLIMs("1", "2") + Query(groupsOfLIM2) + Traced("GroupsInLIM = 100") +
                              Message("CheckLIMCapacityFromLIM", "61023, 100"));
}

TEST(CheckLIMCapacityFromLIM, ReportsALIMThatCouldNotBeCounted) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With(MoveToLIM2));
  EXPECT_EQ(host.Calls(),
            TracedLIMs("1", "2") + Query(groupsOfLIM2) + Message("CheckLIMCapacityFromLIM", "61022, \"2\""));
}

TEST(CheckLIMCapacityFromLIM, CountsInSixteenBits) {
  ScriptedHost host;
  host.Rows(AsSent(groupsOfLIM2), Counted(mostRows + 1));
  ExpectFailure(Cause::Overflow, [&] { host.With(MoveToLIM2); });
}

// --- The LIM of a position.

std::int16_t LIMOfE() { return GetLIMFromEQU("E"); }

TEST(GetLIMFromEQU, IsTheNumberOfTheFirstRow) {
  for (const Value& LIM : {Value("002"), Value(2)}) {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{LIM, "3"}});
    EXPECT_EQ(host.With(LIMOfE), 2);
    EXPECT_EQ(host.Calls(), Query(LIMOf("E")));
  }
}

TEST(GetLIMFromEQU, OfAnUnknownPositionIsMinusOneInSilence) {
  ScriptedHost host;
  host.Rows(AsSent(LIMOf("E")), {});
  EXPECT_EQ(host.With(LIMOfE), -1);
  EXPECT_EQ(host.Calls(), Query(LIMOf("E")));
}

TEST(GetLIMFromEQU, ThatCouldNotBeReadIsMinusOneAndReported) {
  ScriptedHost host;
  host.Rows(AsSent(LIMOf("E")), {{"2"}});
  host.Refuse("scRunQuery");
  EXPECT_EQ(host.With(LIMOfE), -1);
  EXPECT_EQ(host.Calls(), Query(LIMOf("E")) + Message("GetLIMFromEQU", "62000"));
}

TEST(GetLIMFromEQU, FailsForWhatIsNoSixteenBitNumber) {
  const std::pair<Value, Cause> cases[] = {
      {"A", Cause::TypeMismatch}, {Value::Null(), Cause::InvalidUseOfNull}, {"32768", Cause::Overflow}};
  for (const auto& [LIM, expected] : cases) {
    ScriptedHost host;
    host.Rows(AsSent(LIMOf("E")), {{LIM}});
    ExpectFailure(expected, [&] { host.With(LIMOfE); });
  }
}

// --- Members per group.

const std::string membersOf7 = "SELECT DIR FROM ACGMI{NL} WHERE GRP = '7'";

struct Members {
  std::size_t present;
  int toAdd;
  const char* message;  // code and arguments, nothing where they may be added
};

class MembersPerGroup : public testing::TestWithParam<Members> {};

TEST_P(MembersPerGroup, AreCheckedForTheLimitAndThenForTheSum) {
  const auto [present, toAdd, message] = GetParam();
  ScriptedHost host;
  host.Rows(AsSent(membersOf7), Counted(present));
  EXPECT_EQ(host.With([toAdd = toAdd] { return CheckMembersPerGroup("ACGMI", "7", toAdd, 250); }), message == nullptr);
  EXPECT_EQ(host.Calls(), Query(membersOf7) + (message ? Message("CheckMembersPerGroup", message) : ""));
}

INSTANTIATE_TEST_SUITE_P(BothSidesOfTheLimit, MembersPerGroup,
                         testing::Values(Members{0, 250, nullptr}, Members{0, 251, "61029, \"7\", 0, 251, 250"},
                                         Members{249, 1, nullptr}, Members{249, 2, "61029, \"7\", 249, 2, 250"},
                                         Members{250, 1, "61032, \"7\", 250"}, Members{250, 0, "61032, \"7\", 250"},
                                         // A group that is beyond its limit is not called full.
                                         Members{251, 0, "61029, \"7\", 251, 0, 250"}));

TEST(CheckMembersPerGroup, ReportsMembersThatCouldNotBeCounted) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return CheckMembersPerGroup("ACGMI", "7", 1, 250); }));
  EXPECT_EQ(host.Calls(), Query(membersOf7) + Message("CheckMembersPerGroup", "61031, \"7\""));
}

TEST(CheckMembersPerGroup, CountsInSixteenBits) {
  {
    ScriptedHost host;
    host.Rows(AsSent(membersOf7), Counted(mostRows));
    EXPECT_TRUE(host.With([] { return CheckMembersPerGroup("ACGMI", "7", 1, 40000); }));
  }
  {
    ScriptedHost host;
    host.Rows(AsSent(membersOf7), Counted(mostRows + 1));
    ExpectFailure(Cause::Overflow, [&] { host.With([] { return CheckMembersPerGroup("ACGMI", "7", 1, 40000); }); });
  }
}

// --- Members per system.

const std::string members = "SELECT DIR FROM CBGMI";

class MembersPerSystem : public testing::TestWithParam<Members> {};

TEST_P(MembersPerSystem, AreCheckedForTheLimitAndThenForTheSumButNotOnAnEmptyTable) {
  const auto [present, toAdd, message] = GetParam();
  ScriptedHost host;
  host.Rows(members, Counted(present));
  EXPECT_EQ(host.With([toAdd = toAdd] { return CheckMembersPerSystem("CBGMI", toAdd, 1500); }), message == nullptr);
  EXPECT_EQ(host.Calls(), Query(members) + (message ? Message("CheckMembersPerSystem", message) : ""));
}

INSTANTIATE_TEST_SUITE_P(BothSidesOfTheLimit, MembersPerSystem,
                         testing::Values(Members{0, 5000, nullptr}, Members{1, 1499, nullptr},
                                         Members{1, 1500, "61030, 1, 1500, 1500"}, Members{1499, 1, nullptr},
                                         Members{1499, 2, "61030, 1499, 2, 1500"}, Members{1500, 0, "61028, 1500"},
                                         // A system that is beyond its limit is not called full.
                                         Members{1501, 0, "61030, 1501, 0, 1500"}));

TEST(CheckMembersPerSystem, ReportsMembersThatCouldNotBeCounted) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return CheckMembersPerSystem("CBGMI", 1, 1500); }));
  EXPECT_EQ(host.Calls(), Query(members) + Message("CheckMembersPerSystem", "61027"));
}

TEST(CheckMembersPerSystem, CountsInSixteenBits) {
  ScriptedHost host;
  host.Rows(members, Counted(mostRows + 1));
  ExpectFailure(Cause::Overflow, [&] { host.With([] { return CheckMembersPerSystem("CBGMI", 1, 40000); }); });
}

}  // namespace
}  // namespace cordboard
