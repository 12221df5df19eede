#include "script/Value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "support/Outcome.h"

namespace cordboard {
namespace {

using Kind = Value::Kind;

TEST(Value, TakesItsKindFromWhatItIsMadeOf) {
  EXPECT_EQ(Value().kind(), Kind::Empty);
  EXPECT_EQ(Value::Null().kind(), Kind::Null);
  EXPECT_EQ(Value("100").kind(), Kind::Text);
  EXPECT_EQ(Value(std::string("100")).kind(), Kind::Text);
  EXPECT_EQ(Value(std::string_view("100")).kind(), Kind::Text);
  EXPECT_EQ(Value(100).kind(), Kind::Number);
  EXPECT_EQ(Value(std::int16_t{100}).kind(), Kind::Number);
  EXPECT_EQ(Value(std::size_t{100}).kind(), Kind::Number);
  EXPECT_EQ(Value(0.5).kind(), Kind::Number);
  EXPECT_EQ(Value(true).kind(), Kind::Truth);
  EXPECT_EQ(Value(false).kind(), Kind::Truth);
}

TEST(Value, IsNotMadeOfAPointerOrOfASingleChar) {
  EXPECT_FALSE((std::is_constructible_v<Value, const int*>));
  EXPECT_FALSE((std::is_constructible_v<Value, void*>));
  EXPECT_FALSE((std::is_constructible_v<Value, std::nullptr_t>));
  EXPECT_FALSE((std::is_constructible_v<Value, char>));
}

TEST(Value, HoldsItsContent) {
  EXPECT_EQ(Value("EX").text(), "EX");
  EXPECT_EQ(Value(std::string("a\0b", 3)).text(), std::string("a\0b", 3));
  EXPECT_EQ(Value(2.5).number(), 2.5);
  EXPECT_TRUE(Value(true).truth());
  EXPECT_FALSE(Value(false).truth());
}

struct Predicates {
  Value value;
  std::string holds;  // the predicates that hold
};

const std::vector<Predicates> predicates = {
    {Value(), "Empty Blank EmptyOrEmptyText "},
    {Value::Null(), "Null Blank "},
    {"", "Text EmptyText Blank EmptyOrEmptyText "},
    {" ", "Text "},
    {"0", "Text "},
    {0, "Number "},
    {false, "Truth "},
};

TEST(Value, EmptyNullAndTheEmptyTextAreThreeThingsAndBlankIsAnyOfThem) {
  for (const auto& [value, holds] : predicates) {
    std::string found;
    if (value.IsEmpty()) found += "Empty ";
    if (value.IsNull()) found += "Null ";
    if (value.IsText()) found += "Text ";
    if (value.IsNumber()) found += "Number ";
    if (value.IsTruth()) found += "Truth ";
    if (value.IsEmptyText()) found += "EmptyText ";
    if (value.IsBlank()) found += "Blank ";
    if (value.IsEmptyOrEmptyText()) found += "EmptyOrEmptyText ";
    EXPECT_EQ(found, holds) << TraceText(value);
  }
}

TEST(Value, IsEqualToTheSameKindWithTheSameContentAlone) {
  const std::vector<Value> different = {Value(), Value::Null(), "", "0", 0, false, true, 1, "1", "True"};
  for (std::size_t i = 0; i < different.size(); ++i) {
    for (std::size_t j = 0; j < different.size(); ++j) {
      EXPECT_EQ(different[i] == different[j], i == j) << TraceText(different[i]) << " and " << TraceText(different[j]);
    }
  }
}

}  // namespace
}  // namespace cordboard
