// Lists and row sets as the platform's safe arrays.
//
// Out    A list is an array of variants from 0; a list without bounds is empty, a null list null.
// In     Any lower bound, and every type of element that is a value. An array that was declared and never given bounds
//        is a list without bounds, and a row set without rows. A row set has two dimensions, [column][row].
#pragma once

#include "com/Variant.h"
#include "script/List.h"

namespace cordboard::com {

Variant ToVariant(const List& list);

// Fail with TypeMismatch for any other shape.
List ToList(const VARIANT& given);
RowSet ToRowSet(const VARIANT& given);

}  // namespace cordboard::com
