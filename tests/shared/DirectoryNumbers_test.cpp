#include "shared/DirectoryNumbers.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const Action action{.FunctionName = "EditInfo", .CmdName = "IPEXI", .CmdId = 7};

const std::string read = "SELECT DIR FROM IPEXI WHERE CmdId = 7";
const std::string cleared = StatementLine("UPDATE IPEXI SET DIR = Null{NL} WHERE CmdId = 7");
const std::string written = StatementLine("UPDATE IPEXI SET DIR = '201'{NL} WHERE CmdId = 7");
const std::string deleted = StatementLine("DELETE * FROM IPEXI{NL} WHERE CmdId = 7");

std::string Taken(const std::string& DIR) {
  return StatementLine("UPDATE GEDII SET TYPE = 'IP'{NL} WHERE DIR = '" + DIR + "'");
}
std::string Freed(const std::string& DIR) {
  return StatementLine("UPDATE GEDII SET TYPE = Null{NL} WHERE DIR = '" + DIR + "'");
}

struct DirectoryNumbers : testing::Test {
  ScriptedHost host;

  bool Move(const Value& value) {
    return host.With([&] { return MoveDirectoryNumber(action, "DIR", value, "IP"); });
  }
  bool Delete() {
    return host.With([&] { return DeleteRowAndFreeNumber(action, "DIR"); });
  }
};

TEST_F(DirectoryNumbers, ThoseWithoutATypeAreOffered) {
  EXPECT_TRUE(host.With([] { return ListFreeDirectoryNumbers(action); }));
  EXPECT_EQ(host.Calls(), Lines({Call("scCollectSingleValues", "SELECT DIR FROM GEDII WHERE TYPE IS NULL")}));
}

TEST_F(DirectoryNumbers, AListThatIsRefusedIsNotReported) {
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.With([] { return ListFreeDirectoryNumbers(action); }));
  EXPECT_EQ(host.Calls(), Lines({Call("scCollectSingleValues", "SELECT DIR FROM GEDII WHERE TYPE IS NULL")}));
}

TEST_F(DirectoryNumbers, TheOldOneIsFreedBeforeTheNewOneIsTaken) {
  host.Rows(read, {{"200"}});
  EXPECT_TRUE(Move("201"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), Freed("200"), written, Taken("201")}));
}

TEST_F(DirectoryNumbers, AnEmptyValueIsWrittenAsNullAndTakesNothing) {
  host.Rows(read, {{"200"}});
  EXPECT_TRUE(Move(Value()));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), Freed("200"), cleared}));
}

TEST_F(DirectoryNumbers, WithoutARecordTheEmptyNumberIsFreed) {
  host.Rows(read, {});
  EXPECT_TRUE(Move("201"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), Freed(""), written, Taken("201")}));
}

TEST_F(DirectoryNumbers, WhetherTheOldOneCanBeReadIsNotTested) {
  host.Refuse("scRunQuery", read);
  EXPECT_TRUE(Move("201"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), Freed(""), written, Taken("201")}));
}

TEST_F(DirectoryNumbers, AMoveEndsAtTheFirstStepThatFails) {
  host.Rows(read, {{"200"}});
  host.Refuse("scRunQuery", "UPDATE IPEXI SET DIR = '201'\r\n WHERE CmdId = 7");
  EXPECT_FALSE(Move("201"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), Freed("200"), written}));
}

TEST_F(DirectoryNumbers, TheFirstOfTwoRowsHasTheOldOne) {
  host.Rows(read, {{"200", "199"}});
  EXPECT_TRUE(Move("201"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), Freed("200"), written, Taken("201")}));
}

// --- A delete.

TEST_F(DirectoryNumbers, IsFreedBehindItsRecord) {
  host.Rows(read, {{"200"}});
  EXPECT_TRUE(Delete());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), deleted, Freed("200")}));
}

TEST_F(DirectoryNumbers, NothingIsFreedWithoutARecord) {
  host.Rows(read, {});
  EXPECT_TRUE(Delete());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), deleted}));
}

TEST_F(DirectoryNumbers, ANullIsFreedAsTheEmptyNumber) {
  host.Rows(read, {{Value::Null()}});
  EXPECT_TRUE(Delete());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), deleted, Freed("")}));
}

