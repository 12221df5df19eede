#include "script/Generate.h"

#include <gtest/gtest.h>

#include <memory>

#include "script/CurrentHost.h"
#include "script/TracingHost.h"
#include "support/EveryOperation.h"

namespace cordboard {
namespace {

TEST(Generate, ALineIsInsertedUnderTheOrderNumberCutToAWholeOne) {
  const auto host = std::make_shared<TracingHost>(AnsweringHost(Behaviour::AnswersTrue));
  SetCurrentHost(host);
  EXPECT_TRUE(InsertBuiltCmd({.ParamList = {"12.9"}}, "NANSI:NUMTYP=EX,NUMSE=100;"));
  ASSERT_EQ(host->calls().size(), 1U);
  EXPECT_EQ(host->calls()[0].call, "scRunQuery(\"INSERT INTO BuiltCmd VALUES (12,'NANSI:NUMTYP=EX,NUMSE=100;')\")");
  SetCurrentHost(nullptr);
}

TEST(Generate, TheAnswerOfTheInsertIsGivenBack) {
  SetCurrentHost(AnsweringHost(Behaviour::AnswersFalse));
  EXPECT_FALSE(InsertBuiltCmd({.ParamList = {1}}, "X:;"));
  SetCurrentHost(nullptr);
}

TEST(Generate, APieceOfALineIsLeftOutForANullAlone) {
  EXPECT_EQ(UnlessNull(",CUST=", Value::Null()), "");
  EXPECT_EQ(UnlessNull(",CUST=", Value()), ",CUST=");
  EXPECT_EQ(UnlessNull(",CUST=", ""), ",CUST=");
  EXPECT_EQ(UnlessNull(",CUST=", 3), ",CUST=3");
}

TEST(Generate, OrForEverythingThatIsBlank) {
  EXPECT_EQ(UnlessBlank(",CUST=", Value::Null()), "");
  EXPECT_EQ(UnlessBlank(",CUST=", Value()), "");
  EXPECT_EQ(UnlessBlank(",CUST=", ""), "");
  EXPECT_EQ(UnlessBlank(",CUST=", " "), ",CUST= ");
  EXPECT_EQ(UnlessBlank(",CUST=", 0), ",CUST=0");
}

}  // namespace
}  // namespace cordboard
