#include "com/Variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "com/WideText.h"
#include "script/RunTimeFailure.h"

namespace cordboard::com {
namespace {

Value ThereAndBack(const Value& value) { return ToValue(Variant(value)); }

// A variant of a type whose content is written by hand.
template <typename Content>
Variant Made(VARTYPE type, Content VARIANT::*member, Content content) {
  Variant variant;
  variant.*member = content;
  variant.vt = type;
  return variant;
}

TEST(Variant, EveryKindKeepsItsType) {
  EXPECT_EQ(Variant(Value()).vt, VT_EMPTY);
  EXPECT_EQ(Variant(Value::Null()).vt, VT_NULL);
  EXPECT_EQ(Variant(Value("")).vt, VT_BSTR);
  EXPECT_EQ(Variant(Value("DIR")).vt, VT_BSTR);
  EXPECT_EQ(Variant(Value(true)).boolVal, VARIANT_TRUE);
  EXPECT_EQ(Variant(Value(false)).vt, VT_BOOL);
  EXPECT_EQ(Variant(Value(7)).vt, VT_I4);
  EXPECT_EQ(Variant(Value(0.5)).vt, VT_R8);
}

TEST(Variant, WholeNumbersEndWhere32BitsEnd) {
  EXPECT_EQ(Variant(Value(2147483647.0)).lVal, 2147483647);
  EXPECT_EQ(Variant(Value(-2147483648.0)).vt, VT_I4);
  EXPECT_EQ(Variant(Value(2147483648.0)).vt, VT_R8);
  EXPECT_EQ(Variant(Value(-2147483649.0)).vt, VT_R8);
  EXPECT_EQ(Variant(Value(std::numeric_limits<double>::infinity())).vt, VT_R8);
  EXPECT_EQ(Variant(Value(std::nan(""))).vt, VT_R8);
}

TEST(Variant, EveryKindComesBackAsItWas) {
  const std::string with_zero("a\0b", 3);
  for (const Value& value :
       {Value(), Value::Null(), Value(""), Value("100&&199"), Value("\u00E4\u20AC\U0001F4DE"), Value(with_zero),
        Value(true), Value(false), Value(0), Value(-1), Value(0.25), Value(1e300)})
    EXPECT_EQ(ThereAndBack(value), value);
}

TEST(Variant, ATextIsUtf16Outside) {
  const Variant text(Value("\u00E4\U0001F4DE"));
  EXPECT_EQ(std::wstring(text.bstrVal, SysStringLen(text.bstrVal)), L"\u00E4\xD83D\xDCDE");
}

TEST(Variant, WhatIsNoCharacterIsReplaced) {
  EXPECT_EQ(ThereAndBack(Value("a\xFFz")), Value("a\uFFFDz"));
  EXPECT_EQ(FromWide(L"a\xD83Dz"), "a\uFFFDz");
}

TEST(Variant, ANullBstrIsTheEmptyText) {
  EXPECT_TRUE(ToValue(Made<BSTR>(VT_BSTR, &VARIANT::bstrVal, nullptr)).IsEmptyText());
}

TEST(Variant, NumbersOfEverySizeAreNumbers) {
  EXPECT_EQ(ToValue(Made<CHAR>(VT_I1, &VARIANT::cVal, -5)), Value(-5));
  EXPECT_EQ(ToValue(Made<SHORT>(VT_I2, &VARIANT::iVal, -5)), Value(-5));
  EXPECT_EQ(ToValue(Made<LONG>(VT_I4, &VARIANT::lVal, -5)), Value(-5));
  EXPECT_EQ(ToValue(Made<LONGLONG>(VT_I8, &VARIANT::llVal, 5000000000)), Value(5e9));
  EXPECT_EQ(ToValue(Made<INT>(VT_INT, &VARIANT::intVal, 5)), Value(5));
  EXPECT_EQ(ToValue(Made<BYTE>(VT_UI1, &VARIANT::bVal, 255)), Value(255));
  EXPECT_EQ(ToValue(Made<USHORT>(VT_UI2, &VARIANT::uiVal, 65535)), Value(65535));
  EXPECT_EQ(ToValue(Made<ULONG>(VT_UI4, &VARIANT::ulVal, 4294967295)), Value(4294967295.0));
  EXPECT_EQ(ToValue(Made<ULONGLONG>(VT_UI8, &VARIANT::ullVal, 5)), Value(5));
  EXPECT_EQ(ToValue(Made<UINT>(VT_UINT, &VARIANT::uintVal, 5)), Value(5));
  EXPECT_EQ(ToValue(Made<FLOAT>(VT_R4, &VARIANT::fltVal, 0.5F)), Value(0.5));
  EXPECT_EQ(ToValue(Made<DOUBLE>(VT_R8, &VARIANT::dblVal, 0.1)), Value(0.1));
}

TEST(Variant, AnyTruthValueButZeroIsTrue) {
  EXPECT_EQ(ToValue(Made<VARIANT_BOOL>(VT_BOOL, &VARIANT::boolVal, 1)), Value(true));
  EXPECT_EQ(ToValue(Made<VARIANT_BOOL>(VT_BOOL, &VARIANT::boolVal, -1)), Value(true));
  EXPECT_EQ(ToValue(Made<VARIANT_BOOL>(VT_BOOL, &VARIANT::boolVal, 0)), Value(false));
}

TEST(Variant, CurrencyAndDecimalsAreNumbers) {
  CY currency;
  currency.int64 = 125000;
  EXPECT_EQ(ToValue(Made<CY>(VT_CY, &VARIANT::cyVal, currency)), Value(12.5));
  Variant decimal;
  VarDecFromR8(2.25, &decimal.decVal);
  decimal.vt = VT_DECIMAL;
  EXPECT_EQ(ToValue(decimal), Value(2.25));
}

TEST(Variant, ADateIsAText) {
  EXPECT_EQ(ToValue(Made<DATE>(VT_DATE, &VARIANT::date, 37256.999977)), Value("2001-12-31 23:59:58"));
  EXPECT_EQ(ToValue(Made<DATE>(VT_DATE, &VARIANT::date, 37257)), Value("2002-01-01 00:00:00"));
}

TEST(Variant, AnArgumentThatIsNotGivenIsEmpty) { EXPECT_TRUE(ToValue(Variant::NotGiven()).IsEmpty()); }

TEST(Variant, ReferencesAreFollowed) {
  Variant text(Value("DIR"));
  EXPECT_EQ(ToValue(Variant::ReferenceTo(text)), Value("DIR"));
  SHORT number = 7;
  EXPECT_EQ(ToValue(Made<SHORT*>(VT_I2 | VT_BYREF, &VARIANT::piVal, &number)), Value(7));
}

TEST(Variant, AnythingElseIsATypeMismatch) {
  const auto cause = [](const VARIANT& given) {
    try {
      ToValue(given);
    } catch (const RunTimeFailure& failure) {
      return failure.cause();
    }
    return RunTimeFailure::Cause::HostFailure;
  };
  EXPECT_EQ(cause(Made<SCODE>(VT_ERROR, &VARIANT::scode, E_FAIL)), RunTimeFailure::Cause::TypeMismatch);
  EXPECT_EQ(cause(Made<IDispatch*>(VT_DISPATCH, &VARIANT::pdispVal, nullptr)), RunTimeFailure::Cause::TypeMismatch);
  EXPECT_EQ(cause(Made<IUnknown*>(VT_UNKNOWN, &VARIANT::punkVal, nullptr)), RunTimeFailure::Cause::TypeMismatch);
  EXPECT_EQ(cause(Made<SAFEARRAY*>(VT_ARRAY | VT_VARIANT, &VARIANT::parray, nullptr)),
            RunTimeFailure::Cause::TypeMismatch);
}

}  // namespace
}  // namespace cordboard::com
