#include "com/Array.h"

#include <new>
#include <utility>
#include <vector>

#include "script/RunTimeFailure.h"

namespace cordboard::com {

namespace {

[[noreturn]] void Refuse(const char* what) {
  throw RunTimeFailure(RunTimeFailure::Cause::TypeMismatch, std::string("no ") + what + " where one is due");
}

// The array that is given; nothing for one without bounds.
SAFEARRAY* ArrayOf(const VARIANT& given) {
  SAFEARRAY* array = given.vt & VT_BYREF ? *given.pparray : given.parray;
  return array == nullptr || SafeArrayGetDim(array) == 0 ? nullptr : array;
}

// The bounds of one dimension, counted from 1.
struct Bounds {
  Bounds(SAFEARRAY* array, UINT dimension) {
    if (FAILED(SafeArrayGetLBound(array, dimension, &lower)) || FAILED(SafeArrayGetUBound(array, dimension, &upper)))
      Refuse("array");
  }
  LONG lower = 0;
  LONG upper = -1;
};

Value Element(SAFEARRAY* array, LONG* index) {
  VARTYPE type = VT_EMPTY;
  if (FAILED(SafeArrayGetVartype(array, &type))) Refuse("array of values");
  Variant element;
  // A decimal fills the whole variant, its type included; structures would not fit.
  void* place = type == VT_VARIANT || type == VT_DECIMAL ? static_cast<void*>(&element) : &element.llVal;
  if (type == VT_RECORD || FAILED(SafeArrayGetElement(array, index, place))) Refuse("array of values");
  if (type != VT_VARIANT) element.vt = type;
  return ToValue(element);
}

}  // namespace

Variant ToVariant(const List& list) {
  if (list.IsEmpty()) return Variant();
  if (list.IsNull()) return Variant(Value::Null());
  Variant variant;
  variant.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(list.size()));
  if (variant.parray == nullptr) throw std::bad_alloc();
  variant.vt = VT_ARRAY | VT_VARIANT;
  LONG index = 0;
  for (const Value& value : list) {
    Variant element(value);
    if (FAILED(SafeArrayPutElement(variant.parray, &index, &element))) throw std::bad_alloc();
    ++index;
  }
  return variant;
}

List ToList(const VARIANT& given) {
  const VARIANT& target = Target(given);
  if (target.vt == VT_EMPTY) return {};
  if (target.vt == VT_NULL) return List::Null();
  if (!(target.vt & VT_ARRAY)) Refuse("list");
  SAFEARRAY* array = ArrayOf(target);
  if (array == nullptr) return {};
  if (SafeArrayGetDim(array) != 1) Refuse("list");
  const Bounds bounds(array, 1);
  std::vector<Value> values;
  for (LONG index = bounds.lower; index <= bounds.upper; ++index) values.push_back(Element(array, &index));
  return List(std::move(values));
}

RowSet ToRowSet(const VARIANT& given) {
  const VARIANT& target = Target(given);
  if (target.vt == VT_EMPTY) return {};
  if (!(target.vt & VT_ARRAY)) Refuse("row set");
  SAFEARRAY* array = ArrayOf(target);
  if (array == nullptr) return {};
  if (SafeArrayGetDim(array) != 2) Refuse("row set");
  const Bounds columns(array, 1);
  const Bounds rows(array, 2);
  std::vector<std::vector<Value>> values;
  for (LONG column = columns.lower; column <= columns.upper; ++column) {
    std::vector<Value>& cells = values.emplace_back();
    for (LONG row = rows.lower; row <= rows.upper; ++row) {
      LONG index[] = {column, row};
      cells.push_back(Element(array, index));
    }
  }
  return RowSet(std::move(values));
}

}  // namespace cordboard::com
