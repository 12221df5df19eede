#include "shared/NextNumber.h"

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard {

Value NextNumberPadded(const Value& value, int width) {
  const Value trimmed = Trim(value);
  const std::int16_t next = ToInt16(ToInt16(trimmed) + 1);
  const int length = static_cast<int>(Length(ToText(trimmed)));
  if (length >= width) return Value();
  return std::string(static_cast<std::size_t>(width - length), '0') + Joined(next);
}

}  // namespace cordboard
