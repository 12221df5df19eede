#include "workbench/text/Elements.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace cordboard::workbench {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The parts between single "&"; a double one stays inside its part.
std::vector<std::string> Parts(const std::string& typed) {
  if (typed.find('&') == typed.npos) return {typed};  // as nearly all are
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < typed.size(); ++i) {
    if (typed.compare(i, 2, "&&") == 0) {
      parts.back() += "&&";
      ++i;
    } else if (typed[i] == '&') {
      parts.emplace_back();
    } else {
      parts.back() += typed[i];
    }
  }
  return parts;
}

std::vector<std::string> Expanded(const std::string& from, const std::string& to) {
  const std::string range = "the range " + from + "&&" + to;
  if (from.size() != to.size()) throw ElementsError(range + " has ends of different length");
  std::size_t digits = from.size();
  while (digits > 0 && IsDigit(from[digits - 1]) && IsDigit(to[digits - 1])) --digits;
  if (digits == from.size() || from.compare(0, digits, to, 0, digits) != 0 || from.size() - digits > 18)
    throw ElementsError(range + " has ends that do not differ in their last digits alone");
  long long first = 0;
  long long last = 0;
  std::from_chars(from.data() + digits, from.data() + from.size(), first);
  std::from_chars(to.data() + digits, to.data() + to.size(), last);
  if (first > last) throw ElementsError(range + " ends before it begins");
  if (static_cast<unsigned long long>(last - first) >= mostElements)
    throw ElementsError(range + " holds more than " + std::to_string(mostElements) + " values");
  std::vector<std::string> elements;
  for (long long number = first; number <= last; ++number) {
    std::string text = std::to_string(number);
    text.insert(0, from.size() - digits - text.size(), '0');
    elements.push_back(from.substr(0, digits) + text);
  }
  return elements;
}

// The element that comes next in a range; nothing where the digits at the end are all nines, or none.
std::string Successor(std::string element) {
  for (std::size_t i = element.size(); i > 0 && IsDigit(element[i - 1]); --i) {
    if (element[i - 1] != '9') {
      ++element[i - 1];
      return element;
    }
    element[i - 1] = '0';
  }
  return "";
}

}  // namespace

std::vector<std::vector<std::string>> ElementsByPart(const std::string& typed) {
  std::vector<std::vector<std::string>> elements;
  std::size_t count = 0;
  for (const std::string& part : Parts(typed)) {
    const std::size_t range = part.find("&&");
    const std::string from = part.substr(0, range);
    const std::string to = range == part.npos ? from : part.substr(range + 2);
    if (from.empty() || to.empty()) throw ElementsError("a value is missing beside an &");
    if (to.find("&&") != to.npos) throw ElementsError("the range " + part + " has more than two ends");
    elements.push_back(range == part.npos ? std::vector{part} : Expanded(from, to));
    count += elements.back().size();
    if (count > mostElements) throw ElementsError("these are more than " + std::to_string(mostElements) + " values");
  }
  return elements;
}

std::vector<std::string> Elements(const std::string& typed) {
  std::vector<std::string> all;
  for (std::vector<std::string>& part : ElementsByPart(typed))
    all.insert(all.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
  return all;
}

std::vector<std::string> AsRanges(const std::vector<std::string>& elements) {
  std::vector<std::string> ranges;
  for (std::size_t first = 0, last = 0; first < elements.size(); first = ++last) {
    while (last + 1 < elements.size() && elements[last + 1] == Successor(elements[last])) ++last;
    ranges.push_back(first == last ? elements[first] : elements[first] + "&&" + elements[last]);
  }
  return ranges;
}

bool HoldsRange(const std::string& typed) { return typed.find("&&") != typed.npos; }

bool HoldsSeveral(const std::string& typed) { return Parts(typed).size() > 1; }

}  // namespace cordboard::workbench
