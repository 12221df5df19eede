#include "cli/Candidates.h"

#include <algorithm>
#include <optional>

#include "cli/EditedForm.h"
#include "cli/Files.h"
#include "cli/Subcommands.h"
#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/history/History.h"
#include "workbench/history/StateInWords.h"
#include "workbench/host/Session.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Quoted.h"

namespace cordboard::cli {

namespace {

using workbench::Assignment;
using workbench::Filling;
using workbench::FormDefinition;
using workbench::ParameterDefinition;
using workbench::Session;

// Puts what is typed already before each word.
Candidates After(const std::string& typed, Candidates candidates) {
  for (auto& candidate : candidates) candidate.value.insert(0, typed);
  return candidates;
}

void Append(Candidates& candidates, const Candidates& others) {
  candidates.insert(candidates.end(), others.begin(), others.end());
}

// The names that are not given yet.
Candidates Names(const FormDefinition& form, const std::vector<std::string>& names,
                 const std::vector<Assignment>& given) {
  Candidates candidates;
  for (const std::string& name : names) {
    if (std::ranges::find(given, name, &Assignment::name) != given.end()) continue;
    const ParameterDefinition* parameter = form.Find(name);
    candidates.push_back({name + "=", parameter == nullptr ? "" : parameter->title});
  }
  return candidates;
}

// What stands behind the equals sign begins anew at each "&" where the parameter takes several values.
std::size_t ValueBegins(const ParameterDefinition& parameter, const std::string& word, std::size_t equals) {
  const std::size_t sign = word.rfind('&');
  return parameter.TakesElements() && sign != word.npos ? sign + 1 : equals + 1;
}

// What a form is filled with before the word that is typed.
using Fill = std::function<Filling(Session& session)>;

Candidates ValuesOf(const LookUp& lookUp, const FormDefinition& form, const Fill& fill, const std::string& word) {
  const std::size_t equals = word.find('=');
  const ParameterDefinition* parameter = form.Find(word.substr(0, equals));
  if (parameter == nullptr) return {};
  Session session(lookUp.exchange());
  Filling filling = fill(session);
  const workbench::ValueList* list = filling.IsRefused() ? nullptr : filling.ListOf(parameter->name);
  if (list == nullptr) return {};
  const std::size_t begin = ValueBegins(*parameter, word, equals);
  const std::string typed = word.substr(begin);
  const auto begins = [&typed](const std::string& value) { return value.starts_with(typed); };
  Candidates candidates = list->First(lookUp.most, {.accept = begins});
  if (parameter->next && begins("next")) candidates.insert(candidates.begin(), {"next", "the first that is free"});
  return After(word.substr(0, begin), std::move(candidates));
}

// A text within a statement.
std::string AsLiteral(const std::string& text) {
  std::string literal = "'";
  for (const char c : text) literal += c == '\'' ? "''" : std::string(1, c);
  return literal + "'";
}

// --- Lines of a plan.

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

Candidates NewValues(const LookUp& lookUp, const FormDefinition& form, const workbench::UserAction& soFar,
                     const std::string& word) {
  const bool edits = soFar.kind == workbench::UserAction::Kind::Edit;
  if (word.find('=') == word.npos) {
    std::vector<std::string> names;
    for (const auto& parameter : form.parameters) {
      if (!edits || !parameter.addOnly) names.push_back(parameter.name);
    }
    return Names(form, names, soFar.values);
  }
  return ValuesOf(
      lookUp, form,
      [&](Session& session) {
        // Where several records are edited, there is no form of one.
        try {
          if (edits) return FillSelected(session, form, soFar.selection, soFar.values);
        } catch (const Exit&) {
        }
        return FillForm(session, form, soFar.values, soFar.from);
      },
      word);
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

Candidates CommandNames() {
  Candidates candidates;
  for (const FormDefinition* form : workbench::Forms()) candidates.push_back({form->command, form->title});
  return candidates;
}

Candidates ParameterNames(const FormDefinition& form) {
  Candidates candidates;
  for (const auto& parameter : form.parameters) candidates.push_back({parameter.name, parameter.title});
  return candidates;
}

Candidates StateNumbers(const LookUp& lookUp) {
  const workbench::History history(lookUp.exchange().Dynamic());
  Candidates candidates;
  for (auto state = history.states().rbegin(); state != history.states().rend(); ++state)
    candidates.push_back({std::to_string(state->number), Told(*state)});
  return candidates;
}

Candidates FormValues(const LookUp& lookUp, const FormDefinition& form, const std::vector<Assignment>& given,
                      const std::string& word) {
  return NewValues(lookUp, form, {.command = form.command, .selection = {}, .values = given}, word);
}

Candidates StoredValues(const LookUp& lookUp, const FormDefinition& form, const std::vector<Assignment>& given,
                        const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == word.npos) {
    std::vector<std::string> names;
    for (const FormDefinition* table : form.OfEachTable()) {
      for (const std::string& column : table->columns) {
        if (column != "CMDID" && std::ranges::find(names, column) == names.end()) names.push_back(column);
      }
    }
    return Names(form, names, given);
  }
  const std::string column = word.substr(0, equals);
  std::vector<Assignment> selection = given;
  selection.push_back({column, ""});
  const auto tables = TablesWith(form, selection);
  if (form.IsSecret(column) || !std::holds_alternative<std::vector<const FormDefinition*>>(tables)) return {};
  selection.pop_back();
  const ParameterDefinition* parameter = form.Find(column);
  const std::size_t begin = parameter == nullptr ? equals + 1 : ValueBegins(*parameter, word, equals);
  const std::string typed = AsLiteral(word.substr(begin));
  const std::string end = " GROUP BY [" + column + "] HAVING SUBSTR([" + column + "], 1, LENGTH(" + typed +
                          ")) = " + typed + " LIMIT " + std::to_string(lookUp.most);
  Candidates candidates;
  for (const FormDefinition* table : std::get<0>(tables)) {
    const RowSet stored = SelectRecords(lookUp.exchange(), *table, "[" + column + "]", selection, end);
    for (std::size_t row = 0; row < stored.RowCount(); ++row) {
      if (!stored[0][row].IsBlank()) candidates.push_back({Joined(stored[0][row]), ""});
    }
  }
  return After(word.substr(0, begin), std::move(candidates));
}

Candidates LineContinued(const LookUp& lookUp, const std::string& line) {
  const std::string verb = line.starts_with("edit ") ? "edit " : line.starts_with("delete ") ? "delete " : "";
  const std::size_t afterCommand = line.find_first_of(" :", verb.size());
  if (afterCommand == line.npos) {
    Candidates candidates = CommandNames();
    for (auto& command : candidates) command.value = verb + command.value + (verb.empty() ? ":" : " ");
    if (verb.empty()) Append(candidates, {{"edit ", "Change a record"}, {"delete ", "Remove a record"}});
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
