#include "workbench/plans/LineReader.h"

#include <algorithm>

#include "script/Text.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Quoted.h"

namespace cordboard::workbench {

namespace {

constexpr std::string_view blanks = " \t\r";

}  // namespace

bool IsBlank(char sign) { return blanks.find(sign) != blanks.npos; }

bool LineReader::Take(char sign) {
  if (!rest_.starts_with(sign)) return false;
  Skip(1);
  return true;
}

bool LineReader::TakeWord(std::string_view wanted) {
  const bool ends =
      rest_.size() > wanted.size() && std::string_view(" \t\":;").find(rest_[wanted.size()]) != rest_.npos;
  if (!rest_.starts_with(wanted) || !ends) return false;
  Skip(wanted.size());
  return true;
}

std::string LineReader::Name() {
  std::string name(rest_.substr(0, rest_.find_first_of(" \t:,;=\"#")));
  Skip(name.size());
  return name;
}

Assignment LineReader::NextAssignment(std::string_view ends, const std::string& hint) {
  const std::string name = Name();
  if (name.empty()) Refuse("a parameter name is missing");
  if (!Take('=')) Refuse("an equals sign is missing", hint);
  const std::size_t begin = Position();
  assigned_.push_back({{name, Content(ends)}, begin, Position()});
  return assigned_.back().assignment;
}

std::string LineReader::Content(std::string_view ends) {
  if (rest_.starts_with('"')) {
    auto quoted = TakeQuoted(rest_);
    if (!quoted) Refuse("a double quote is opened and not closed");
    SkipBlanks();
    return *quoted;
  }
  const std::string_view content = rest_.substr(0, rest_.find_first_of(ends));
  std::string value(content.substr(0, content.find_last_not_of(blanks) + 1));
  rest_.remove_prefix(content.size());
  return value;
}

void LineReader::Refuse(const std::string& message, const std::string& hint) const {
  const std::size_t column = Column(Position());
  throw PlanLineError(message + " at column " + std::to_string(column) + hint, column, AtEnd());
}

std::size_t LineReader::Column(std::size_t position) const { return Length(line_.substr(0, position)) + 1; }

void LineReader::Skip(std::size_t count) {
  rest_.remove_prefix(count);
  SkipBlanks();
}

void LineReader::SkipBlanks() {
  const std::size_t first = rest_.find_first_not_of(blanks);
  rest_.remove_prefix(std::min(first, rest_.size()));
}

}  // namespace cordboard::workbench
