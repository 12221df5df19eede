// What the rules leave behind is found, and put in order by lines of a plan.

#include "workbench/plans/Mending.h"

#include <gmock/gmock.h>

#include "support/Road.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class LeftBehindIn : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    example_ = ExampleExchange("R7");
    Session session(*example_);
    for (const std::string& plan : ExamplePlans()) ASSERT_TRUE(ApplyExamplePlan(session, plan).kept) << plan;
    ofExample_ = MendedNow(session);
  }
  static void TearDownTestSuite() { example_.reset(); }

  // What is found after the statements, and the lines that mend it: "record: what; line; line". With all of them done
  // nothing is found but what no line mends.
  static Texts After(const Texts& statements) {
    Transaction transaction(*example_);
    for (const std::string& sql : statements) example_->Dynamic().Run(sql);
    Session session(*example_);
    return MendedNow(session);
  }
  static Texts AfterLine(const std::string& line) {
    Transaction transaction(*example_);
    Session session(*example_);
    EXPECT_TRUE(Perform(session, *ParsePlanLine(line)).done) << line;
    return MendedNow(session);
  }

  static inline std::unique_ptr<Exchange> example_;
  static inline Texts ofExample_;  // what was found in it, before it was mended

 private:
  static Texts MendedNow(Session& session) {
    Texts texts;
    std::size_t hopeless = 0;
    for (const Mended& mended : MendAll(session)) {
      std::string& text = texts.emplace_back();
      if (mended.found.record)
        text = mended.found.record->record->command + ", " + mended.found.reference->column + ": ";
      text += InWords(mended.found);
      for (const UserAction& action : mended.by) text += " | " + WrittenLine(action);
      if (mended.by.empty()) ++hopeless;
    }
    EXPECT_EQ(FindLeftBehind(*example_).size(), hopeless);
    return texts;
  }
};

// A terminal has gone to another position, and freed the one on which a further one stands.
TEST_F(LeftBehindIn, TheExampleIsOneMark) {
  EXPECT_THAT(ofExample_, ElementsAre("ITNUI, EQU: the position 002-0-12-00 is not marked as used | edit ITNUI "
                                      "DIR=130:EQU=002-0-12-00;"));
}

TEST_F(LeftBehindIn, WhatIsMendedIsNothing) { EXPECT_THAT(After({}), IsEmpty()); }

// Its key extension and another terminal stand on the position; to mark it for the one marks it for both.
TEST_F(LeftBehindIn, ADeletedTerminalIsTheMarkOfItsPosition) {
  EXPECT_THAT(AfterLine("delete ITNUI DIR=120;"),
              ElementsAre("KSEXI, EQU: the position 001-0-11-00 is not marked as used | edit KSEXI "
                          "DIR=216:EQU=001-0-11-00;"));
}

TEST_F(LeftBehindIn, ADeletedExtensionAreItsKeys) {
  EXPECT_THAT(AfterLine("delete KSEXI DIR=201;"),
              ElementsAre("KSFKC, DIR: there is no key extension 201 (KSEXI) | delete KSFKC DIR=201,KEY=1;",
                          "KSFKC, DIR: there is no key extension 201 (KSEXI) | delete KSFKC DIR=201,KEY=5;",
                          "KSMDI, DIR: there is no key extension 201 (KSEXI) | delete KSMDI DIR=201,KEY=2;"));
}

TEST_F(LeftBehindIn, AMissingCustomerIsClearedWhereItCanBe) {
  EXPECT_THAT(After({"UPDATE KSEXI SET CUST = '77' WHERE DIR = '205'"}),
              ElementsAre("KSEXI, CUST: there is no customer 77 | edit KSEXI DIR=205:CUST=;"));
}

TEST_F(LeftBehindIn, ABlankCategoryGivesWayToOneThatIsFilledIn) {
  const Texts found = After({"UPDATE EXCCS SET SERV = NULL WHERE CAT = '1'"});
  EXPECT_THAT(found, Contains("KSEXI, CAT: the category 1 is blank (EXCCS) | edit KSEXI DIR=201:CAT=0;"));
  EXPECT_THAT(found, testing::Each(testing::HasSubstr("the category 1 is blank (EXCCS) | edit ")));
}

