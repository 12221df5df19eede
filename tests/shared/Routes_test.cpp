#include "shared/Routes.h"

#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

TEST(Routes, ARowIsReadAsTextsWithoutOuterBlanksAndNullsAsEmptyTexts) {
  const RowSet rows({{" 3 ", "4"}, {Value::Null(), " a b"}, {7, Value()}});
  const auto [a, b, c] = TrimmedRow<3>(rows, 0);
  EXPECT_EQ(a, "3");
  EXPECT_EQ(b, "");
  EXPECT_EQ(c, "7");
  const auto [d, e, f] = TrimmedRow<3>(rows, 1);
  EXPECT_EQ(d, "4");
  EXPECT_EQ(e, "a b");
  EXPECT_EQ(f, "");
}

TEST(Routes, ARowOrAColumnThatIsMissingFails) {
  const RowSet rows({{"3"}, {"4"}});
  EXPECT_THROW(TrimmedRow<2>(rows, 1), RunTimeFailure);
  EXPECT_THROW(TrimmedRow<3>(rows, 0), RunTimeFailure);
  EXPECT_THROW(TrimmedRow<1>(RowSet(), 0), RunTimeFailure);
}

TEST(Routes, TheValueOfAColumnIsThatOfItsExactName) {
  const List columns = {"CMDID", "rou", "ROU"};
  const List values = {1, "3", "4"};
  EXPECT_EQ(ValueOf("ROU", columns, values), Value("4"));
  EXPECT_EQ(ValueOf("CUST", columns, values), Value());
}

}  // namespace
}  // namespace cordboard
