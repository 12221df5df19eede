#include "workbench/plans/Ensure.h"

#include <algorithm>
#include <iterator>

#include "workbench/actions/Alignment.h"
#include "workbench/actions/NextValues.h"
#include "workbench/actions/Selection.h"
#include "workbench/actions/Templates.h"
#include "workbench/actions/ToldRecords.h"
#include "workbench/plans/DerivedValues.h"
#include "workbench/plans/ExchangeLine.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

using Values = std::vector<Assignment>;

Outcome Refused(const Problem& problem) { return {.problems = {problem}}; }

void Append(Outcome& whole, Outcome part) {
  whole.done = whole.done && part.done;
  whole.standing += part.standing;
  std::ranges::move(part.problems, std::back_inserter(whole.problems));
  std::ranges::move(part.warnings, std::back_inserter(whole.warnings));
  std::ranges::move(part.taken, std::back_inserter(whole.taken));
  std::ranges::move(part.debugLines, std::back_inserter(whole.debugLines));
}

// --- Adds.

// Of parameters that add up to the same digits an add gives some, and the others are nothing.
void ClearOtherParts(const Exchange& exchange, const FormDefinition& table, Values& told) {
  for (const Folding& folding : table.foldings) {
    for (const DigitPlace& place : folding.places) {
      const auto isTold = [&told](const std::string& name) { return Has(told, name); };
      if (place.parameters.size() < 2 || std::ranges::none_of(place.parameters, isTold)) continue;
      for (const std::string& name : place.parameters) {
        const ParameterDefinition* parameter = table.Find(name);
        if (!isTold(name) && parameter != nullptr && parameter->IsIn(exchange.release())) told.push_back({name, ""});
      }
    }
  }
}

// What the line tells of a record beside its key, with the values of the template under those of the line.
Values ToldOf(const Exchange& exchange, const FormDefinition& table, const Values& ofTemplate, const Values& line) {
  Values told;
  std::ranges::copy_if(ofTemplate, std::back_inserter(told), [&](const Assignment& each) {
    const ParameterDefinition* parameter = table.Find(each.name);
    return !Has(line, each.name) && parameter != nullptr && parameter->IsIn(exchange.release()) &&
           !table.IsElsewhere(each.name);
  });
  std::ranges::copy_if(line, std::back_inserter(told), [&](const Assignment& each) {
    return std::ranges::find(table.key, each.name) == table.key.end() ||
           std::ranges::find(table.columns, each.name) == table.columns.end();
  });
  ClearOtherParts(exchange, table, told);
  return told;
}

Outcome AlignAll(Session& session, const ToldRecords& told, const Values& ofTemplate) {
  Outcome whole{.done = true};
  for (const ToldRecord& record : told.records) {
    if (!record.standing) continue;
    const Selection one{.records = {{*record.standing, record.name}}, .several = told.several};
    Append(whole, PerformOnEach(session, one, [&](const StoredRecord& stored) {
             return Align(session, stored, ToldOf(session.exchange(), *stored.definition, ofTemplate, record.values));
           }));
  }
  return whole;
}

Outcome EnsureAdd(Session& session, const FormDefinition& form, const UserAction& line) {
  Values values = line.values;
  const Values derived = TakeDerived(form, values);
  const ToldRecords told = FindTold(session.exchange(), form, values);
  if (told.problem) return Refused(*told.problem);
  if (std::ranges::none_of(told.records, [](const ToldRecord& record) { return record.standing.has_value(); }))
    return PerformLine(session, line);
  Values ofTemplate;
  if (!line.from.empty()) {
    const auto found = TemplateValues(session.exchange(), form, line.from);
    if (const auto* problem = std::get_if<Problem>(&found)) return Refused(*problem);
    ofTemplate = std::get<Values>(found);
  }
  Outcome whole = AlignAll(session, told, ofTemplate);
  for (UserAction add = line; Values & missing : told.Missing()) {
    add.values = missing;
    std::ranges::copy(derived, std::back_inserter(add.values));
    Append(whole, PerformLine(session, add));
  }
  if (!derived.empty() && whole.done)
    std::ranges::move(Differences(form, derived, LineWith(session, form, values)), std::back_inserter(whole.warnings));
  return whole;
}

// --- Edits and deletes.

// Where the record that is to be changed is not there, it may have been changed before: it has the new values then.
Outcome AsChangedBefore(Session& session, const FormDefinition& form, const UserAction& line, const Problem& why) {
  Values selection = line.selection;
  for (Assignment& each : selection) {
    if (Has(line.values, each.name)) each.value = ValueOf(line.values, each.name);
  }
  const auto found = FindRecord(session.exchange(), form, selection);
  const auto* record = std::get_if<StoredRecord>(&found);
  if (record == nullptr) return Refused(why);
  Outcome outcome = Align(session, *record, line.values);
  return outcome.standing == 1 ? outcome : Refused(why);
}

Outcome EnsureEdit(Session& session, const FormDefinition& form, const UserAction& line) {
  for (const Assignment& each : line.values) {
    if (IsNext(form, each))
      return Refused({.parameter = each.name,
                      .value = each.value,
                      .message = "next is another value each time that the line is applied; give the value itself"});
  }
  auto found = FindRecords(session.exchange(), form, line.selection);
  if (const auto* problem = std::get_if<Problem>(&found)) return AsChangedBefore(session, form, line, *problem);
  return PerformOnEach(session, std::get<Selection>(found),
                       [&](const StoredRecord& record) { return Align(session, record, line.values); });
}

// How many records the selection names at the least.
std::size_t Named(Exchange& exchange, const FormDefinition& form, const Values& selection) {
  std::size_t named = 1;
  for (const Assignment& each : selection) named *= SelectedValues(exchange, form, each).size();
  return named;
}

Outcome EnsureDelete(Session& session, const FormDefinition& form, const UserAction& line) {
  Exchange& exchange = session.exchange();
  const auto tables = TablesWith(form, line.selection);
  if (const auto* problem = std::get_if<Problem>(&tables)) return Refused(*problem);
  const std::size_t named = Named(exchange, form, line.selection);
  const auto isEmpty = [&](const FormDefinition* table) {
    return SelectRecords(exchange, *table, "[CmdId]", line.selection, " LIMIT 1").IsEmpty();
  };
  if (std::ranges::all_of(std::get<0>(tables), isEmpty)) return {.done = true, .standing = named};
  auto found = FindRecords(exchange, form, line.selection);
  if (const auto* problem = std::get_if<Problem>(&found)) return Refused(*problem);
  Selection& selection = std::get<Selection>(found);
  selection.notThere.clear();
  Outcome outcome =
      PerformOnEach(session, selection, [&](const StoredRecord& record) { return Delete(session, record); });
  outcome.standing = named - std::min(named, selection.records.size());
  return outcome;
}

}  // namespace

Outcome EnsureLine(Session& session, const UserAction& line) {
  const FormDefinition* form = FindForm(line.command);
  if (form == nullptr) return Perform(session, line);
  switch (line.kind) {
    case UserAction::Kind::Edit: return form->edits ? EnsureEdit(session, *form, line) : Perform(session, line);
    case UserAction::Kind::Delete: return form->deletes ? EnsureDelete(session, *form, line) : Perform(session, line);
    case UserAction::Kind::Add: break;
  }
  const UserAction add = OfTemplate(*form, line);
  form = FindForm(add.command);
  return form->adds ? EnsureAdd(session, *form, add) : PerformLine(session, line);
}

}  // namespace cordboard::workbench