TEST_F(LeftBehindIn, APositionThatTwoHaveIsTakenFromTheLater) {
  // The rules free the position with the one that leaves it, so that the other has to take it again.
  EXPECT_THAT(
      After({"UPDATE KSEXI SET EQU = '001-0-10-02' WHERE DIR = '204'"}),
      ElementsAre(
          "KSEXI, EQU: the position 001-0-10-02 is that of the key extension DIR=202 (KSEXI) as well | edit KSEXI "
          "DIR=204:EQU=002-0-10-13;",
          "KSEXI, EQU: the position 001-0-10-02 is not marked as used | edit KSEXI DIR=202:EQU=001-0-10-02;",
          "the position 001-0-10-04 is marked as used, and no record has it"));
}

// The one that was there first has moved, since its own trouble came before.
TEST_F(LeftBehindIn, WhatTwoHadIsLeftToTheOneThatStays) {
  Transaction transaction(*example_);
  example_->Dynamic().Run("UPDATE KSEXI SET EQU = '001-0-10-02' WHERE DIR = '204'");
  const std::vector<LeftBehind> found = FindLeftBehind(*example_);
  const auto shared = std::ranges::find(found, LeftBehind::Kind::Shared, &LeftBehind::kind);
  ASSERT_NE(shared, found.end());
  EXPECT_TRUE(Stands(*example_, *shared));
  example_->Dynamic().Run("UPDATE KSEXI SET EQU = '001-0-10-20' WHERE DIR = '202'");
  EXPECT_FALSE(Stands(*example_, *shared));
}

TEST_F(LeftBehindIn, AMarkComesAgainWithItsRecord) {
  EXPECT_THAT(After({"UPDATE NANSI SET USED = 0 WHERE NUMSE = '203'"}),
              ElementsAre("KSEXI, DIR: the number 203 is not marked as used | delete KSEXI DIR=203; | "
                          "KSEXI:DIR=203,ITYPE=3,EQU=001-0-10-03,CAT=1,CUST=1,CALALT=0,LANG=1;"));
  EXPECT_THAT(After({"UPDATE Equipment SET USED = 0 WHERE EQU = '001-0-20-01'"}),
              ElementsAre("ROEQI, EQU: the position 001-0-20-01 is not marked as used | delete ROEQI "
                          "EQU=001-0-20-01,TRU=1-01; | ROEQI:ROU=1,EQU=001-0-20-01,TRU=1-01;"));
}

TEST_F(LeftBehindIn, ADirectoryRecordThatNobodyTookGoes) {
  EXPECT_THAT(After({"UPDATE GEDII SET TYPE = 'IP' WHERE DIR = '106'"}),
              ElementsAre("the directory record 106 is marked as used, and no record has it | delete GEDII DIR=106;"));
}

// To delete a number frees the positions of operators and lines: such help is none.
TEST_F(LeftBehindIn, AMendThatDoesHarmIsNotTaken) {
  EXPECT_THAT(After({"UPDATE NANSI SET USED = 1 WHERE NUMSE = '126'"}),
              ElementsAre("the number 126 is marked as used, and no record has it"));
}

// Where one line is in the way of another they come in the order that serves.
TEST_F(LeftBehindIn, WhatIsRefusedAtFirstIsTriedAgain) {
  Texts lines;
  for (const std::string& text : AfterLine("delete NANSI NUMSE=80;")) {
    if (!text.starts_with("RODDI")) continue;
    EXPECT_THAT(text, testing::HasSubstr(" | "));
    lines.push_back(text.substr(text.find(" | ") + 3));
  }
  EXPECT_EQ(lines.size(), 4u);
}

// What the rules leave behind by that is found all the same.
TEST_F(LeftBehindIn, ADeletedSeriesAreTheMarksOfOthers) {
  const Texts found = AfterLine("delete NANSI NUMSE=126;");
  EXPECT_THAT(found, Contains("OPERI, EQU: the position 001-0-11-24 is not marked as used | edit OPERI "
                              "DIR=900:EQU=001-0-11-24;"));
  EXPECT_THAT(found, testing::Each(testing::HasSubstr("is not marked as used")));
  // Those of radio units have no record of their own.
  EXPECT_THAT(found, Contains("the position 001-0-18-1 is not marked as used"));
}

}  // namespace
}  // namespace cordboard::workbench
