#include "workbench/dialect/DialectError.h"

#include <algorithm>
#include <string>

namespace cordboard::workbench {
namespace {

constexpr std::size_t excerptLength = 40;

// What stands at the place, on one line and in ASCII: a statement can hold any bytes, a message cannot.
std::string Excerpt(std::string_view statement, std::size_t place) {
  std::string excerpt(statement.substr(place, excerptLength));
  std::replace_if(
      excerpt.begin(), excerpt.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
  std::replace_if(
      excerpt.begin(), excerpt.end(), [](char c) { return c < 0 || c > '~'; }, '?');
  return statement.size() - place > excerptLength ? excerpt + "..." : excerpt;
}

std::string Message(std::string_view message, std::string_view statement, std::size_t place) {
  if (place >= statement.size()) return std::string(message) + ", at the end of the statement";
  return std::string(message) + ", at character " + std::to_string(place + 1) + ": " + Excerpt(statement, place);
}

}  // namespace

DialectError::DialectError(std::string_view message, std::string_view statement, std::size_t place)
    : std::runtime_error(Message(message, statement, place)) {}

}  // namespace cordboard::workbench
