// A dynamically typed value, as it crosses between the library and its host.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace cordboard {

// The types that make a number: bool makes a truth value, and a single char nothing.
template <typename Type>
concept NumberType = std::is_arithmetic_v<Type> && !std::same_as<Type, bool> && !std::same_as<Type, char>;

class Value {
 public:
  // Empty was never given; null is a database null; the empty text is neither of the two.
  enum class Kind { Empty, Null, Text, Number, Truth };

  Value() = default;
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char* text) : content_(std::string(text)) {}
  Value(std::same_as<bool> auto truth) : content_(truth) {}
  Value(NumberType auto number) : content_(static_cast<double>(number)) {}
  Value(const void*) = delete;

  static Value Null() {
    Value value;
    value.content_ = NullContent{};
    return value;
  }

  Kind kind() const { return static_cast<Kind>(content_.index()); }
  bool IsEmpty() const { return kind() == Kind::Empty; }
  bool IsNull() const { return kind() == Kind::Null; }
  bool IsText() const { return kind() == Kind::Text; }
  bool IsNumber() const { return kind() == Kind::Number; }
  bool IsTruth() const { return kind() == Kind::Truth; }

  // A text without characters; neither empty nor null.
  bool IsEmptyText() const { return IsText() && text().empty(); }
  // Empty, null or the empty text: the test of a worker that asks for all three.
  bool IsBlank() const { return IsEmpty() || IsNull() || IsEmptyText(); }
  // The test of one that counts a null as given.
  bool IsEmptyOrEmptyText() const { return IsEmpty() || IsEmptyText(); }

  // The content, for a value known to be of that kind; script/Conversions.h converts the others.
  const std::string& text() const { return std::get<std::string>(content_); }
  double number() const { return std::get<double>(content_); }
  bool truth() const { return std::get<bool>(content_); }

  // Same kind and same content. Rules compare with Equals and Differs of script/Conversions.h.
  friend bool operator==(const Value&, const Value&) = default;

 private:
  struct EmptyContent {
    friend bool operator==(EmptyContent, EmptyContent) = default;
  };
  struct NullContent {
    friend bool operator==(NullContent, NullContent) = default;
  };

  std::variant<EmptyContent, NullContent, std::string, double, bool> content_;
};

}  // namespace cordboard
