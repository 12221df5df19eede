#include "script/Statement.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace cordboard {
namespace {

TEST(Statement, JoinsItsPiecesInOrder) {
  const std::string table = "KSEXI";
  const std::int32_t CmdId = -7;
  EXPECT_EQ(Sql("DELETE * FROM ", table, NL, " WHERE CmdId = ", CmdId), "DELETE * FROM KSEXI\r\n WHERE CmdId = -7");
  EXPECT_EQ(Sql(), "");
}

TEST(Statement, EmptyAndNullGiveNoCharacters) {
  EXPECT_EQ(Sql("'", Value(), "','", Value::Null(), "','", Value(""), "'"), "'','',''");
}

TEST(Statement, TruthValuesAreTheirWordsAndNumbersTheirDigits) {
  EXPECT_EQ(Sql("USED = ", true, " OR ", false), "USED = True OR False");
  EXPECT_EQ(Sql(Value(5), " ", 2.5, " ", std::size_t{3}), "5 2.5 3");
}

TEST(Statement, ValuesGoInAsTheyStandWithoutEscaping) {
  EXPECT_EQ(Sql("NAME = '", Value("O'Hara \"x\" \\"), "'"), "NAME = 'O'Hara \"x\" \\'");
}

TEST(Statement, TextJoinsLinesInTheSameWay) {
  EXPECT_EQ(Text("NANSI:NUMTYP=", Value("EX"), ",NUMSE=", 100, ";"), "NANSI:NUMTYP=EX,NUMSE=100;");
}

}  // namespace
}  // namespace cordboard
