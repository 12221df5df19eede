#include "workbench/plans/PlanLine.h"

#include <algorithm>

#include "script/Text.h"
#include "workbench/plans/LineReader.h"
#include "workbench/text/Names.h"
#include "workbench/text/Quoted.h"
#include "workbench/text/Separated.h"
#include "workbench/text/Utf8.h"

namespace cordboard::workbench {

namespace {

std::vector<Assignment> Assignments(LineReader& reader, std::string_view ends) {
  std::vector<Assignment> assignments;
  if (reader.AtOneOf(ends)) return assignments;
  std::string hint;
  do {
    assignments.push_back(reader.NextAssignment(std::string(ends) + ",", hint));
    hint = "; a value that holds a comma stands in double quotes";
  } while (reader.Take(','));
  return assignments;
}

// A hint for who has typed EDIT or DELETE, which is taken for a command.
std::string SmallLetters(const std::string& command) {
  for (const char* verb : {"edit", "delete"}) {
    if (SameName(command, verb)) return std::string("; the word ") + verb + " is written in small letters";
  }
  return "";
}

void End(LineReader& reader) {
  if (reader.AtEnd()) throw PlanLineError("the line is not ended: a semicolon is missing", {}, true);
  if (!reader.Take(';')) reader.Refuse("a comma or the semicolon is missing");
  if (!reader.AtEnd() && !reader.AtComment())
    throw PlanLineError("after the semicolon stands more than a comment; give one action a line");
}

void CheckText(std::string_view line) {
  if (line.size() > longestLine)
    throw PlanLineError("the line is longer than " + std::to_string(longestLine) + " bytes");
  if (!IsUtf8(line)) throw PlanLineError("the line is not UTF-8 text");
  if (line.find('\0') != line.npos) throw PlanLineError("the line holds a zero character");
}

std::optional<UserAction> Parse(LineReader& reader) {
  if (reader.AtEnd() || reader.AtComment()) return std::nullopt;
  UserAction action;
  action.command = reader.Name();
  if (action.command == "edit" || action.command == "delete") {
    action.kind = action.command == "edit" ? UserAction::Kind::Edit : UserAction::Kind::Delete;
    action.command = reader.Name();
    if (action.command.empty()) throw PlanLineError("after edit or delete a command is missing", {}, reader.AtEnd());
    if (reader.TakeWord("from")) throw PlanLineError("only an add is made from a template");
    action.selection = Assignments(reader, ":;");
  }
  if (action.command.empty()) throw PlanLineError("a command is missing at the beginning");
  if (action.kind == UserAction::Kind::Add && reader.TakeWord("from")) {
    action.from = reader.Content(":;");
    if (action.from.empty()) throw PlanLineError("after from the name of a template is missing");
  }
  if (action.kind != UserAction::Kind::Delete) {
    if (!reader.Take(':')) reader.Refuse("a colon is missing", SmallLetters(action.command));
    action.values = Assignments(reader, ";");
  }
  End(reader);
  return action;
}

}  // namespace

bool NextLine(std::istream& in, std::string& line) {
  line.clear();
  int c = in.get();
  if (c == std::istream::traits_type::eof()) return false;
  for (; c != std::istream::traits_type::eof() && c != '\n'; c = in.get()) {
    if (line.size() <= longestLine) line += static_cast<char>(c);
  }
  return true;
}

bool FirstLine(std::istream& in, std::string& line) {
  const bool isThere = NextLine(in, line);
  if (line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
  return isThere;
}

std::optional<UserAction> ParsePlanLine(std::string_view line) {
  CheckText(line);
  LineReader reader(line);
  return Parse(reader);
}

std::optional<Stretch> FindInLine(std::string_view line, const std::string& parameter, const std::string& value) {
  LineReader reader(line);
  const auto action = Parse(reader);
  if (!action) return std::nullopt;
  if (parameter.empty()) {
    const std::size_t begin = line.find(action->command);
    return Stretch{reader.Column(begin), Length(action->command)};
  }
  std::optional<Stretch> found;
  for (const auto& [assignment, begin, end] : reader.assigned()) {
    if (assignment.name != parameter) continue;
    const std::string_view text = TrimBlanks(line.substr(begin, end - begin));
    const std::size_t element = value.empty() ? text.npos : text.find(value);
    if (element == text.npos) {
      found = {reader.Column(begin), std::max<std::size_t>(Length(text), 1)};
    } else {
      return Stretch{reader.Column(begin + element), Length(value)};
    }
  }
  return found;
}

std::optional<UserAction> ReadableLine(std::string_view line) {
  try {
    return ParsePlanLine(line);
  } catch (const PlanLineError&) {
    return std::nullopt;
  }
}

std::string WrittenValue(const std::string& value) {
  const bool blankAtEnd = !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()));
  if (value.find_first_of("\",:;#") == value.npos && !blankAtEnd) return value;
  return Quoted(value);
}

std::string WrittenLine(const UserAction& action) {
  const auto written = [](const std::vector<Assignment>& assignments) {
    return Separated(assignments, ",",
                     [](const Assignment& each) { return each.name + "=" + WrittenValue(each.value); });
  };
  if (action.kind == UserAction::Kind::Add) {
    const std::string from = action.from.empty() ? "" : " from " + WrittenValue(action.from);
    return action.command + from + ":" + written(action.values) + ";";
  }
  const std::string selection = action.selection.empty() ? "" : " " + written(action.selection);
  if (action.kind == UserAction::Kind::Delete) return "delete " + action.command + selection + ";";
  return "edit " + action.command + selection + ":" + written(action.values) + ";";
}

Assignment ParseAssignment(std::string_view text) {
  if (!IsUtf8(text)) throw PlanLineError("is not UTF-8 text");
  const std::size_t equals = text.find('=');
  if (equals == text.npos || equals == 0) throw PlanLineError("is not of the form NAME=value");
  return {std::string(TrimBlanks(text.substr(0, equals))), std::string(text.substr(equals + 1))};
}

}  // namespace cordboard::workbench
