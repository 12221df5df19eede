#include "shared/GroupHead.h"

#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

Action On(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "HEADS", .CmdId = 7, .ParamList = parameters};
}

const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";

// --- Add.

GroupKind Kind(AddTrace trace) {
  return {.columns = {"CMDID", "LIM", "NUMTYP", "GRP"}, .perSystem = 3, .perLIM = 2, .trace = trace};
}

const std::string system = "SELECT GRP FROM HEADS";
const std::string ofLIM = "SELECT HEADS.GRP FROM HEADS{NL} WHERE HEADS.LIM = '1'";
const std::string takeNumber =
    Lines({StatementLine(" UPDATE NANSI SET USED = True{NL}WHERE NUMSE = '100'"),
           StatementLine(" INSERT INTO UsedExtOpeGrp{NL} (DIR, NUMTYP) {NL} VALUES ('100', 'EX')"),
           StatementLine(" INSERT INTO UsedGroups{NL} (DIR, NUMTYP) {NL} VALUES ('100', 'EX')")});
const std::string insert =
    "scSQLInsert(\"HEADS\", [\"CMDID\", \"LIM\", \"NUMTYP\", \"GRP\"], [1001, \"1\", \"EX\", \"100\"])";

struct Counts {
  std::size_t inSystem;
  std::size_t inLIM;
};

struct GroupHeadAdd : testing::Test {
  ScriptedHost host;

  // A form with a number and a LIM, and an exchange with so many groups.
  bool Add(AddTrace trace, Counts counts) {
    host.Param("GRP", "100");
    host.Param("LIM", "1");
    host.Rows(AsSent(system), {std::vector<Value>(counts.inSystem, "150")});
    host.Rows(AsSent(ofLIM), {std::vector<Value>(counts.inLIM, "150")});
    return host.With([&] { return AddGroupInLIM(On("SetInfo"), Kind(trace)); });
  }
};

TEST_F(GroupHeadAdd, TracesEachColumnAsItIsRead) {
  EXPECT_TRUE(Add(AddTrace::Record, {0, 0}));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(system), Call("scBuildCmdID"), DebugLine("CmdId = 1001"), Read("LIM"),
                                 DebugLine("LIM = 1"), DebugLine("NUMTYP = EX"), Read("GRP"), DebugLine("GRP = 100"),
                                 QueryLine(ofLIM)}) +
                              takeNumber + Lines({insert, commit}));
}

TEST_F(GroupHeadAdd, TracesTheLimitsWithWhatIsCounted) {
  EXPECT_TRUE(Add(AddTrace::Limits, {2, 1}));
  EXPECT_EQ(host.Calls(),
            Lines({start, QueryLine(system), DebugLine("MaxGroupsPerSystem = 3"), DebugLine("GroupsInSystem = 2"),
                   Call("scBuildCmdID"), Read("LIM"), Read("GRP"), DebugLine("LIM = 1"), QueryLine(ofLIM),
                   DebugLine("MaxGroupsPerLIM = 2"), DebugLine("GroupsInLIM = 1")}) +
                takeNumber + Lines({insert, commit}));
}

TEST_F(GroupHeadAdd, IsRefusedAtTheLimitOfTheSystemAlone) {
  EXPECT_FALSE(Add(AddTrace::Record, {3, 0}));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(system), MessageLine("Add: HEADS", "61017, 3"), rollBack}));
}

TEST_F(GroupHeadAdd, IsRefusedAtTheLimitOfTheLIMAlone) {
  EXPECT_FALSE(Add(AddTrace::Limits, {0, 2}));
  EXPECT_TRUE(
      host.Calls().ends_with(Lines({DebugLine("GroupsInLIM = 2"), MessageLine("Add: HEADS", "61023, 2"), rollBack})));
}

TEST_F(GroupHeadAdd, GoesOnBeyondBothLimits) { EXPECT_TRUE(Add(AddTrace::Record, {4, 3})); }

TEST_F(GroupHeadAdd, StopsAtTheStepThatFails) {
  host.Refuse("scRunQuery", AsSent(ofLIM));
  EXPECT_FALSE(Add(AddTrace::Record, {0, 0}));
  EXPECT_TRUE(host.Calls().ends_with(Lines({QueryLine(ofLIM), MessageLine("Add: HEADS", "61022, \"1\""), rollBack})));
}

// --- Edit.

// A place that is moved to by a trace, and refuses "full".
bool MoveTo(const Action& action, const Reporter& fail, const Value& value) {
  const Value old = OldValue(action, "SPOT");
  Debug("from ", old, " to ", value);
  return value != Value("full") || fail(LIMChangeRefused, "SPOT");
}

const std::string readSpot = "SELECT SPOT FROM HEADS{NL} WHERE CmdID = 7";
const std::string readGRP = "SELECT GRP FROM HEADS{NL} WHERE CmdID = 7";
const std::string readLIM = "SELECT LIM FROM HEADS{NL} WHERE CmdID = 7";

