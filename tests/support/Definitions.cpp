#include "support/Definitions.h"

#include <algorithm>
#include <cctype>

#include "script/HostCall.h"

namespace cordboard {

namespace {

bool IsNamePart(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

bool IsName(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsNamePart); }

// The name that a call begins with.
std::string Head(const std::string& call) { return call.substr(0, call.find('(')); }

// What stands in the brackets of a call, "" without brackets.
std::string Inside(const std::string& call, const Place& place) {
  const std::size_t open = call.find('(');
  if (open == call.npos) return "";
  if (!call.ends_with(')')) throw TranscriptError(place, "a call ends with a bracket, and not as " + call);
  return call.substr(open + 1, call.size() - open - 2);
}

// A host's operation is known by its name; the box is no operation, and written like one.
bool IsOfTheHost(const std::string& name) {
  return (name.starts_with("sc") && name.size() > 2 && std::isupper(static_cast<unsigned char>(name[2])) != 0) ||
         name == "SetTemplate" || name == "ShowMessageBox";
}

// Names that stand for each other would never end.
void CheckDepth(int depth, const Place& place) {
  if (depth > 20) throw TranscriptError(place, "the names stand for each other");
}

bool IsOperation(const std::string& name) {
  const auto isIt = [&name](const Operation& operation) { return operation.name == name; };
  return name == "ShowMessageBox" || std::ranges::any_of(Operations(), isIt);
}

// read DIR="100", CAT
std::vector<ExpectedCall> Reads(const std::string& text, const Place& place) {
  std::vector<ExpectedCall> calls;
  for (const std::string& read : Parts(text, ',')) {
    const std::size_t equals = FindOutside(read, "=");
    const std::string name = NameIn(read.substr(0, equals));
    if (!IsName(name)) throw TranscriptError(place, "no name of a parameter: " + read);
    calls.push_back(
        {"scGetParamValue(\"" + name + "\")", equals == read.npos ? "Empty" : read.substr(equals + 1), place});
  }
  if (calls.empty()) throw TranscriptError(place, "read needs the name of a parameter");
  return calls;
}

}  // namespace

std::string NameIn(std::string_view text) {
  text = Trimmed(text);
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
  return std::string(text);
}

bool Definitions::IsDefinition(const TranscriptLine& line) {
  const std::size_t equals = FindOutside(line.text, "=");
  if (line.indented || equals == std::string::npos) return false;
  return IsName(Head(std::string(Trimmed(line.text.substr(0, equals)))));
}

void Definitions::Add(const TranscriptLine& first, const std::vector<TranscriptLine>& calls) {
  const std::size_t equals = FindOutside(first.text, "=");
  const std::string head(Trimmed(first.text.substr(0, equals)));
  const std::string body(Trimmed(first.text.substr(equals + 1)));
  Definition definition;
  definition.parameters = Parts(Inside(head, first.place), ',');
  if (!definition.parameters.empty() && definition.parameters.back().ends_with("...")) {
    definition.takesRest = true;
    definition.parameters.back().resize(definition.parameters.back().size() - 3);
  }
  for (const std::string& parameter : definition.parameters) {
    if (!IsName(parameter)) throw TranscriptError(first.place, "no name of an argument: " + parameter);
  }
  if (body.empty() == calls.empty())
    throw TranscriptError(first.place, "a definition has its text on its line, or calls on indented lines after it");
  definition.isText = !body.empty() && definition.parameters.empty();
  definition.lines = body.empty() ? calls : std::vector<TranscriptLine>{{body, true, first.place}};
  if (IsOfTheHost(Head(head))) throw TranscriptError(first.place, "this name is the host's: " + Head(head));
  if (!definitions_.emplace(Head(head), std::move(definition)).second)
    throw TranscriptError(first.place, "the name is defined already: " + Head(head));
}

std::string Definitions::Substituted(const std::string& text, const Variables& variables, const Place& place,
                                     int depth) const {
  CheckDepth(depth, place);
  std::string result;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    const std::size_t end = text[i] == '{' ? text.find('}', i) : text.npos;
    const std::string name = end == text.npos ? "" : text.substr(i + 1, end - i - 1);
    if (!IsName(name) || name == "NL" || name == "LF" || name == "QT") {
      result += text[i];
      continue;
    }
    std::string value;
    if (const auto variable = variables.find(name); variable != variables.end()) {
      value = variable->second;
    } else if (const auto defined = definitions_.find(name); defined != definitions_.end() && defined->second.isText) {
      const TranscriptLine& line = defined->second.lines.front();
      value = Substituted(line.text, {}, line.place, depth + 1);
    } else {
      throw TranscriptError(place, "the name stands for nothing here: {" + name + "}");
    }
    result += quoted ? NameIn(value) : value;
    i = end;
  }
  return result;
}

std::vector<ExpectedCall> Definitions::Expanded(const TranscriptLine& line, const Variables& variables,
                                                int depth) const {
  const std::string text = Substituted(line.text, variables, line.place, depth);
  if (text.starts_with("read ")) return Reads(text.substr(5), line.place);
  const std::size_t arrow = FindOutside(text, "->");
  const std::string call(Trimmed(text.substr(0, arrow)));
  const std::string answer(arrow == text.npos ? "" : Trimmed(text.substr(arrow + 2)));
  if (arrow != text.npos && answer.empty()) throw TranscriptError(line.place, "there is no answer after ->");
  if (!IsOfTheHost(Head(call))) return Applied(call, answer, line.place, depth + 1);
  if (call.find('(') == call.npos) throw TranscriptError(line.place, "a call of the host has brackets: " + call);
  if (!IsOperation(Head(call))) throw TranscriptError(line.place, "the host has no operation " + Head(call));
  Inside(call, line.place);
  return {{call, answer, line.place}};
}

std::vector<ExpectedCall> Definitions::Applied(const std::string& call, const std::string& answer, const Place& place,
                                               int depth) const {
  const auto found = definitions_.find(Head(call));
  if (found == definitions_.end()) throw TranscriptError(place, "nothing is defined by the name " + Head(call));
  const Variables arguments = Bound(Head(call), found->second, call, place);
  std::vector<ExpectedCall> calls;
  for (const TranscriptLine& line : found->second.lines) {
    for (ExpectedCall& expected : Expanded(line, arguments, depth)) calls.push_back(std::move(expected));
  }
  for (ExpectedCall& expected : calls) expected.place = place;
  if (!answer.empty()) calls.back().answer = answer;
  return calls;
}

Variables Definitions::Bound(const std::string& name, const Definition& definition, const std::string& call,
                             const Place& place) const {
  const std::vector<std::string> arguments = Parts(Inside(call, place), ',');
  const std::size_t count = definition.parameters.size();
  if (arguments.size() < count || (arguments.size() > count && !definition.takesRest))
    throw TranscriptError(
        place, name + " takes " + std::to_string(count) + " arguments, and not " + std::to_string(arguments.size()));
  Variables bound;
  for (std::size_t i = 0; i < count; ++i) bound[definition.parameters[i]] = arguments[i];
  for (std::size_t i = count; i < arguments.size(); ++i) bound[definition.parameters.back()] += ", " + arguments[i];
  return bound;
}

}  // namespace cordboard
