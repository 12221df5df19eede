#include "shared/SplitRange.h"

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard {

namespace {

// Drops the first character by keeping one less than the rest has without its leading blanks. So leading blanks cost
// characters from the front, and a rest of nothing but blanks fails the call.
void DropFirst(std::string& rest) {
  const auto kept = static_cast<std::ptrdiff_t>(Length(TrimLeftBlanks(rest))) - 1;
  rest = Right(rest, kept);
}

}  // namespace

bool SplitRange(const Value& value, std::string& from, std::string& to) {
  from.clear();
  to.clear();
  std::string rest = ToText(value);
  if (IsNumeric(value)) {
    from = rest;
    return true;
  }
  // The limit is the length less one: "12A", which has no "&&", gives "12" and "A".
  const std::size_t length = Length(rest);
  for (std::size_t i = 1; i < length && Left(rest, 1) != "&"; ++i) {
    from += Left(rest, 1);
    DropFirst(rest);
  }
  while (Left(rest, 1) == "&") DropFirst(rest);
  to = rest;
  return true;
}

}  // namespace cordboard
