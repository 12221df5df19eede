#include "script/Conversions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Outcome.h"

namespace cordboard {
namespace {

// --- Every conversion of a value, one value a row.

constexpr const char* TypeMismatch = "TypeMismatch";
constexpr const char* Overflow = "Overflow";
constexpr const char* OfNull = "InvalidUseOfNull";
constexpr const char* Greatest = "1.79769313486232E+308";
constexpr const char* Least = "-1.79769313486232E+308";

struct Conversion {
  Value value;
  bool isNumeric;
  std::string number;   // ToNumber
  std::string int16;    // ToInt16
  std::string int32;    // ToInt32
  std::string leading;  // NumericValue
};

const std::string zeros(400, '0');

const std::vector<Conversion> conversions = {
    {Value(), true, "0", "0", "0", "0"},
    {Value::Null(), false, OfNull, OfNull, OfNull, OfNull},
    {true, true, "-1", "-1", "-1", "0"},
    {false, true, "0", "0", "0", "0"},

    // Texts that are numbers as a whole.
    {"0", true, "0", "0", "0", "0"},
    {"007", true, "7", "7", "7", "7"},
    {" 12  ", true, "12", "12", "12", "12"},
    {"+7", true, "7", "7", "7", "7"},
    {"-7", true, "-7", "-7", "-7", "-7"},
    {".5", true, "0.5", "0", "0", "0.5"},
    {"-.5", true, "-0.5", "0", "0", "-0.5"},
    {"5.", true, "5", "5", "5", "5"},
    {"1.5", true, "1.5", "2", "2", "1.5"},
    {"1e2", true, "100", "100", "100", "100"},
    {"1E+2", true, "100", "100", "100", "100"},
    {"15e-1", true, "1.5", "2", "2", "1.5"},
    {"32768", true, "32768", Overflow, "32768", "32768"},
    {"2147483648", true, "2147483648", Overflow, Overflow, "2147483648"},
    {"1e400", true, Greatest, Overflow, Overflow, Greatest},
    {"-1e400", true, Least, Overflow, Overflow, Least},
    {"1e-400", true, "0", "0", "0", "0"},
    {"1" + zeros, true, Greatest, Overflow, Overflow, Greatest},
    {"1" + zeros + "e-5", true, Greatest, Overflow, Overflow, Greatest},
    {"1" + zeros + "e-400", true, "1", "1", "1", "1"},
    {"0." + zeros + "1", true, "0", "0", "0", "0"},

    // Texts that are not.
    {"", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"  ", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"A", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"A1", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"12A", false, TypeMismatch, TypeMismatch, TypeMismatch, "12"},
    {"-5x", false, TypeMismatch, TypeMismatch, TypeMismatch, "-5"},
    {" 3 4", false, TypeMismatch, TypeMismatch, TypeMismatch, "34"},
    {"- 5", false, TypeMismatch, TypeMismatch, TypeMismatch, "-5"},
    {"\t12", false, TypeMismatch, TypeMismatch, TypeMismatch, "12"},
    {"1\r\n2", false, TypeMismatch, TypeMismatch, TypeMismatch, "12"},
    {"100&&199", false, TypeMismatch, TypeMismatch, TypeMismatch, "100"},
    {"1,5", false, TypeMismatch, TypeMismatch, TypeMismatch, "1"},
    {"1.5.2", false, TypeMismatch, TypeMismatch, TypeMismatch, "1.5"},
    {".", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"+", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"--7", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"e2", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"1e", false, TypeMismatch, TypeMismatch, TypeMismatch, "1"},
    {"1e+", false, TypeMismatch, TypeMismatch, TypeMismatch, "1"},
    {"nan", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"inf", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"0x10", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},
    {"True", false, TypeMismatch, TypeMismatch, TypeMismatch, "0"},

    // Halves go to the even neighbour.
    {0.5, true, "0.5", "0", "0", "0.5"},
    {1.5, true, "1.5", "2", "2", "1.5"},
    {2.5, true, "2.5", "2", "2", "2.5"},
    {3.5, true, "3.5", "4", "4", "3.5"},
    {-0.5, true, "-0.5", "0", "0", "-0.5"},
    {-1.5, true, "-1.5", "-2", "-2", "-1.5"},
    {-2.5, true, "-2.5", "-2", "-2", "-2.5"},
    {2.49, true, "2.49", "2", "2", "2.49"},
    {2.51, true, "2.51", "3", "3", "2.51"},

    // Both ends of 16 and of 32 bits, after rounding.
    {32767, true, "32767", "32767", "32767", "32767"},
    {32767.4, true, "32767.4", "32767", "32767", "32767.4"},
    {32767.5, true, "32767.5", Overflow, "32768", "32767.5"},
    {-32768, true, "-32768", "-32768", "-32768", "-32768"},
    {-32768.5, true, "-32768.5", "-32768", "-32768", "-32768.5"},
    {-32768.6, true, "-32768.6", Overflow, "-32769", "-32768.6"},
    {2147483647, true, "2147483647", Overflow, "2147483647", "2147483647"},
    {2147483647.4, true, "2147483647.4", Overflow, "2147483647", "2147483647.4"},
    {2147483647.5, true, "2147483647.5", Overflow, Overflow, "2147483647.5"},
    {-2147483648.0, true, "-2147483648", Overflow, "-2147483648", "-2147483648"},
    {-2147483648.5, true, "-2147483648.5", Overflow, "-2147483648", "-2147483648.5"},
    {-2147483649.0, true, "-2147483649", Overflow, Overflow, "-2147483649"},
};

TEST(Conversions, ToNumbersFollowTheTable) {
  for (const Conversion& row : conversions) {
    SCOPED_TRACE(TraceText(row.value));
    EXPECT_EQ(IsNumeric(row.value), row.isNumeric);
    EXPECT_EQ(Outcome([&] { return ToNumber(row.value); }), row.number);
    EXPECT_EQ(Outcome([&] { return ToInt16(row.value); }), row.int16);
    EXPECT_EQ(Outcome([&] { return ToInt32(row.value); }), row.int32);
    EXPECT_EQ(Outcome([&] { return NumericValue(row.value); }), row.leading);
  }
}

// --- Texts.

struct Texts {
  Value value;
  std::string read;    // ToText
  std::string joined;  // Joined
};

const std::vector<Texts> texts = {
    {Value(), "\"\"", ""},
    {Value::Null(), OfNull, ""},
    {"", "\"\"", ""},
    {" a ", "\" a \"", " a "},
    {true, "\"True\"", "True"},
    {false, "\"False\"", "False"},
    {5, "\"5\"", "5"},
    {-5.0, "\"-5\"", "-5"},
    {-0.0, "\"0\"", "0"},
    {0.5, "\"0.5\"", "0.5"},
    {-0.25, "\"-0.25\"", "-0.25"},
    {0.1 + 0.2, "\"0.3\"", "0.3"},
    {1.0 / 3, "\"0.333333333333333\"", "0.333333333333333"},
    {0.00001, "\"1E-05\"", "1E-05"},
    {999999999999999.0, "\"999999999999999\"", "999999999999999"},
    {1e15, "\"1E+15\"", "1E+15"},
};

TEST(Conversions, TheTextOfAValueFollowsTheTableAndNullIsJoinedButNeverRead) {
  for (const Texts& row : texts) {
    SCOPED_TRACE(TraceText(row.value));
    EXPECT_EQ(Outcome([&] { return ToText(row.value); }), row.read);
    EXPECT_EQ(Joined(row.value), row.joined);
  }
}

TEST(Conversions, TrimsTakeBlanksAloneAndLeaveNullANull) {
  EXPECT_EQ(Trim("  a b "), Value("a b"));
  EXPECT_EQ(TrimLeft("  a b "), Value("a b "));
  EXPECT_EQ(Trim("\t a \r\n"), Value("\t a \r\n"));
  EXPECT_EQ(Trim("   "), Value(""));
  EXPECT_EQ(TrimLeft("   "), Value(""));
  EXPECT_EQ(Trim(Value()), Value(""));
  EXPECT_EQ(TrimLeft(Value()), Value(""));
  EXPECT_EQ(Trim(5), Value("5"));
  EXPECT_EQ(Trim(Value::Null()), Value::Null());
  EXPECT_EQ(TrimLeft(Value::Null()), Value::Null());
}

// --- Truth values.

struct Truth {
  Value value;
  std::string converted;  // ToTruth
  std::string condition;  // IsTrue
};

const std::vector<Truth> truths = {
    {Value(), "False", "False"},
    {Value::Null(), OfNull, "False"},
    {true, "True", "True"},
    {false, "False", "False"},
    {0, "False", "False"},
    {1, "True", "True"},
    {-0.5, "True", "True"},
    {"0", "False", "False"},
    {" 2 ", "True", "True"},
    {"True", "True", "True"},
    {"tRUE", "True", "True"},
    {"FALSE", "False", "False"},
    {"", TypeMismatch, TypeMismatch},
    {"Yes", TypeMismatch, TypeMismatch},
    {"True ", TypeMismatch, TypeMismatch},
    {"T\x12ue", TypeMismatch, TypeMismatch},
};

TEST(Conversions, ToTruthValuesFollowTheTable) {
  for (const Truth& row : truths) {
    SCOPED_TRACE(TraceText(row.value));
    EXPECT_EQ(Outcome([&] { return ToTruth(row.value); }), row.converted);
    EXPECT_EQ(Outcome([&] { return IsTrue(row.value); }), row.condition);
  }
}

// --- Comparison.

// How the value of a row stands to the value of a column, in the same order: less, equal, greater, or not known.
struct Comparisons {
  Value value;
  const char* signs;
};

// clang-format off
const std::vector<Comparisons> comparisons = {
    //                Empty Null "" "0" "12" " 12 " "9" "A" "True" -1 0 12 True False
    {Value(),        "= ? = < < < < < < > = < > ="},
    {Value::Null(),  "? ? ? ? ? ? ? ? ? ? ? ? ? ?"},
    {"",             "= ? = < < < < < < > > > > >"},
    {"0",            "> ? > = < > < < < > = < > ="},
    {"12",           "> ? > > = > < < < > > = > >"},
    {" 12 ",         "> ? > < < = < < < > > = > >"},
    {"9",            "> ? > > > > = < < > > < > >"},
    {"A",            "> ? > > > > > = < > > > > >"},
    {"True",         "> ? > > > > > > = > > > > >"},
    {-1,             "< ? < < < < < < < = < < = <"},
    {0,              "= ? < = < < < < < > = < > ="},
    {12,             "> ? < > = = > < < > > = > >"},
    {true,           "< ? < < < < < < < = < < = <"},
    {false,          "= ? < = < < < < < > = < > ="},
};
// clang-format on

TEST(Conversions, ComparisonOfEveryPairFollowsTheTable) {
  for (const auto& [left, signs] : comparisons) {
    for (std::size_t column = 0; column < comparisons.size(); ++column) {
      const Value& right = comparisons[column].value;
      const char sign = signs[2 * column];  // a blank stands between the signs
      SCOPED_TRACE(TraceText(left) + " " + sign + " " + TraceText(right));
      EXPECT_EQ(Equals(left, right), sign == '=');
      EXPECT_EQ(Differs(left, right), sign == '<' || sign == '>');
      EXPECT_EQ(Less(left, right), sign == '<');
      EXPECT_EQ(Greater(left, right), sign == '>');
      EXPECT_EQ(Compare(left, right).has_value(), sign != '?');
    }
  }
}

TEST(Conversions, TextsCompareByTheirBytesAsUnsignedNumbers) {
  EXPECT_TRUE(Less("Z", "a"));
  EXPECT_TRUE(Less("z", "\xC3\xA9"));
  EXPECT_TRUE(Less("10", "9"));
  EXPECT_TRUE(Differs("1", "1.0"));
}

}  // namespace
}  // namespace cordboard
