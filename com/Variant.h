// Values as the platform's variants.
//
// Out    Empty, null, texts and truth values are what they are. A whole number of 32 bits is a VT_I4, any other number
//        a VT_R8. A list is an array of variants from 0.
// In     Whole and real numbers of every size, currency and decimals are numbers. A date is a text,
//        "2001-12-31 23:59:58". An argument that was not given is empty. Anything else, objects and errors among them,
//        is a TypeMismatch. References are followed.
#pragma once

#include <utility>

#include "com/Platform.h"
#include "script/Value.h"

namespace cordboard::com {

// A variant that clears itself.
class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  explicit Variant(const Value& value);
  Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
  }
  ~Variant() { VariantClear(this); }

  // An argument that is not given.
  static Variant NotGiven();
  // A reference to `target`, which must outlive it.
  static Variant ReferenceTo(VARIANT& target);
};

// Fails with TypeMismatch for what is no value.
Value ToValue(const VARIANT& given);

// What a reference to a variant refers to, or the variant itself.
const VARIANT& Target(const VARIANT& given);

// For functions of the platform that read a variant but do not say so.
inline VARIANT* Read(const VARIANT& given) { return const_cast<VARIANT*>(&given); }

}  // namespace cordboard::com
