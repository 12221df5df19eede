#include "cli/LineCandidates.h"

#include <functional>
#include <string>
#include <vector>

#include "cli/Files.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Quoted.h"

namespace cordboard::cli {

namespace {

using workbench::FormDefinition;

// Where the word begins that is typed last, and the colon before the values, as far as there is one: neither stands in
// double quotes, with which a value or the name of a template may begin.
struct Ends {
  std::size_t word = 0;
  std::size_t colon = std::string::npos;
};
Ends EndsOf(const std::string& line, std::size_t begin) {
  Ends ends{.word = begin};
  bool quoted = false;
  for (std::size_t i = begin; i < line.size(); ++i) {
    if (line[i] == '"' && (quoted || line[i - 1] == '=' || line[i - 1] == ' ')) quoted = !quoted;
    const bool isColon = line[i] == ':' && ends.colon == line.npos;
    if (quoted || (line[i] != ',' && !isColon)) continue;
    if (isColon) ends.colon = i;
    ends.word = i + 1;
  }
  while (ends.word < line.size() && line[ends.word] == ' ') ++ends.word;
  return ends;
}

// What is typed before the last word, as an action. It is given its end; a selection that stands alone deletes.
workbench::UserAction ActionSoFar(std::string line, bool selects) {
  if (selects && line.starts_with("edit ")) line.replace(0, 4, "delete");
  line.erase(line.find_last_not_of(' ') + 1);
  if (line.ends_with(',')) line.pop_back();
  return workbench::ParsePlanLine(line + ";").value_or(workbench::UserAction());
}

// A value that is typed in double quotes is looked for without them, and values stand in them where they have to.
Candidates AsInLines(const std::string& word, const std::function<Candidates(const std::string& word)>& candidatesFor) {
  const std::size_t equals = word.find('=');
  const bool quoted = equals != word.npos && word.substr(equals + 1).starts_with('"');
  Candidates candidates = candidatesFor(quoted ? word.substr(0, equals + 1) + word.substr(equals + 2) : word);
  for (auto& [text, description] : candidates) {
    const std::size_t begin = text.find('=') + 1;
    const std::string value = text.substr(begin);
    if (begin > 0) text = text.substr(0, begin) + (quoted ? workbench::Quoted(value) : workbench::WrittenValue(value));
  }
  return candidates;
}

// Behind the command of an add, before its colon: the templates from which it may be made.
Candidates FromTemplate(const LookUp& lookUp, const FormDefinition& form, const std::string& typed) {
  const std::string from = "from ";
  if (form.templates.command.empty()) return {};
  if (!typed.starts_with(from)) return {{from, "Add from a template"}};
  const std::string begin = form.templates.name + "=";
  Candidates candidates = AsInLines(begin + typed.substr(from.size()), [&](const std::string& word) {
    return StoredValues(lookUp, FormOf(form.templates.command), {}, word);
  });
  for (auto& [value, description] : candidates) value.replace(0, begin.size(), from).append(":");
  return candidates;
}

}  // namespace

Candidates LineContinued(const LookUp& lookUp, const std::string& line) {
  const std::string verb = line.starts_with("edit ") ? "edit " : line.starts_with("delete ") ? "delete " : "";
  const std::size_t afterCommand = line.find_first_of(" :", verb.size());
  if (afterCommand == line.npos) {
    Candidates candidates = CommandNames();
    for (auto& command : candidates) command.value = verb + command.value + (verb.empty() ? ":" : " ");
    if (!verb.empty()) return candidates;
    candidates.push_back({"edit ", "Change a record"});
    candidates.push_back({"delete ", "Remove a record"});
    return candidates;
  }
  const FormDefinition& form = FormOf(line.substr(verb.size(), afterCommand - verb.size()));
  const Ends ends = EndsOf(line, afterCommand);
  const bool selects = ends.colon == line.npos;
  if (selects && verb.empty())
    return After(line.substr(0, afterCommand + 1), FromTemplate(lookUp, form, line.substr(afterCommand + 1)));
  const std::size_t begin = selects && ends.word == afterCommand ? afterCommand + 1 : ends.word;
  const workbench::UserAction soFar = ActionSoFar(line.substr(0, begin), selects);
  const auto candidates = AsInLines(line.substr(begin), [&](const std::string& word) {
    return selects ? StoredValues(lookUp, form, soFar.selection, word) : NewValues(lookUp, form, soFar, word);
  });
  return After(line.substr(0, begin), candidates);
}

}  // namespace cordboard::cli
