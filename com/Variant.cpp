#include "com/Variant.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

#include "com/WideText.h"
#include "script/RunTimeFailure.h"

namespace cordboard::com {

namespace {

[[noreturn]] void Refuse(VARTYPE type) {
  throw RunTimeFailure(RunTimeFailure::Cause::TypeMismatch,
                       "a variant of type " + std::to_string(type) + " where a value is due");
}

bool IsWhole(double number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return number == std::trunc(number) && number >= Limits::min() && number <= Limits::max();
}

std::string DateText(DATE date) {
  SYSTEMTIME time;
  if (!VariantTimeToSystemTime(date, &time)) Refuse(VT_DATE);
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
                time.wMinute, time.wSecond);
  return text;
}

double Number(const VARIANT& given) {
  Variant real;
  if (FAILED(VariantChangeType(&real, Read(given), 0, VT_R8))) Refuse(given.vt);
  return real.dblVal;
}

}  // namespace

Variant::Variant(const Value& value) {
  VariantInit(this);
  switch (value.kind()) {
    case Value::Kind::Empty: return;
    case Value::Kind::Null: vt = VT_NULL; return;
    case Value::Kind::Text:
      bstrVal = ToBstr(value.text());
      vt = VT_BSTR;
      return;
    case Value::Kind::Truth:
      boolVal = value.truth() ? VARIANT_TRUE : VARIANT_FALSE;
      vt = VT_BOOL;
      return;
    case Value::Kind::Number:
      if (IsWhole(value.number())) {
        lVal = static_cast<LONG>(value.number());
        vt = VT_I4;
      } else {
        dblVal = value.number();
        vt = VT_R8;
      }
  }
}

Variant Variant::NotGiven() {
  Variant variant;
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

Variant Variant::ReferenceTo(VARIANT& target) {
  Variant variant;
  variant.vt = VT_BYREF | VT_VARIANT;
  variant.pvarVal = &target;
  return variant;
}

const VARIANT& Target(const VARIANT& given) {
  return given.vt == (VT_BYREF | VT_VARIANT) ? Target(*given.pvarVal) : given;
}

Value ToValue(const VARIANT& given) {
  if ((given.vt & (VT_BYREF | VT_ARRAY)) == VT_BYREF) {
    Variant target;
    if (FAILED(VariantCopyInd(&target, Read(given)))) Refuse(given.vt);
    return ToValue(target);
  }
  switch (given.vt) {
    case VT_EMPTY: return {};
    case VT_NULL: return Value::Null();
    case VT_BSTR: return FromBstr(given.bstrVal);
    case VT_BOOL: return given.boolVal != VARIANT_FALSE;
    case VT_DATE: return DateText(given.date);
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL: return Number(given);
    case VT_ERROR:
      if (given.scode == DISP_E_PARAMNOTFOUND) return {};
      break;
    default: break;
  }
  Refuse(given.vt);
}

}  // namespace cordboard::com
