#include "workbench/actions/EmptyList.h"

#include <gtest/gtest.h>

#include "support/Road.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

class EmptyListTest : public testing::Test {
 protected:
  void Do(const std::string& line) { ASSERT_TRUE(Perform(session_, *ParsePlanLine(line)).done) << line; }

  // Why no value of the parameter is possible where the form has these values.
  std::string Why(const std::string& command, const std::string& parameter, const std::vector<Assignment>& given = {}) {
    Filling filling = FillForm(session_, *FindForm(command), given);
    sources_->Forget();
    const ValueList* list = filling.ListOf(parameter);
    if (filling.IsRefused() || list == nullptr || !list->First(1).empty()) return "it is not empty";
    return WhyEmpty(filling, parameter, *sources_);
  }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  std::shared_ptr<ListSources> sources_;
  Session session_{*exchange_, [this](std::shared_ptr<Host> workbench) {
                     return sources_ = std::make_shared<ListSources>(std::move(workbench));
                   }};
};

TEST_F(EmptyListTest, TablesWithoutRowsAreNamed) {
  EXPECT_EQ(Why("KSEXI", "DIR"), "no value is possible at present: there is nothing in NANSI");
  EXPECT_EQ(Why("GHGMI", "GRP"), "no value is possible at present: there is nothing in GHGRI");
}

TEST_F(EmptyListTest, OfAPoolIsToldHowManyAreFree) {
  Do("NANSI:NUMTYP=EX,NUMSE=100&101;");
  Do("EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;");
  EXPECT_EQ(Why("KSEXI", "DIR"), "it is not empty");
  Do("KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;");
  EXPECT_EQ(Why("KSEXI", "DIR"),
            "no value is possible at present: nothing fits of what is in NANSI (2, 0 of them free)");
}

TEST_F(EmptyListTest, ParametersOnWhichItDependsAreToldWithTheirValues) {
  EXPECT_EQ(Why("GHGMI", "DIR"), "no value is possible at present; it depends on GRP (not given)");
  EXPECT_EQ(Why("SYTDS", "CDNAS", {{"CDNAL", "5"}}), "it is not empty");
}

}  // namespace
}  // namespace cordboard::workbench
