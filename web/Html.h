// Markup that is put together from elements. A text becomes markup in one way alone, and is escaped there: what an
// exchange holds can say nothing to a browser.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cordboard::web {

class Html {
 public:
  Html() = default;
  // A text as it is read. Bytes that are no UTF-8, and control characters, are shown as such.
  template <std::convertible_to<std::string_view> Text>
  Html(const Text& text) : markup_(Escaped(text)) {}

  const std::string& markup() const { return markup_; }
  bool IsEmpty() const { return markup_.empty(); }
  Html& operator+=(const Html& more) {
    markup_ += more.markup_;
    return *this;
  }
  friend Html operator+(Html one, const Html& more) { return std::move(one += more); }

 private:
  friend class Element;
  static std::string Escaped(std::string_view text);

  std::string markup_;
};

// Names with values; a name that says all by itself ("required") has the empty text.
using Attributes = std::vector<std::pair<std::string, std::string>>;

// An element with what stands in it. `name` is that of an element of HTML, which the program chooses.
class Element : public Html {
 public:
  Element(std::string_view name, const Attributes& attributes, const Html& content = {});
  Element(std::string_view name, const Html& content = {}) : Element(name, Attributes(), content) {}
};

// A link to an address of this site, and a value of a form that nobody sees.
Html Link(const std::string& address, const Html& text);
Html Hidden(const std::string& name, const std::string& value);

}  // namespace cordboard::web