TEST(GroupHeadEdit, MovesTheNumberAndThePlaceAndWritesTheRest) {
  ScriptedHost host;
  host.Param("GRP", "101");
  host.Param("SPOT", "2");
  host.Rows(AsSent(readGRP), {{"100"}});
  host.Rows(AsSent(readSpot), {{"1"}});
  EXPECT_TRUE(host.With([] { return EditGroup(On("EditInfo", {"GRP", "SPOT", "LIM"}), "SPOT", MoveTo); }));
  EXPECT_EQ(host.Calls(),
            Lines({start, DebugLine("Number of changed parameters = 3"), Read("GRP"),
                   DebugLine("NewValue for GRP = 101"), QueryLine(readGRP), DebugLine("OldValue for GRP = 100"),
                   StatementLine(" UPDATE NANSI SET USED = False{NL}WHERE NUMSE = '100'"),
                   StatementLine(" UPDATE NANSI SET USED = True{NL}WHERE NUMSE = '101'"),
                   StatementLine("UPDATE UsedExtOpeGrp SET DIR = '101'{NL} WHERE DIR = '100'"), Read("SPOT"),
                   DebugLine("NewValue for SPOT = 2"), QueryLine(readSpot), DebugLine("OldValue for SPOT = 1"),
                   DebugLine("from 1 to 2"), Read("LIM"), DebugLine("NewValue for LIM = "),
                   StatementLine("UPDATE HEADS SET LIM = ''{NL} WHERE CmdId = 7"), commit}));
}

TEST(GroupHeadEdit, GoesOnAfterAFailureAndTheLastParameterDecides) {
  for (const bool lastIsWritten : {true, false}) {
    ScriptedHost host;
    host.Param("SPOT", "full");
    host.Rows(AsSent(readSpot), {{"1"}});
    if (!lastIsWritten) host.Refuse("scRunQuery", AsSent("UPDATE HEADS SET CUST = ''{NL} WHERE CmdId = 7"));
    EXPECT_EQ(host.With([] { return EditGroup(On("EditInfo", {"SPOT", "CUST"}), "SPOT", MoveTo); }), lastIsWritten);
    EXPECT_NE(host.Calls().find(MessageLine("Edit: HEADS", "61025, \"SPOT\"")), std::string::npos);
    EXPECT_TRUE(host.Calls().ends_with(
        lastIsWritten ? Lines({commit}) : Lines({MessageLine("Edit: HEADS", "61011, \"CUST\""), rollBack})));
  }
}

TEST(GroupHeadEdit, ARecordThatIsNotThereFailsTheCall) {
  ScriptedHost host;
  host.Rows(AsSent(readGRP), {});
  host.Refuse("scRunQuery", AsSent(readLIM));
  for (const char* name : {"GRP", "LIM"})
    EXPECT_THROW(host.With([&] { return EditGroupInLIM(On("EditInfo", {name})); }), RunTimeFailure) << name;
}

TEST(GroupHeadEdit, AMoveToAnotherLIMNeedsRoomForAHundredGroupsAndOneToItsOwnNone) {
  const std::string inNewLIM = "SELECT GRP FROM HEADS{NL} WHERE LIM = '2'";
  for (const std::size_t groups : {99, 100, 101}) {
    ScriptedHost host;
    host.Param("LIM", "2");
    host.Rows(AsSent(readLIM), {{"1"}});
    host.Rows(AsSent(inNewLIM), {std::vector<Value>(groups, "150")});
    EXPECT_EQ(host.With([] { return EditGroupInLIM(On("EditInfo", {"LIM"})); }), groups != 100) << groups;
  }
  ScriptedHost host;
  host.Param("LIM", "2");
  host.Rows(AsSent(readLIM), {{2}});
  EXPECT_TRUE(host.With([] { return EditGroupInLIM(On("EditInfo", {"LIM"})); }));
  EXPECT_EQ(host.Calls().find("GroupsInLIM"), std::string::npos);
}

// --- Delete.

TEST(GroupHeadDelete, FreesTheNumberAndLeavesTheRecord) {
  const std::string read = "SELECT GRP FROM HEADS{NL} WHERE CmdId = 7";
  ScriptedHost host;
  host.Rows(AsSent(read), {{"100"}});
  EXPECT_TRUE(host.With([] { return DeleteGroupInLIM(On("DeleteInfo")); }));
  EXPECT_EQ(host.Calls(),
            Lines({start, QueryLine(read), StatementLine(" UPDATE NANSI SET USED = False{NL}WHERE NUMSE = '100'"),
                   StatementLine(" DELETE * FROM UsedExtOpeGrp {NL} WHERE DIR = '100'"), commit}));
}

}  // namespace
}  // namespace cordboard
