#include "shared/UsedFiles.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string read = "SELECT FILE FROM FILES WHERE CMDID = 7";
const std::string entered = StatementLine("INSERT INTO USEDFILES VALUES ( 'ALARMS')");
const std::string renamed = StatementLine("UPDATE USEDFILES SET FILE =  'FAULTS'{NL}WHERE FILE ='ALARMS'{NL}");
const std::string left = StatementLine("DELETE * FROM USEDFILES{NL} WHERE FILE = 'ALARMS'");

struct UsedFiles : testing::Test {
  ScriptedHost host;

  bool Do(bool (*worker)(const Action&), const List& parameters = {}) {
    return host.With([&] { return worker({.CmdName = "FILES", .CmdId = 7, .ParamList = parameters}); });
  }
};

TEST_F(UsedFiles, HaveTheNameBeforeItsRecord) {
  host.Param("FILE", "ALARMS");
  EXPECT_TRUE(Do(AddFile, {"FILE", "NUMTYP"}));
  EXPECT_EQ(host.Effects(),
            Lines({start, entered, R"(scSQLInsert("FILES", ["FILE", "NUMTYP"], ["ALARMS", ""]))", commit}));
}

TEST_F(UsedFiles, ThatRefuseTheNameEndAnAddInSilence) {
  host.Param("FILE", "ALARMS");
  host.Refuse("scRunQuery", "INSERT INTO USEDFILES VALUES ( 'ALARMS')");
  EXPECT_FALSE(Do(AddFile, {"FILE"}));
  EXPECT_EQ(host.Effects(), Lines({start, entered, rollBack}));
}

TEST_F(UsedFiles, KeepTheNameOfARecordThatIsRefusedUntilTheRollBack) {
  host.Param("FILE", "ALARMS");
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(Do(AddFile, {"FILE"}));
  EXPECT_EQ(host.Effects(), Lines({start, entered, R"(scSQLInsert("FILES", ["FILE"], ["ALARMS"]))",
                                   MessageLine("Add: FILES", R"(61024, "FILES")"), rollBack}));
}

TEST_F(UsedFiles, TakeANewNameAlone) {
  host.Param("FILE", "FAULTS");
  host.Rows(read, {{"ALARMS"}});
  EXPECT_TRUE(Do(EditFile, {"FILE"}));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(read), renamed, commit}));
}

TEST_F(UsedFiles, OfARecordThatIsNotThereKeepTheirNames) {
  host.Param("FILE", "FAULTS");
  host.Rows(read, {});
  EXPECT_TRUE(Do(EditFile, {"FILE"}));
  EXPECT_TRUE(Do(DeleteFile));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(read), commit, start, QueryLine(read), commit}));
}

TEST_F(UsedFiles, WhoseOldNameCannotBeReadEndAnEdit) {
  host.Param("FILE", "FAULTS");
  host.Refuse("scRunQuery", read);
  EXPECT_FALSE(Do(EditFile, {"FILE", "PATH"}));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(read), MessageLine("Edit: FILES", R"(61011, "FILE")"), rollBack}));
}

TEST_F(UsedFiles, DoNotKeepAnotherColumn) {
  host.Param("PATH", "/logs");
  EXPECT_TRUE(Do(EditFile, {"PATH"}));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine("UPDATE FILES SET PATH = '/logs'{NL} WHERE CmdId = 7"), commit}));
}

TEST_F(UsedFiles, LoseTheNameAndLeaveTheRecord) {
  host.Rows(read, {{"ALARMS"}});
  EXPECT_TRUE(Do(DeleteFile));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(read), left, commit}));
}

TEST_F(UsedFiles, WhoseNameCannotBeReadLoseNothing) {
  host.Refuse("scRunQuery", read);
  EXPECT_TRUE(Do(DeleteFile));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(read), commit}));
}

TEST_F(UsedFiles, ThatKeepTheNameEndADelete) {
  host.Rows(read, {{"ALARMS"}});
  host.Refuse("scRunQuery", "DELETE * FROM USEDFILES\r\n WHERE FILE = 'ALARMS'");
  EXPECT_FALSE(Do(DeleteFile));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(read), left, MessageLine("Delete: FILES", R"(61012, "FILES", 7)"), rollBack}));
}

// --- Heads.

const std::string headOfCALLS = "SELECT COUNT(*) FROM CLOHI WHERE FILE = 'CALLS'";
const std::string headWithoutFile = "SELECT COUNT(*) FROM CLOHI WHERE FILE = ''";

struct Heads {
  Value count;
  bool has;
};

class UsedFilesWithHeads : public UsedFiles, public testing::WithParamInterface<Heads> {};

TEST_P(UsedFilesWithHeads, HaveAHeadUnlessTheCountIsZero) {
  host.Param("FILE", "CALLS");
  host.Rows(headOfCALLS, {{GetParam().count}});
  EXPECT_EQ(Do(HasHead, {"ORIG", "FILE"}), GetParam().has);
}

INSTANTIATE_TEST_SUITE_P(Counts, UsedFilesWithHeads,
                         testing::Values(Heads{1, true}, Heads{"2", true}, Heads{Value::Null(), true}, Heads{0, false},
                                         Heads{"0", false}, Heads{Value(), false}));

TEST_F(UsedFiles, AreReadForTheirHeadAsOftenAsTheyAreNamed) {
  host.Param("FILE", "CALLS");
  host.Rows(headOfCALLS, {{1}});
  EXPECT_TRUE(Do(HasHead, {"FILE", "ORIG", "FILE"}));
  EXPECT_EQ(host.Calls(), Lines({R"(scGetParamValue("FILE"))", R"(scGetParamValue("FILE"))", QueryLine(headOfCALLS)}));
}

TEST_F(UsedFiles, AreEmptyWhereTheyAreNotNamed) {
  host.Param("FILE", "CALLS");
  host.Rows(headWithoutFile, {{0}});
  EXPECT_FALSE(Do(HasHead, {"ORIG", "file"}));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(headWithoutFile)}));
}

TEST_F(UsedFiles, WhoseHeadsAreNotCountedFailTheCall) {
  host.Rows(headWithoutFile, {});
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange, [&] { Do(HasHead, List(std::vector<Value>{})); });
}

}  // namespace
}  // namespace cordboard
