#include "shared/Usage.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

struct Step {
  std::string sql;     // as traced
  std::string report;  // the line of its failure
};

// Checks a routine that is a row of statements: with all of them taken, and with each of them refused in turn.
void ExpectSteps(const std::function<bool()>& routine, const std::vector<Step>& steps) {
  std::string done;
  for (const Step& step : steps) {
    ScriptedHost host;
    host.Refuse("scRunQuery", AsSent(step.sql));
    EXPECT_FALSE(host.With(routine));
    EXPECT_EQ(host.Calls(), done + Lines({StatementLine(step.sql), step.report}));
    done += Lines({StatementLine(step.sql)});
  }
  ScriptedHost host;
  EXPECT_TRUE(host.With(routine));
  EXPECT_EQ(host.Calls(), done);
}

Step Free(const std::string& number) {
  return {" UPDATE NANSI SET USED = False{NL}WHERE NUMSE = '" + number + "'",
          MessageLine("SetNumberUsed", "61005, \"" + number + "\"")};
}

Step Take(const std::string& number) {
  return {" UPDATE NANSI SET USED = True{NL}WHERE NUMSE = '" + number + "'",
          MessageLine("SetNumberUsed", "61005, \"" + number + "\"")};
}

Step Enter(const std::string& table, const std::string& context) {
  return {" INSERT INTO " + table + "{NL} (DIR, NUMTYP) {NL} VALUES ('100', 'EX')", MessageLine(context, "62000")};
}

TEST(Usage, MarksANumber) {
  ExpectSteps([] { return SetNumberUsed("100", true); }, {Take("100")});
  ExpectSteps([] { return SetNumberUsed("100", false); }, {Free("100")});
}

TEST(Usage, MarksAPosition) {
  const std::string report = MessageLine("SetEquipmentUsed", "61010, \"001-0-10-05\"");
  ExpectSteps([] { return SetEquipmentUsed("001-0-10-05", true); },
              {{"UPDATE EQUIPMENT SET USED = True{NL}WHERE EQU = '001-0-10-05'", report}});
  ExpectSteps([] { return SetEquipmentUsed("001-0-10-05", false); },
              {{"UPDATE EQUIPMENT SET USED = False{NL}WHERE EQU = '001-0-10-05'", report}});
}

TEST(Usage, MarksATrunkLineAndReportsAsForAPosition) {
  const std::string report = MessageLine("SetTruUsed", "61010, \"1-5\"");
  ExpectSteps([] { return SetTruUsed("1-5", true); },
              {{"UPDATE TRKLINE SET USED = True{NL}WHERE TRU = '1-5'", report}});
  ExpectSteps([] { return SetTruUsed("1-5", false); },
              {{"UPDATE TRKLINE SET USED = False{NL}WHERE TRU = '1-5'", report}});
}

TEST(Usage, PassesValuesOnAsTheyStand) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return SetNumberUsed(Value::Null(), true); }));
  EXPECT_FALSE(host.With([] { return SetEquipmentUsed(Value(), true); }));
  EXPECT_FALSE(host.With([] { return SetTruUsed(7, true); }));
  EXPECT_EQ(host.Calls(), Lines({StatementLine(" UPDATE NANSI SET USED = True{NL}WHERE NUMSE = ''"),
                                 MessageLine("SetNumberUsed", "61005, Null"),
                                 StatementLine("UPDATE EQUIPMENT SET USED = True{NL}WHERE EQU = ''"),
                                 MessageLine("SetEquipmentUsed", "61010, Empty"),
                                 StatementLine("UPDATE TRKLINE SET USED = True{NL}WHERE TRU = '7'"),
                                 MessageLine("SetTruUsed", "61010, 7")}));
}

TEST(Usage, FreesTheOldNumberBeforeItTakesTheNew) {
  ExpectSteps([] { return UpdateNANSI("100", "200"); }, {Free("100"), Take("200")});
}

TEST(Usage, ANumberThatStaysTheSameEndsTaken) {
  ExpectSteps([] { return UpdateNANSI("100", "100"); }, {Free("100"), Take("100")});
}

TEST(Usage, MovesARecordToAnotherPosition) {
  ExpectSteps(
      [] { return UpdateEQU("KSEXI", 7, "001-0-10-05", "002-0-10-06"); },
      {{"UPDATE EQUIPMENT SET USED = FALSE{NL} WHERE EQU = '001-0-10-05'",
        MessageLine("UpdateEQU", "61009, \"001-0-10-05\"")},
       {"UPDATE EQUIPMENT SET USED = TRUE{NL} WHERE EQU = '002-0-10-06'",
        MessageLine("UpdateEQU", "61010, \"002-0-10-06\"")},
       {"UPDATE KSEXI SET EQU = '002-0-10-06'{NL} WHERE CmdId = 7", MessageLine("UpdateEQU", "61011, \"EQU\"")}});
}

