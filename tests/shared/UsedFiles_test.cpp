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

TEST_F(UsedFiles, ThatRefuseTheNameRefuseItsRecord) {
  host.Param("FILE", "ALARMS");
  host.Refuse("scRunQuery", "INSERT INTO USEDFILES VALUES ( 'ALARMS')");
  EXPECT_FALSE(Do(AddFile, {"FILE"}));
  EXPECT_EQ(host.Effects(), Lines({start, entered, MessageLine("Add: FILES", R"(61024, "FILES")"), rollBack}));
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

}  // namespace
}  // namespace cordboard
