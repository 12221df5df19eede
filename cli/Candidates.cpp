#include "cli/Candidates.h"

#include <algorithm>

#include "cli/EditedForm.h"
#include "cli/Files.h"
#include "cli/Subcommands.h"
#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/history/History.h"
#include "workbench/history/StateInWords.h"
#include "workbench/host/Session.h"

namespace cordboard::cli {

namespace {

using workbench::Assignment;
using workbench::Filling;
using workbench::FormDefinition;
using workbench::ParameterDefinition;
using workbench::Session;

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

}  // namespace

Candidates After(const std::string& typed, Candidates candidates) {
  for (auto& candidate : candidates) candidate.value.insert(0, typed);
  return candidates;
}

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

}  // namespace cordboard::cli