TEST_F(DirectoryNumbers, TheRowOfAReadThatIsRefusedCounts) {
  host.Rows(read, {{"200"}});
  host.Refuse("scRunQuery", read);
  EXPECT_TRUE(Delete());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), deleted, Freed("200")}));
}

TEST_F(DirectoryNumbers, StaysTakenWhereTheRecordStays) {
  host.Rows(read, {{"200"}});
  host.Refuse("scRunQuery", "DELETE * FROM IPEXI\r\n WHERE CmdId = 7");
  EXPECT_FALSE(Delete());
  EXPECT_EQ(host.Calls(), Lines({QueryLine(read), deleted}));
}

TEST_F(DirectoryNumbers, ADeleteHasTheEnvelope) {
  host.Rows(read, {});
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.With([] { return DeleteWithDirectoryNumber(action, "DIR"); }));
  EXPECT_EQ(host.Calls(), Lines({Call("scStartTransaction"), QueryLine(read), deleted, Call("scCommitTransaction"),
                                 MessageLine("Delete: IPEXI", "62011")}));
}

// --- The work of an add and of an edit.

struct RecordWithDirectoryNumber : testing::Test {
  ScriptedHost host;
  const Reporter fail{"Edit: IPEXI"};

  bool Insert() {
    const Action add{.CmdName = "IPEXI", .ParamList = {"DIR", "PASSW"}};
    return host.With([&] { return InsertWithDirectoryNumber(add, fail, "DIR", "IP"); });
  }
  bool Edit(const List& parameters) {
    const Action edit{.CmdName = "IPEXI", .CmdId = 7, .ParamList = parameters};
    return host.With([&] { return EditWithDirectoryNumber(edit, fail, "DIR", "IP"); });
  }
};

TEST_F(RecordWithDirectoryNumber, TakesTheNumberInItsTurnBeforeTheInsert) {
  host.Param("DIR", "200");
  EXPECT_TRUE(Insert());
  EXPECT_EQ(host.Calls(), Lines({Read("DIR"), Taken("200"), Read("PASSW"),
                                 R"(scSQLInsert("IPEXI", ["DIR", "PASSW"], ["200", Empty]))"}));
}

TEST_F(RecordWithDirectoryNumber, IsNotInsertedWithoutItsNumberAndNothingIsReported) {
  host.Param("DIR", "200");
  host.Refuse("scRunQuery", "UPDATE GEDII SET TYPE = 'IP'\r\n WHERE DIR = '200'");
  EXPECT_FALSE(Insert());
  EXPECT_EQ(host.Calls(), Lines({Read("DIR"), Taken("200"), Read("PASSW")}));
}

TEST_F(RecordWithDirectoryNumber, AnInsertThatFailsIsReported) {
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(Insert());
  EXPECT_TRUE(host.Calls().ends_with(MessageLine("Edit: IPEXI", R"(61024, "IPEXI")") + "\n"));
}

TEST_F(RecordWithDirectoryNumber, AnEditMovesTheNumberAndPassesOverTheIdentifier) {
  host.Param("DIR", "201");
  host.Rows(read, {{"200"}});
  EXPECT_TRUE(Edit({"CMDID", "PASSW", "DIR"}));
  EXPECT_EQ(host.Calls(), Lines({Read("PASSW"), StatementLine("UPDATE IPEXI SET PASSW = Null{NL} WHERE CmdId = 7"),
                                 Read("DIR"), QueryLine(read), Freed("200"), written, Taken("201")}));
}

TEST_F(RecordWithDirectoryNumber, AnEditEndsAtTheFirstParameterThatFails) {
  host.Param("DIR", "201");
  host.Rows(read, {{"200"}});
  host.Refuse("scRunQuery", "UPDATE GEDII SET TYPE = Null\r\n WHERE DIR = '200'");
  EXPECT_FALSE(Edit({"DIR", "PASSW"}));
  EXPECT_EQ(host.Calls(),
            Lines({Read("DIR"), QueryLine(read), Freed("200"), MessageLine("Edit: IPEXI", R"(61011, "DIR")")}));
}

}  // namespace
}  // namespace cordboard
