// "next" in a plan: the first values of a list as it then is.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "script/Conversions.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class NextValues : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_THAT(Refusals({"NANSI:NUMTYP=EX,NUMSE=100&&199;", "EXCCS:CAT=1,TRAF=1,SERV_D6=1,CDIV_D1=1,ROC_D2=1;"}),
                IsEmpty());
  }

  // Applies lines as one plan; gives what the refused ones were refused for.
  std::vector<std::string> Refusals(const std::vector<std::string>& lines) {
    std::stringstream plan;
    for (const std::string& line : lines) plan << line << '\n';
    std::vector<std::string> texts;
    for (const LineReport& report : ApplyPlan(session_, {{"plan", plan}}, {}).reports) {
      for (const Problem& problem : report.problems) texts.push_back(problem.parameter + ": " + problem.message);
    }
    return texts;
  }

  // "number position" of each extension, as they stand.
  std::vector<std::string> Extensions() {
    const RowSet rows = exchange_->Dynamic().Run("SELECT DIR || ' ' || EQU FROM KSEXI ORDER BY rowid");
    std::vector<std::string> all;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) all.push_back(Joined(rows[0][row]));
    return all;
  }

  Exchange& exchange() { return *exchange_; }

 private:
  std::unique_ptr<Exchange> exchange_ = ExampleExchange("R7");
  Session session_{*exchange_};
};

TEST_F(NextValues, AreAsManyAsTheOthersInStep) {
  EXPECT_THAT(Refusals({"KSEXI:DIR=140&&142,ITYPE=3,EQU=next,CAT=1;"}), IsEmpty());
  EXPECT_THAT(Extensions(), ElementsAre("140 001-0-10-00", "141 001-0-10-01", "142 001-0-10-02"));
}

TEST_F(NextValues, AreOneWhereNothingSaysMore) {
  EXPECT_THAT(Refusals({"KSEXI:DIR=next,ITYPE=3,EQU=next,CAT=1;", "KSANI:DIR=100,KEY=next,ADN=next,CAT=1;"}),
              IsEmpty());
  EXPECT_THAT(Extensions(), ElementsAre("100 001-0-10-00"));
  EXPECT_EQ(exchange().Dynamic().Single("SELECT KEY || ' ' || ADN FROM KSANI"), Value("1 101"));
}

TEST_F(NextValues, CanBeCounted) {
  EXPECT_THAT(Refusals({"KSEXI:DIR=next:2,ITYPE=3,EQU=next,CAT=1;", "KSEXI:ITYPE=3,DIR=next,EQU=next:2,CAT=1;"}),
              IsEmpty());
  EXPECT_THAT(Extensions(), ElementsAre("100 001-0-10-00", "101 001-0-10-01", "102 001-0-10-02", "103 001-0-10-03"));
}

TEST_F(NextValues, AreTakenFromTheListAsTheLinesBeforeLeaveIt) {
  EXPECT_THAT(Refusals({"KSEXI:DIR=100&&102,ITYPE=3,EQU=001-0-10-00&001-0-10-02&001-0-10-04,CAT=1;",
                        "KSEXI:DIR=next:2,ITYPE=3,EQU=next,CAT=1;", "delete KSEXI DIR=100;",
                        "KSEXI:DIR=next:2,ITYPE=3,EQU=next,CAT=1;"}),
              IsEmpty());
  EXPECT_THAT(Extensions(), ElementsAre("101 001-0-10-02", "102 001-0-10-04", "103 001-0-10-01", "104 001-0-10-03",
                                        "100 001-0-10-00", "105 001-0-10-05"));
}

TEST_F(NextValues, PassOverWhatIsTakenThoughItIsListed) {
  // The list for these instruments has all positions of a board of type 59, the taken ones too.
  EXPECT_THAT(Refusals({"KSEXI:DIR=100&&131,ITYPE=12,EQU=next,CAT=1;", "KSEXI:DIR=132,ITYPE=12,EQU=002-0-11-00,CAT=1;",
                        "KSEXI:DIR=133,ITYPE=12,EQU=next,CAT=1;"}),
              IsEmpty());
  EXPECT_EQ(Extensions().back(), "133 002-0-11-01");
}

TEST_F(NextValues, AreEachAnother) {
  exchange().Dynamic().Run("INSERT INTO Boards SELECT * FROM Boards WHERE BoardID = '31'");
  EXPECT_THAT(Refusals({"KSEXI:DIR=140&141,ITYPE=3,EQU=next,CAT=1;"}), IsEmpty());
  EXPECT_THAT(Extensions(), ElementsAre("140 001-0-10-00", "141 001-0-10-01"));
}

TEST_F(NextValues, ServeAnEditToo) {
  EXPECT_THAT(Refusals({"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "edit KSEXI DIR=100:DIR=next,EQU=next;"}),
              IsEmpty());
  EXPECT_THAT(Extensions(), ElementsAre("102 001-0-10-02", "101 001-0-10-01"));
}

TEST_F(NextValues, AreRefusedWhereThereAreNotAsMany) {
  EXPECT_THAT(Refusals({"KSEXI:DIR=100&&139,ITYPE=3,EQU=next,CAT=1;"}),
              Contains("EQU: of the values that are free there are 32 and not 40"));
  EXPECT_THAT(Refusals({"KSEXI:DIR=next:101,ITYPE=3,EQU=next:101,CAT=1;"}),
              Contains("DIR: of the values that are free there are 100 and not 101"));
  EXPECT_THAT(Refusals({"KSEXI:DIR=next:3,ITYPE=3,EQU=next:2,CAT=1;"}),
              ElementsAre(StartsWith("EQU: DIR and EQU go in pairs, and there are 3 and 2 of them")));
  EXPECT_THAT(Refusals({"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;", "KSFKC:DIR=100,KEY=next:2,FCN=DND;"}),
              ElementsAre("KEY: several values are not possible here; give one value"));
  EXPECT_THAT(Extensions(), IsEmpty());
}

TEST_F(NextValues, AreRefusedWithoutANumberBehindTheColon) {
  for (const char* count : {"", "0", "-1", "two", "2x", "100001", "99999999999999999999"}) {
    EXPECT_THAT(Refusals({std::string("KSEXI:DIR=next:") + count + ",ITYPE=3,EQU=next,CAT=1;"}),
                Contains("DIR: after next: the number of values is missing, such as next:20"))
        << count;
  }
}

TEST_F(NextValues, AreAWordLikeAnyOtherElsewhere) {
  EXPECT_THAT(Refusals({"EXCCS:CAT=2,TRAF=next,SERV_D6=1,DESCRIPTION=next:3;"}),
              ElementsAre("TRAF: this value should be a number: digits alone"));
  EXPECT_EQ(exchange().Dynamic().Single("SELECT TRAF || ' ' || DESCRIPTION FROM EXCCS WHERE CAT = '2'"),
            Value("next next:3"));
  EXPECT_THAT(Refusals({"KSEXI:DIR=100,ITYPE=next,EQU=next,CAT=1;"}),
              Contains("ITYPE: this value is not possible here"));
}

}  // namespace
}  // namespace cordboard::workbench
