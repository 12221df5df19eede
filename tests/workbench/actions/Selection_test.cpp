// Edits and deletes of many records at once.
#include "workbench/actions/Selection.h"

#include <gmock/gmock.h>

#include "support/Road.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {
namespace {

class SelectionTest : public testing::Test {
 protected:
  SelectionTest() {
    for (const char* line :
         {"NANSI:NUMTYP=EX,NUMSE=100&&199;", "EXCCS:CAT=1,TRAF=1,SERV_D6=1,CDIV_D1=1,ROC_D2=1;",
          "EXCCS:CAT=2,TRAF=2,SERV_D6=1,CDIV_D1=1,ROC_D2=1;", "KSEXI:DIR=100&&104,ITYPE=3,EQU=next,CAT=1;"})
      EXPECT_EQ(road_.Do(line), "done") << line;
  }

  std::string Categories() { return road_.Rows("SELECT DIR, CAT FROM KSEXI ORDER BY rowid"); }

  Road road_;
};

TEST_F(SelectionTest, AnEditOfSeveralChangesEveryRecordThatFits) {
  EXPECT_EQ(road_.Do("edit KSEXI DIR=101&&102&104:CAT=2;"), "done");
  EXPECT_EQ(Categories(), "100|1 101|2 102|2 103|1 104|2");
  EXPECT_EQ(road_.Do("edit KSEXI DIR=100&&104,CAT=2:CAT=1;"),
            "done\nthere is no record of KSEXI with DIR=100&103,CAT=2")
      << "of those the ones that have the rest";
  EXPECT_EQ(Categories(), "100|1 101|1 102|1 103|1 104|1");
  EXPECT_EQ(road_.Do("edit KSEXI CAT=1&2:CUST=2;"), "done\nthere is no record of KSEXI with CAT=2")
      << "several records of one value";
  EXPECT_EQ(road_.Rows("SELECT COUNT(*) FROM KSEXI WHERE CUST = '2'"), "5");
}

TEST_F(SelectionTest, ADeleteOfSeveralRemovesEveryRecordThatFits) {
  EXPECT_EQ(road_.Do("delete KSEXI DIR=101&&103;"), "done");
  EXPECT_EQ(Categories(), "100|1 104|1");
  EXPECT_EQ(road_.Do("delete NANSI NUMSE=110&&199;"), "done");
  EXPECT_EQ(road_.Rows("SELECT Start, End FROM NANSIBlockedRange"), "100|109");
}

TEST_F(SelectionTest, WhatIsNotThereIsToldAndRefusedWhereNothingIs) {
  EXPECT_EQ(road_.Do("edit KSEXI DIR=103&&106&150:CAT=2;"), "done\nthere is no record of KSEXI with DIR=105&&106&150");
  EXPECT_EQ(road_.Do("delete KSEXI DIR=150&&160;"), "there is no record of KSEXI with DIR=150&&160");
  EXPECT_EQ(road_.Do("delete KSEXI DIR=160&&150;"), "DIR=160&&150: the range 160&&150 ends before it begins");
  EXPECT_EQ(Categories(), "100|1 101|1 102|1 103|2 104|2");
}

TEST_F(SelectionTest, OneRecordThatIsRefusedRefusesAllAndEachIsNamed) {
  EXPECT_EQ(road_.Do("KSFKC:DIR=101,KEY=1,FCN=TNS,DIG=12;"), "done");
  EXPECT_EQ(road_.Do("edit KSEXI DIR=100&102&&103:CAT=77;").substr(0, 55),
            "CAT=77: record DIR=100: this value is not possible here");
  const std::string told = road_.Do("edit KSEXI DIR=100&102&&103:CAT=77;");
  for (const char* record : {"record DIR=100: ", "record DIR=102: ", "record DIR=103: "})
    EXPECT_NE(told.find(record), told.npos) << told;
}

TEST_F(SelectionTest, NextTakesOneForEach) {
  EXPECT_EQ(road_.Do("edit KSEXI DIR=102&100:EQU=next;"), "done");
  EXPECT_EQ(road_.Rows("SELECT DIR, EQU FROM KSEXI ORDER BY DIR"),
            "100|001-0-10-02 101|001-0-10-01 102|001-0-10-05 103|001-0-10-03 104|001-0-10-04")
      << "in the order typed: the position that 102 leaves is the next free one";
}

TEST_F(SelectionTest, AValueThatIsStoredWithTheSignIsFoundByItsOwnText) {
  road_.exchange().Dynamic().Run("UPDATE KSEXI SET CUST = '1&2' WHERE DIR IN ('100', '101')");
  road_.exchange().Dynamic().Run("UPDATE KSEXI SET CUST = '1' WHERE DIR = '102'");
  EXPECT_EQ(road_.Do("edit KSEXI CUST=1&2,DIR=101:CAT=2;"), "done");
  EXPECT_EQ(road_.Do("edit KSEXI CUST=1&2:CAT=2;"),
            "there are several records of KSEXI with CUST=1&2; select one by more of its parameters");
  EXPECT_EQ(road_.Do("edit KSEXI CUST=1&2,DIR=100&102:CAT=2;"),
            "done\nthere is no record of KSEXI with CUST=1&2,DIR=102")
      << "beside a list as well";
  EXPECT_EQ(Categories(), "100|2 101|2 102|1 103|1 104|1");
}

TEST_F(SelectionTest, InANameTheSignIsPartOfIt) {
  EXPECT_EQ(road_.Do("GESPI:CSP=0,DESCRIPTION=Smith;"), "done");
  EXPECT_EQ(road_.Do("GESPI:CSP=1,DESCRIPTION=Co;"), "done");
  EXPECT_EQ(road_.Do("delete GESPI DESCRIPTION=Smith&Co;"), "there is no record of GESPI with DESCRIPTION=Smith&Co");
  EXPECT_EQ(road_.Do("delete GESPI CSP=0&1,DESCRIPTION=Co;"),
            "done\nthere is no record of GESPI with CSP=0,DESCRIPTION=Co");
}

TEST_F(SelectionTest, ARecordThatHasGoneWithOneBeforeItIsPassedOver) {
  EXPECT_EQ(road_.Do("KSFKC:DIR=100&&101,KEY=1,FCN=TNS,DIG=12;"), "done");
  Selection selection =
      std::get<Selection>(FindRecords(road_.exchange(), *FindForm("KSFKC"), {{"DIR", "100&101"}, {"KEY", "1"}}));
  ASSERT_EQ(selection.records.size(), 2);
  EXPECT_EQ(selection.records[1].name, "DIR=101,KEY=1");
}

TEST_F(SelectionTest, RecordsOfTwoTablesAreSelectedTogether) {
  EXPECT_EQ(road_.Do("AUCOI:AUTH=1111,CHECK=1,CAT=1;"), "done");
  EXPECT_EQ(road_.Do("AUCOI:AUTH=2222,DIR=100,CAT=1;"), "done");
  EXPECT_EQ(road_.Do("edit AUCOI CAT=1&2:CAT=2;"), "done\nthere is no record of AUCOI with CAT=2");
  EXPECT_EQ(road_.Rows("SELECT CAT FROM AUCOI_Central UNION ALL SELECT CAT FROM AUCOI_Regional"), "2 2");
}

// --- The other way round.

TEST_F(SelectionTest, ARecordIsToldByItsKeyAndWhereThatIsNotEnoughByMoreOfWhatItHas) {
  const FormDefinition& form = *FindForm("KSEXI");
  const auto told = [&](const std::string& where) {
    const std::string identifier = road_.Rows("SELECT CmdId FROM KSEXI WHERE " + where);
    return Separated(SelectionOf(road_.exchange(), form, {&form, std::stoi(identifier)}), " ",
                     [](const Assignment& each) { return each.name + "=" + each.value; });
  };
  EXPECT_EQ(told("EQU = '001-0-10-01'"), "DIR=101");
  road_.Rows("UPDATE KSEXI SET DIR = '101' WHERE DIR = '102' RETURNING 1");
  EXPECT_THAT(told("EQU = '001-0-10-02'"), testing::StartsWith("DIR=101 EQU=001-0-10-02"));
  // Another one is the same in all it has.
  road_.Rows("UPDATE KSEXI SET EQU = '001-0-10-01' WHERE EQU = '001-0-10-02' RETURNING 1");
  EXPECT_THAT(told("EQU = '001-0-10-01' LIMIT 1"), testing::StartsWith("CMDID="));
  // No line can hold a line end.
  road_.Rows("UPDATE KSEXI SET DIR = '103' || CHAR(10) || 'x' WHERE DIR = '103' RETURNING 1");
  EXPECT_THAT(told("EQU = '001-0-10-03'"),
              testing::AllOf(testing::HasSubstr("EQU=001-0-10-03"), testing::Not(testing::HasSubstr("DIR"))));
}

}  // namespace
}  // namespace cordboard::workbench
