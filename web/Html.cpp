#include "web/Html.h"

#include <algorithm>
#include <array>

#include "workbench/text/Escaped.h"
#include "workbench/text/Utf8.h"

namespace cordboard::web {

namespace {

// Elements that nothing stands in, and that have no end.
constexpr std::array<std::string_view, 6> empty = {"br", "hr", "input", "link", "meta", "col"};

std::string Marked(std::string_view text) {
  std::string marked;
  for (const char c : text) {
    switch (c) {
      case '&': marked += "&amp;"; break;
      case '<': marked += "&lt;"; break;
      case '>': marked += "&gt;"; break;
      case '"': marked += "&quot;"; break;
      case '\'': marked += "&#39;"; break;
      default: marked += c;
    }
  }
  return marked;
}

// A browser would take other bytes for something of its own choice.
std::string Readable(std::string_view text) {
  if (workbench::IsUtf8(text)) return std::string(text);
  std::string readable;
  for (const char c : text) readable += static_cast<unsigned char>(c) < 0x80 ? std::string(1, c) : "\uFFFD";
  return readable;
}

}  // namespace

std::string Html::Escaped(std::string_view text) { return Marked(workbench::Escaped(Readable(text))); }

Element::Element(std::string_view name, const Attributes& attributes, const Html& content) {
  markup_ = "<" + std::string(name);
  for (const auto& [attribute, value] : attributes) {
    markup_ += " " + attribute;
    if (!value.empty()) markup_ += "=\"" + Marked(Readable(value)) + "\"";
  }
  markup_ += ">";
  if (std::ranges::find(empty, name) != empty.end()) return;
  markup_ += content.markup() + "</" + std::string(name) + ">";
}

Html Link(const std::string& address, const Html& text) { return Element("a", {{"href", address}}, text); }

Html Hidden(const std::string& name, const std::string& value) {
  return Element("input", {{"type", "hidden"}, {"name", name}, {"value", value}});
}

}  // namespace cordboard::web
