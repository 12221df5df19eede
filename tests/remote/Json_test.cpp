#include "remote/Json.h"

#include <gtest/gtest.h>

#include <limits>

#include "remote/RequestError.h"
#include "script/RunTimeFailure.h"

namespace cordboard::remote {
namespace {

using Cause = RunTimeFailure::Cause;

template <typename Work>
std::string CauseOf(Work work) {
  try {
    work();
  } catch (const RunTimeFailure& failure) {
    return std::string(Name(failure.cause()));
  }
  return "";
}

std::string Refusal(const std::string& line) {
  try {
    Parse(line);
  } catch (const RequestError& error) {
    return std::to_string(static_cast<int>(error.code())) + " " + error.what();
  }
  return "";
}

// --- Values.

struct Kind {
  Value value;
  const char* json;
};

class JsonValue : public testing::TestWithParam<Kind> {};

TEST_P(JsonValue, GoesBothWays) {
  const auto& [value, json] = GetParam();
  EXPECT_EQ(Line(ToJson(value)), json);
  EXPECT_EQ(ToValue(Parse(json)), value);
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, JsonValue,
                         testing::Values(Kind{Value(), R"({"empty":true})"}, Kind{Value::Null(), "null"},
                                         Kind{"", R"("")"}, Kind{"100&&199", R"("100&&199")"},
                                         Kind{"it's \"so\" \\", R"("it's \"so\" \\")"},
                                         Kind{"a\r\nb\tc\x01", R"("a\r\nb\tc\u0001")"},
                                         Kind{"Åsa Ünal 电话 \U0001F4DE", "\"Åsa Ünal 电话 📞\""},
                                         Kind{std::string("a\0b", 3), R"("a\u0000b")"}, Kind{true, "true"},
                                         Kind{false, "false"}, Kind{0, "0"}, Kind{5, "5"}, Kind{-32769, "-32769"},
                                         Kind{2147483648.0, "2147483648"}, Kind{9007199254740992.0, "9007199254740992"},
                                         Kind{-4611686018427387904.0, "-4611686018427387904"}, Kind{0.5, "0.5"},
                                         Kind{-1.25, "-1.25"}, Kind{1e300, "1e+300"}, Kind{1e-7, "1e-07"},
                                         Kind{9223372036854775808.0, "9.223372036854776e+18"},
                                         Kind{std::numeric_limits<double>::max(), "1.7976931348623157e+308"}));

TEST(JsonValue, TakesNumbersInAnyNotation) {
  EXPECT_EQ(ToValue(Parse("5.0")), Value(5));
  EXPECT_EQ(ToValue(Parse("5e2")), Value(500));
  EXPECT_EQ(ToValue(Parse("18446744073709551615")), Value(18446744073709551615.0));
  EXPECT_EQ(ToValue(Parse("123456789012345678901234567890")), Value(123456789012345678901234567890.0));
  EXPECT_EQ(Line(ToJson(ToValue(Parse("5.0")))), "5");
}

TEST(JsonValue, OfANumberThatIsNotFiniteFailsWithOverflow) {
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(CauseOf([&] { ToJson(Value(infinite)); }), "Overflow");
  EXPECT_EQ(CauseOf([&] { ToJson(Value(-infinite)); }), "Overflow");
  EXPECT_EQ(CauseOf([&] { ToJson(Value(std::numeric_limits<double>::quiet_NaN())); }), "Overflow");
  EXPECT_EQ(CauseOf([&] { ToJson(List{"1", Value(infinite)}); }), "Overflow");
}

TEST(JsonValue, ReplacesBytesThatArePartOfNoCharacter) {
  EXPECT_EQ(Line(ToJson(Value("a\xff"
                              "b\xc3"))),
            "\"a\xef\xbf\xbd"
            "b\xef\xbf\xbd\"");
}

TEST(JsonValue, IsNoArrayAndNoOtherObject) {
  for (const char* json : {"[]", "[1]", "{}", R"({"empty":false})", R"({"empty":1})", R"({"empty":true,"a":1})",
                           R"({"out":true})", R"({"Empty":true})"})
    EXPECT_EQ(CauseOf([&] { ToValue(Parse(json)); }), "TypeMismatch") << json;
}

// --- Lists.

TEST(JsonList, GoesBothWays) {
  const List mixed{"100", 5, Value(), Value::Null(), true};
  const std::string json = R"(["100",5,{"empty":true},null,true])";
  EXPECT_EQ(Line(ToJson(mixed)), json);
  EXPECT_EQ(ToList(Parse(json)), mixed);
}

TEST(JsonList, TellsEmptyNullAndNoElementsApart) {
  EXPECT_EQ(Line(ToJson(List())), R"({"empty":true})");
  EXPECT_EQ(Line(ToJson(List::Null())), "null");
  EXPECT_EQ(Line(ToJson(List(std::vector<Value>()))), "[]");
  EXPECT_TRUE(ToList(Parse(R"({"empty":true})")).IsEmpty());
  EXPECT_TRUE(ToList(Parse("null")).IsNull());
  EXPECT_EQ(ToList(Parse("[]")).UpperBound(), -1);
}

TEST(JsonList, IsNoSingleValueAndNoRowSet) {
  for (const char* json : {R"("100")", "1", "true", "{}", R"([["100"]])", R"(["1",{}])"})
    EXPECT_EQ(CauseOf([&] { ToList(Parse(json)); }), "TypeMismatch") << json;
}

// --- Row sets.

TEST(JsonRowSet, IsReadByColumns) {
  const RowSet rows = ToRowSet(Parse(R"([["100","200"],[1,null],[{"empty":true},""]])"));
  EXPECT_EQ(rows, RowSet({{"100", "200"}, {1, Value::Null()}, {Value(), ""}}));
}

TEST(JsonRowSet, WithoutRowsIsEmpty) {
  for (const char* json : {R"({"empty":true})", "[]", "[[]]", "[[],[],[]]"})
    EXPECT_TRUE(ToRowSet(Parse(json)).IsEmpty()) << json;
}

TEST(JsonRowSet, IsNoListNoNullAndHasNoRaggedColumns) {
  for (const char* json : {"null", R"(["100"])", "[null]", R"("100")", "true", "{}", R"([["1","2"],["3"]])",
                           R"([[],["3"]])", R"([["1"],"2"])", R"([[["1"]]])"})
    EXPECT_EQ(CauseOf([&] { ToRowSet(Parse(json)); }), "TypeMismatch") << json;
}

// --- Lines.

TEST(JsonLine, ThatIsNotJsonIsRefusedWithThePlace) {
  EXPECT_EQ(Refusal(R"({"a":)"), "-32700 the line is not JSON, at byte 6");
  for (const char* line : {"", " ", "{", "]", "{'a':1}", "[1,]", "NaN", "Infinity", "nul", "1 2", "{} {}", "\"\x01\"",
                           "\"\\ud800\"", "\"\xff\"", "\"\xc3\"", "01", "// note"})
    EXPECT_TRUE(Refusal(line).starts_with("-32700 the line is not JSON, at byte ")) << line;
}

TEST(JsonLine, WithAZeroByteIsRefusedEvenBehindItsEnd) {
  EXPECT_EQ(Refusal(std::string("{}\0", 3)), "-32700 a zero byte is in the line");
  EXPECT_EQ(Refusal(std::string("\0", 1)), "-32700 a zero byte is in the line");
}

TEST(JsonLine, WithANumberBeyondAllIsRefused) {
  EXPECT_EQ(Refusal("[1e400]"), "-32700 a number in the line is too large");
  EXPECT_EQ(Refusal("-1" + std::string(400, '0')), "-32700 a number in the line is too large");
}

TEST(JsonLine, IsRefusedBeyondAHundredLevels) {
  const auto nested = [](std::size_t levels) { return std::string(levels, '[') + std::string(levels, ']'); };
  EXPECT_EQ(Refusal(nested(101)), "");
  EXPECT_EQ(Refusal(nested(102)), "-32700 the line is nested too deeply");
  EXPECT_EQ(Refusal(nested(1000000)), "-32700 the line is nested too deeply");
  EXPECT_EQ(Refusal(std::string(1000000, '[')), "-32700 the line is nested too deeply");
  std::string objects;
  for (int i = 0; i < 200; ++i) objects += R"({"a":)";
  EXPECT_EQ(Refusal(objects), "-32700 the line is nested too deeply");
}

}  // namespace
}  // namespace cordboard::remote
