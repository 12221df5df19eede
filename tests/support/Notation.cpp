#include "support/Notation.h"

#include <charconv>

namespace cordboard {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Walks a text and tells of each character whether it stands outside of quotes, and how deep in brackets.
class Walk {
 public:
  // The depth before the character, 0 where it stands on its own; -1 within quotes, which count as part of the text.
  int Step(char c) {
    if (c == '"') {
      quoted_ = !quoted_;
      return -1;
    }
    if (quoted_) return -1;
    if (c == ')' || c == ']') --depth_;
    const int before = depth_;
    if (c == '(' || c == '[') ++depth_;
    return before;
  }
  bool quoted() const { return quoted_; }
  int depth() const { return depth_; }

 private:
  bool quoted_ = false;
  int depth_ = 0;
};

std::string Unescaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    if (text.starts_with("{NL}") || text.starts_with("{LF}") || text.starts_with("{QT}")) {
      result += text[1] == 'N' ? "\r\n" : text[1] == 'L' ? "\n" : "\"";
      text.remove_prefix(4);
    } else {
      result += text.front();
      text.remove_prefix(1);
    }
  }
  return result;
}

std::vector<std::string> Elements(std::string_view text, const Place& place) {
  if (!text.starts_with('[') || !text.ends_with(']') || text.size() < 2)
    throw TranscriptError(place, "a list stands in brackets, and not as " + std::string(text));
  return Parts(text.substr(1, text.size() - 2), ',');
}

}  // namespace

Value ReadValue(std::string_view text, const Place& place) {
  text = Trimmed(text);
  if (text == "Empty") return {};
  if (text == "Null") return Value::Null();
  if (text == "True") return true;
  if (text == "False") return false;
  if (text.size() >= 2 && text.front() == '"' && text.find('"', 1) == text.size() - 1)
    return Unescaped(text.substr(1, text.size() - 2));
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size())
    throw TranscriptError(place, "no value: " + std::string(text));
  return number;
}

List ReadList(std::string_view text, const Place& place) {
  text = Trimmed(text);
  if (text == "Empty") return {};
  if (text == "Null") return List::Null();
  std::vector<Value> values;
  for (const std::string& element : Elements(text, place)) values.push_back(ReadValue(element, place));
  return List(std::move(values));
}

RowSet ReadRows(std::string_view text, const Place& place) {
  text = Trimmed(text);
  if (text == "no rows" || text == "Empty") return {};
  std::vector<std::vector<Value>> columns;
  for (const std::string& column : Elements(text, place)) {
    const List values = ReadList(column, place);
    if (values.IsEmpty() || values.IsNull()) throw TranscriptError(place, "a column is a list: " + column);
    columns.emplace_back(values.begin(), values.end());
    if (columns.back().size() != columns.front().size()) throw TranscriptError(place, "columns differ in length");
  }
  return RowSet(std::move(columns));
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::size_t FindOutside(std::string_view text, std::string_view piece, std::size_t from) {
  Walk walk;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (walk.Step(text[i]) == 0 && i >= from && text.substr(i).starts_with(piece)) return i;
  }
  return text.npos;
}

std::vector<std::string> Parts(std::string_view text, char separator) {
  std::vector<std::string> parts;
  Walk walk;
  std::size_t from = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (walk.Step(text[i]) != 0 || text[i] != separator) continue;
    parts.emplace_back(Trimmed(text.substr(from, i - from)));
    from = i + 1;
  }
  parts.emplace_back(Trimmed(text.substr(from)));
  if (parts.size() == 1 && parts.front().empty()) parts.clear();
  // Several blanks in a row are one separator.
  if (separator == ' ') std::erase(parts, "");
  return parts;
}

int OpenBrackets(std::string_view line, const Place& place) {
  Walk walk;
  for (const char c : line) {
    walk.Step(c);
    if (walk.depth() < 0) throw TranscriptError(place, "a bracket is closed that was not opened");
  }
  if (walk.quoted()) throw TranscriptError(place, "a text is not closed");
  return walk.depth();
}

}  // namespace cordboard
