#include "workbench/dialect/Shape.h"

#include <gmock/gmock.h>

#include <string>

namespace cordboard::workbench {
namespace {

using std::string;
using testing::ElementsAre;
using testing::IsEmpty;

string ShapeText(const string& statement) {
  const auto shape = ShapeOf(statement);
  return shape ? shape->text : "none";
}

TEST(Shape, HasASignForEachTextAndNumber) {
  const auto shape = ShapeOf("SELECT a FROM t WHERE b = 'x' AND c IN (7,-5, 1.5,2E3,'')");
  ASSERT_TRUE(shape);
  EXPECT_EQ(shape->text, "SELECT a FROM t WHERE b = ' AND c IN (?,?, ?,?,')");
  EXPECT_THAT(shape->literals, ElementsAre(Value("x"), Value(7), Value(-5), Value(1.5), Value(2000), Value("")));
}

TEST(Shape, TellsQuotesWithinATextFromItsEnd) {
  const auto shape = ShapeOf("UPDATE t SET a = 'it''s', b = '''', c = 'd'");
  ASSERT_TRUE(shape);
  EXPECT_EQ(shape->text, "UPDATE t SET a = ', b = ', c = '");
  EXPECT_THAT(shape->literals, ElementsAre(Value("it's"), Value("'"), Value("d")));
}

TEST(Shape, LeavesDigitsAndSignsInNamesAlone) {
  for (const char* statement :
       {"SELECT D1, SUB_2 FROM t3 WHERE a1 = b", "SELECT [it's 4] FROM [5] WHERE [a-6] = TRUE"}) {
    const auto shape = ShapeOf(statement);
    ASSERT_TRUE(shape) << statement;
    EXPECT_EQ(shape->text, statement);
    EXPECT_THAT(shape->literals, IsEmpty()) << statement;
  }
}

// A name that ends with a digit is no name with a number after it.
TEST(Shape, IsAnotherOneForOtherTokens) {
  EXPECT_NE(ShapeText("SELECT a0 FROM t"), ShapeText("SELECT a-5 FROM t"));
  EXPECT_NE(ShapeText("SELECT a FROM t WHERE b = '1'"), ShapeText("SELECT a FROM t WHERE b = 1"));
  EXPECT_NE(ShapeText("SELECT a FROM t WHERE b = '1'"), ShapeText("SELECT a FROM t WHERE c = '1'"));
  EXPECT_EQ(ShapeText("SELECT a FROM t WHERE b = '1'"), ShapeText("SELECT a FROM t WHERE b = 'it''s'"));
}

TEST(Shape, IsNothingForWhatHasToBeLookedAtAsAWhole) {
  EXPECT_EQ(ShapeText("SELECT a FROM t WHERE b LIKE '[1-2]%'"), "none");
  EXPECT_EQ(ShapeText("SELECT a FROM t WHERE b LIKE '1%'"), "SELECT a FROM t WHERE b LIKE '");
  for (const char* broken : {"SELECT a FROM t WHERE b = 'x", "SELECT [a FROM t", "SELECT a FROM t WHERE b = 1e999",
                             "SELECT a FROM t WHERE b = ?"})
    EXPECT_EQ(ShapeText(broken), "none") << broken;
  EXPECT_EQ(ShapeText("SELECT [a?] FROM t"), "SELECT [a?] FROM t");
  EXPECT_EQ(ShapeText(string("SELECT a FROM t WHERE b = 'x\0y'", 31)), "none");
}

}  // namespace
}  // namespace cordboard::workbench
