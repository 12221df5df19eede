#include "cli/Candidates.h"

#include <algorithm>
#include <sstream>

#include "cli/Files.h"
#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/host/Session.h"

namespace cordboard::cli {

namespace {

using workbench::FormDefinition;

// Puts what is typed already before each word.
Candidates After(const std::string& typed, Candidates candidates) {
  for (auto& candidate : candidates) candidate.value.insert(0, typed);
  return candidates;
}

void Append(Candidates& candidates, const Candidates& others) {
  candidates.insert(candidates.end(), others.begin(), others.end());
}

Candidates Names(const FormDefinition& form, const std::vector<std::string>& names) {
  Candidates candidates;
  for (const std::string& name : names) {
    const workbench::ParameterDefinition* parameter = form.Find(name);
    candidates.push_back({name + "=", parameter == nullptr ? "" : parameter->title});
  }
  return candidates;
}

// What stands behind the equals sign begins anew at each "&" where the parameter takes several values.
std::size_t ValueBegins(const FormDefinition& form, const std::string& word, std::size_t equals) {
  const workbench::ParameterDefinition* parameter = form.Find(word.substr(0, equals));
  const std::size_t sign = word.rfind('&');
  return parameter != nullptr && parameter->TakesElements() && sign != word.npos ? sign + 1 : equals + 1;
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, ',');) parts.push_back(part);
  return parts;
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

Candidates FormValues(const std::string& file, const FormDefinition& form, const std::vector<std::string>& given,
                      const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == word.npos) {
    std::vector<std::string> names;
    for (const auto& parameter : form.parameters) names.push_back(parameter.name);
    return Names(form, names);
  }
  const std::string parameter = word.substr(0, equals);
  if (form.Find(parameter) == nullptr) return {};
  const auto exchange = OpenToRead(file);
  workbench::Session session(*exchange);
  workbench::Filling filling = FillForm(session, form, AssignmentsOf(given));
  const workbench::ValueList* list = filling.IsRefused() ? nullptr : filling.ListOf(parameter);
  if (list == nullptr) return {};
  return After(word.substr(0, ValueBegins(form, word, equals)), list->All());
}

Candidates StoredValues(const std::string& file, const FormDefinition& form, const std::vector<std::string>& given,
                        const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == word.npos) {
    std::vector<std::string> names;
    for (const FormDefinition* table : form.OfEachTable()) {
      for (const std::string& column : table->columns) {
        if (column != "CMDID" && std::ranges::find(names, column) == names.end()) names.push_back(column);
      }
    }
    return Names(form, names);
  }
  const std::string column = word.substr(0, equals);
  std::vector<workbench::Assignment> selection = AssignmentsOf(given);
  selection.push_back({column, ""});
  const auto tables = TablesWith(form, selection);
  if (form.IsSecret(column) || !std::holds_alternative<std::vector<const FormDefinition*>>(tables)) return {};
  selection.pop_back();
  const auto exchange = OpenToRead(file);
  Candidates candidates;
  for (const FormDefinition* table : std::get<0>(tables)) {
    const RowSet stored = SelectRecords(*exchange, *table, "DISTINCT [" + column + "]", selection, "");
    for (std::size_t row = 0; row < stored.RowCount(); ++row) {
      if (!stored[0][row].IsBlank()) candidates.push_back({column + "=" + Joined(stored[0][row]), ""});
    }
  }
  return candidates;
}

Candidates LineContinued(const std::string& file, const std::string& line) {
  const std::string verb = line.starts_with("edit ") ? "edit " : line.starts_with("delete ") ? "delete " : "";
  const std::string action = line.substr(verb.size());
  const std::size_t afterCommand = action.find_first_of(" :");
  if (afterCommand == action.npos) {
    Candidates candidates = CommandNames();
    for (auto& command : candidates) command.value = verb + command.value + (verb.empty() ? ":" : " ");
    if (verb.empty()) Append(candidates, {{"edit ", "Change a record"}, {"delete ", "Remove a record"}});
    return candidates;
  }
  const FormDefinition& form = FormOf(action.substr(0, afterCommand));
  const std::size_t colon = line.find(':');
  const bool selects = colon == line.npos;
  const std::size_t begin = selects ? verb.size() + afterCommand + 1 : colon + 1;
  const std::size_t comma = line.rfind(',');
  const std::size_t word = comma == line.npos || comma < begin ? begin : comma + 1;
  const auto values = selects ? StoredValues : FormValues;
  const std::vector<std::string> given = SplitAtCommas(line.substr(begin, word - begin));
  return After(line.substr(0, word), values(file, form, given, line.substr(word)));
}

}  // namespace cordboard::cli
