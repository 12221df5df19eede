#include "com/Array.h"

#include <gtest/gtest.h>

#include "com/WideText.h"
#include "com/support/AutomationHost.h"
#include "script/RunTimeFailure.h"

namespace cordboard::com {
namespace {

template <typename Work>
bool Mismatches(Work work) {
  try {
    work();
  } catch (const RunTimeFailure& failure) {
    return failure.cause() == RunTimeFailure::Cause::TypeMismatch;
  }
  return false;
}

// A list of elements of one type of the platform.
template <typename Element>
Variant Made(VARTYPE type, LONG lower, std::vector<Element> elements) {
  SAFEARRAYBOUND bounds{static_cast<ULONG>(elements.size()), lower};
  Variant made;
  made.parray = SafeArrayCreate(type, 1, &bounds);
  made.vt = VT_ARRAY | type;
  void* place = nullptr;
  SafeArrayAccessData(made.parray, &place);
  std::copy(elements.begin(), elements.end(), static_cast<Element*>(place));
  SafeArrayUnaccessData(made.parray);
  return made;
}

TEST(Array, AListComesBackAsItWas) {
  for (const List& list :
       {List(), List::Null(), List(std::vector<Value>{}), List{"CMDID", 7, Value(), Value::Null(), true, ""}})
    EXPECT_EQ(ToList(ToVariant(list)), list);
}

TEST(Array, AListIsAnArrayOfVariantsFromZero) {
  const Variant list = ToVariant(List{"a", 2});
  ASSERT_EQ(list.vt, VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(SafeArrayGetDim(list.parray), 1U);
  LONG lower = -1;
  LONG upper = -1;
  SafeArrayGetLBound(list.parray, 1, &lower);
  SafeArrayGetUBound(list.parray, 1, &upper);
  EXPECT_EQ(lower, 0);
  EXPECT_EQ(upper, 1);
  EXPECT_EQ(ToVariant(List()).vt, VT_EMPTY);
  EXPECT_EQ(ToVariant(List::Null()).vt, VT_NULL);
}

TEST(Array, OtherBoundsAndTypesOfElementsAreTaken) {
  EXPECT_EQ(ToList(Made<SHORT>(VT_I2, 1, {7, -8})), (List{7, -8}));
  EXPECT_EQ(ToList(Made<double>(VT_R8, -3, {0.5})), List{0.5});
  EXPECT_EQ(ToList(Made<VARIANT_BOOL>(VT_BOOL, 0, {VARIANT_TRUE, VARIANT_FALSE})), (List{true, false}));
  EXPECT_EQ(ToList(Made<BSTR>(VT_BSTR, 5, {SysAllocString(L"DIR"), nullptr})), (List{"DIR", ""}));
  EXPECT_EQ(ToList(Made<BYTE>(VT_UI1, 0, {255})), List{255});
  DECIMAL decimal;
  VarDecFromI4(42, &decimal);
  EXPECT_EQ(ToList(Made<DECIMAL>(VT_DECIMAL, 0, {decimal})), List{42});
}

TEST(Array, AReferenceToAnArrayIsFollowed) {
  Variant list = ToVariant(List{"a"});
  EXPECT_EQ(ToList(Variant::ReferenceTo(list)), List{"a"});
  Variant reference;
  reference.pparray = &list.parray;
  reference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  EXPECT_EQ(ToList(reference), List{"a"});
}

TEST(Array, AnArrayThatWasNeverGivenBoundsIsAListWithoutBounds) {
  Variant declared;
  declared.parray = nullptr;
  declared.vt = VT_ARRAY | VT_VARIANT;
  EXPECT_TRUE(ToList(declared).IsEmpty());
  EXPECT_TRUE(ToRowSet(declared).IsEmpty());
}

TEST(Array, AnyOtherShapeIsNoList) {
  EXPECT_TRUE(Mismatches([] { ToList(Variant(Value("DIR"))); }));
  EXPECT_TRUE(Mismatches([] { ToList(Variant(Value(1))); }));
  EXPECT_TRUE(Mismatches([] { ToList(Variant::NotGiven()); }));
  EXPECT_TRUE(Mismatches([] { ToList(Rows({{"a"}})); }));
  EXPECT_TRUE(Mismatches([] { ToList(Made<IUnknown*>(VT_UNKNOWN, 0, {nullptr})); }));
}

TEST(Array, ARowSetIsIndexedByColumnAndRow) {
  const std::vector<std::vector<Value>> columns = {{"100", "101", "102"}, {"EX", Value::Null(), Value()}};
  EXPECT_EQ(ToRowSet(Rows(columns)), RowSet(columns));
  EXPECT_EQ(ToRowSet(Rows(columns, 1, 5)), RowSet(columns));
}

TEST(Array, ARowSetWithoutRowsIsEmpty) {
  EXPECT_TRUE(ToRowSet(Variant()).IsEmpty());
  EXPECT_TRUE(ToRowSet(Rows({{}, {}})).IsEmpty());
}

TEST(Array, AnyOtherShapeIsNoRowSet) {
  EXPECT_TRUE(Mismatches([] { ToRowSet(Variant(Value::Null())); }));
  EXPECT_TRUE(Mismatches([] { ToRowSet(ToVariant(List{"a"})); }));
  EXPECT_TRUE(Mismatches([] { ToRowSet(Variant(Value("a"))); }));
}

}  // namespace
}  // namespace cordboard::com