TEST(Usage, APositionThatStaysTheSameEndsMarked) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return UpdateEQU("KSEXI", 7, "E", "E"); }));
  EXPECT_EQ(host.Calls(), Lines({StatementLine("UPDATE EQUIPMENT SET USED = FALSE{NL} WHERE EQU = 'E'"),
                                 StatementLine("UPDATE EQUIPMENT SET USED = TRUE{NL} WHERE EQU = 'E'"),
                                 StatementLine("UPDATE KSEXI SET EQU = 'E'{NL} WHERE CmdId = 7")}));
}

const std::string tracesOfLIM =
    Lines({"scPrintToDebugWindow(\"Function UpdateLIM called\")", "scPrintToDebugWindow(\"  Table = ACGRI\")",
           "scPrintToDebugWindow(\"  CmdId = 7\")", "scPrintToDebugWindow(\"  OldLIM = 1\")",
           "scPrintToDebugWindow(\"  NewLIM = 2\")"});
const std::string writeLIM = StatementLine("UPDATE ACGRI SET LIM = '2'{NL} WHERE CmdId = 7");

TEST(Usage, MovesARecordToAnotherLIMAndOnlyTracesTheOld) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return UpdateLIM("ACGRI", 7, "1", "2"); }));
  EXPECT_EQ(host.Calls(), tracesOfLIM + Lines({writeLIM}));
}

TEST(Usage, ReportsALIMThatWasNotWritten) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_FALSE(host.With([] { return UpdateLIM("ACGRI", 7, "1", "2"); }));
  EXPECT_EQ(host.Calls(), tracesOfLIM + Lines({writeLIM, MessageLine("UpdateLIM", "60001, \"LIM\", \"ACGRI\"")}));
}

TEST(Usage, FreesANumberAndLeavesItInTheOtherTablesOfUsedNumbers) {
  ExpectSteps([] { return DeleteExtOpeGrp("100"); },
              {Free("100"),
               {" DELETE * FROM UsedExtOpeGrp {NL} WHERE DIR = '100'", MessageLine("DeleteExtOpeGrp: 100", "62000")}});
}

TEST(Usage, MovesTheUseOfANumber) {
  ExpectSteps([] { return UpdateExtOpeGrp("100", "200"); }, {Free("100"),
                                                             Take("200"),
                                                             {"UPDATE UsedExtOpeGrp SET DIR = '200'{NL} WHERE DIR = "
                                                              "'100'",
                                                              MessageLine("UpdateExtOpeGrp: 100", "62000")}});
}

TEST(Usage, TheUseOfANumberThatStaysTheSameEndsTaken) {
  ExpectSteps([] { return UpdateExtOpeGrp("100", "100"); }, {Free("100"),
                                                             Take("100"),
                                                             {"UPDATE UsedExtOpeGrp SET DIR = '100'{NL} WHERE DIR = "
                                                              "'100'",
                                                              MessageLine("UpdateExtOpeGrp: 100", "62000")}});
}

TEST(Usage, TakesTheNumberOfAnExtensionAndReportsUnderTheNameOfTheRelease) {
  const std::string context = "DeleteExtOpeGrp: 100";
  ExpectSteps([] { return InsertExtension("100", "EX"); },
              {Take("100"), Enter("UsedExtOpeGrp", context), Enter("UsedExtensionsAndOperators", context),
               Enter("UsedNumbers", context)});
}

TEST(Usage, TakesTheNumberOfAnOperator) {
  const std::string context = "InsertOperator: 100";
  ExpectSteps([] { return InsertOperator("100", "EX"); },
              {Take("100"), Enter("UsedExtOpeGrp", context), Enter("UsedExtensionsAndOperators", context)});
}

TEST(Usage, TakesTheNumberOfAGroup) {
  const std::string context = "InsertGroup: 100";
  ExpectSteps([] { return InsertGroup("100", "EX"); },
              {Take("100"), Enter("UsedExtOpeGrp", context), Enter("UsedGroups", context)});
}

TEST(Usage, AnEmptyAndANullNumberGiveNoCharacters) {
  ScriptedHost host;
  host.Refuse("scRunQuery", AsSent(" INSERT INTO UsedExtOpeGrp{NL} (DIR, NUMTYP) {NL} VALUES ('', '')"));
  EXPECT_FALSE(host.With([] { return InsertGroup(Value(), Value::Null()); }));
  EXPECT_EQ(host.Calls(), Lines({StatementLine(" UPDATE NANSI SET USED = True{NL}WHERE NUMSE = ''"),
                                 StatementLine(" INSERT INTO UsedExtOpeGrp{NL} (DIR, NUMTYP) {NL} VALUES ('', '')"),
                                 MessageLine("InsertGroup: ", "62000")}));
}

}  // namespace
}  // namespace cordboard
