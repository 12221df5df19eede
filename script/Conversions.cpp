#include "script/Conversions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string_view>

#include "script/RunTimeFailure.h"
#include "script/Text.h"

namespace cordboard {

namespace {

using Cause = RunTimeFailure::Cause;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The length of the longest beginning of `text` that is a number, 0 where there is none.
std::size_t NumberLength(std::string_view text) {
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digits = 0;
  while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
  }
  if (digits == 0) return 0;
  std::size_t end = i;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (i < text.size() && IsDigit(text[i])) {
      while (i < text.size() && IsDigit(text[i])) ++i;
      end = i;
    }
  }
  return end;
}

// Reads a text that NumberLength has found to be a number.
double ReadNumber(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc::result_out_of_range) return number;
  // from_chars does not tell too large from too small; a stream gives the greatest number or 0.
  std::istringstream stream{std::string(text)};
  stream.imbue(std::locale::classic());
  stream >> number;
  return number;
}

std::optional<double> NumericText(std::string_view text) {
  const std::string_view trimmed = TrimBlanks(text);
  const std::size_t length = NumberLength(trimmed);
  if (length == 0 || length != trimmed.size()) return std::nullopt;
  return ReadNumber(trimmed);
}

std::string TextOfNumber(double number) {
  if (number == std::trunc(number) && std::abs(number) < 1e15) {
    char buffer[32];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, static_cast<std::int64_t>(number));
    return std::string(buffer, end);
  }
  char buffer[64];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, 15);
  std::string text(buffer, end);
  std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c == 'e' ? 'E' : c; });
  return text;
}

std::int32_t ToWhole(const Value& value, double least, double greatest) {
  double number = ToNumber(value);
  if (std::isfinite(number)) {
    const double below = std::floor(number);
    const double rest = number - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2.0) != 0.0);
    number = up ? below + 1 : below;
  }
  if (!(number >= least && number <= greatest)) throw RunTimeFailure(Cause::Overflow, "a whole number is out of range");
  return static_cast<std::int32_t>(number);
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
    return a == b || ((a ^ b) == 0x20 && (a | 0x20) >= 'a' && (a | 0x20) <= 'z');
  });
}

double AsNumber(const Value& value) {
  if (value.IsTruth()) return value.truth() ? -1 : 0;
  return value.IsNumber() ? value.number() : 0;
}

std::partial_ordering CompareTextWithNumber(const std::string& text, double number) {
  const auto numeric = NumericText(text);
  return numeric ? *numeric <=> number : std::partial_ordering::greater;
}

std::partial_ordering Reversed(std::partial_ordering order) {
  if (std::is_lt(order)) return std::partial_ordering::greater;
  return std::is_gt(order) ? std::partial_ordering::less : order;
}

}  // namespace

bool IsNumeric(const Value& value) {
  if (value.IsText()) return NumericText(value.text()).has_value();
  return !value.IsNull();
}

double ToNumber(const Value& value) {
  if (value.IsNull()) throw RunTimeFailure(Cause::InvalidUseOfNull, "a null was converted to a number");
  if (!value.IsText()) return AsNumber(value);
  if (const auto number = NumericText(value.text())) return *number;
  throw RunTimeFailure(Cause::TypeMismatch, "'" + value.text() + "' is not a number");
}

std::int16_t ToInt16(const Value& value) {
  return static_cast<std::int16_t>(
      ToWhole(value, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()));
}

std::int32_t ToInt32(const Value& value) {
  return ToWhole(value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
}

double NumericValue(const Value& value) {
  std::string text = ToText(value);
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
  const std::size_t length = NumberLength(text);
  return length == 0 ? 0 : ReadNumber(std::string_view(text).substr(0, length));
}

std::string ToText(const Value& value) {
  if (value.IsNull()) throw RunTimeFailure(Cause::InvalidUseOfNull, "a null was read as text");
  return Joined(value);
}

std::string Joined(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Text: return value.text();
    case Value::Kind::Number: return TextOfNumber(value.number());
    case Value::Kind::Truth: return value.truth() ? "True" : "False";
    case Value::Kind::Empty:
    case Value::Kind::Null: break;
  }
  return "";
}

bool ToTruth(const Value& value) {
  if (value.IsTruth()) return value.truth();
  if (value.IsText() && EqualIgnoringCase(value.text(), "True")) return true;
  if (value.IsText() && EqualIgnoringCase(value.text(), "False")) return false;
  return ToNumber(value) != 0;
}

bool IsTrue(const Value& value) { return !value.IsNull() && ToTruth(value); }

Value Trim(const Value& value) {
  if (value.IsNull()) return value;
  return Value(TrimBlanks(ToText(value)));
}

Value TrimLeft(const Value& value) {
  if (value.IsNull()) return value;
  return Value(TrimLeftBlanks(ToText(value)));
}

std::optional<std::partial_ordering> Compare(const Value& left, const Value& right) {
  if (left.IsNull() || right.IsNull()) return std::nullopt;
  const bool texts = (left.IsText() || left.IsEmpty()) && (right.IsText() || right.IsEmpty());
  if (texts) return Joined(left) <=> Joined(right);
  if (left.IsText()) return CompareTextWithNumber(left.text(), AsNumber(right));
  if (right.IsText()) return Reversed(CompareTextWithNumber(right.text(), AsNumber(left)));
  return AsNumber(left) <=> AsNumber(right);
}

bool Equals(const Value& left, const Value& right) {
  const auto order = Compare(left, right);
  return order && std::is_eq(*order);
}

bool Differs(const Value& left, const Value& right) {
  const auto order = Compare(left, right);
  return order && std::is_neq(*order);
}

bool Less(const Value& left, const Value& right) {
  const auto order = Compare(left, right);
  return order && std::is_lt(*order);
}

bool Greater(const Value& left, const Value& right) {
  const auto order = Compare(left, right);
  return order && std::is_gt(*order);
}

}  // namespace cordboard
