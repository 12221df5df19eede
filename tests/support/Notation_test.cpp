#include "support/Notation.h"

#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

const Place here{"a.transcript", 3};

TEST(Notation, ReadsWhatATraceWrites) {
  for (const Value& value : {Value(), Value::Null(), Value(true), Value(false), Value(7), Value(-0.5), Value(""),
                             Value("a, [b] -> (c)"), Value("one\r\ntwo\nthree"), Value("7")})
    EXPECT_EQ(ReadValue(TraceText(value), here), value) << TraceText(value);
  for (const List& list : {List(), List::Null(), List(std::vector<Value>{}), List{"100", 7, Value::Null(), Value()}})
    EXPECT_EQ(ReadList(TraceText(list), here), list) << TraceText(list);
  for (const RowSet& rows : {RowSet(), RowSet({{"100", "101"}, {"EX", Value::Null()}})})
    EXPECT_EQ(ReadRows(TraceText(rows), here), rows) << TraceText(rows);
  EXPECT_EQ(ReadRows("no rows", here), RowSet());
}

TEST(Notation, SaysWhereItCannotRead) {
  const auto refused = [](auto read) -> std::string {
    try {
      read();
      return "read";
    } catch (const TranscriptError& error) {
      return error.what();
    }
  };
  EXPECT_EQ(refused([] { ReadValue("EX", here); }), "a.transcript:3: no value: EX");
  EXPECT_EQ(refused([] { ReadValue("", here); }), "a.transcript:3: no value: ");
  EXPECT_EQ(refused([] { ReadValue("\"a\"b\"", here); }), "a.transcript:3: no value: \"a\"b\"");
  EXPECT_EQ(refused([] { ReadValue("7x", here); }), "a.transcript:3: no value: 7x");
  EXPECT_EQ(refused([] { ReadList("\"a\"", here); }), "a.transcript:3: a list stands in brackets, and not as \"a\"");
  EXPECT_EQ(refused([] { ReadRows("[\"a\"]", here); }), "a.transcript:3: a list stands in brackets, and not as \"a\"");
  EXPECT_EQ(refused([] { ReadRows("[Null]", here); }), "a.transcript:3: a column is a list: Null");
  EXPECT_EQ(refused([] { ReadRows("[[1, 2], [3]]", here); }), "a.transcript:3: columns differ in length");
  EXPECT_EQ(refused([] { OpenBrackets("f(\"a)", here); }), "a.transcript:3: a text is not closed");
  EXPECT_EQ(refused([] { OpenBrackets("a]", here); }), "a.transcript:3: a bracket is closed that was not opened");
}

TEST(Notation, PartsStandOutsideOfTextsAndBrackets) {
  EXPECT_EQ(Parts("\"a, b\", [1, 2], f(3, 4)", ','), (std::vector<std::string>{"\"a, b\"", "[1, 2]", "f(3, 4)"}));
  EXPECT_EQ(Parts("  ", ','), std::vector<std::string>());
  EXPECT_EQ(Parts("a   \"b c\"", ' '), (std::vector<std::string>{"a", "\"b c\""}));
  EXPECT_EQ(FindOutside("f(\"a -> b\", [->]) -> c", "->"), 18U);
  EXPECT_EQ(FindOutside("f(->)", "->"), std::string_view::npos);
  EXPECT_EQ(OpenBrackets("f([\")\", ", here), 2);
}

}  // namespace
}  // namespace cordboard
