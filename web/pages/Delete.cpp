// Deleting a record: who refers to it, what that will do, and doing it.
#include "script/Conversions.h"
#include "web/Frame.h"
#include "web/Performing.h"
#include "web/Selecting.h"
#include "web/Since.h"
#include "web/Told.h"
#include "web/pages/Pages.h"
#include "workbench/actions/Called.h"
#include "workbench/actions/Reasons.h"
#include "workbench/plans/SavedPlan.h"

namespace cordboard::web {

namespace {

using workbench::Assignment;
using workbench::FormDefinition;
using workbench::Holder;

constexpr std::size_t mostHolders = 20;  // of each column

const FormDefinition& Deletable(const Fields& fields) {
  const FormDefinition& form = FormOf(fields);
  if (!form.deletes) throw Failed(NotFound, "Records of " + form.command + " cannot be deleted.");
  return form;
}

workbench::UserAction Deletion(const FormDefinition& form, const std::vector<Assignment>& selection) {
  return {.kind = workbench::UserAction::Kind::Delete, .command = form.command, .selection = selection, .values = {}};
}

std::string TitleOf(const FormDefinition& form, const std::vector<Assignment>& selection) {
  return form.command + ": delete " + Named(form, selection);
}

Html Referring(workbench::Exchange& exchange, const workbench::StoredRecord& record) {
  workbench::Form form(*record.definition);
  LoadRecord(exchange, *record.definition, record.CmdId, form);
  Html items;
  for (const auto& [thing, value, holders] : NamedBy(exchange, *record.definition, form, mostHolders)) {
    for (const Holder& holder : holders)
      items += Element("li", "the " + thing->name + " " + value + " by the " + Called(holder));
  }
  if (items.IsEmpty()) return Element("p", "No record names it.");
  return Element("h2", "Named by other records") + Element("ul", items);
}

}  // namespace

Answer ConfirmDelete(const Visit& visit, const Request& request) {
  const FormDefinition& form = Deletable(request.query);
  const std::vector<Assignment> selection = SelectionOf(request.query);
  const auto copy = visit.Read();
  Html content = Referring(*copy, RecordOf(*copy, form, selection));
  const std::string mark = MarkOf(*copy);
  const Performed performed = PerformOn(*copy, Deletion(form, selection), mark);
  if (!performed.done) {
    content = ProblemList("The exchange refuses this", "error", performed.problems, false) + content;
    return Page(visit, TitleOf(form, selection), content, Conflict);
  }
  content += ProblemList("What to know", "warning", performed.problems, false) + Element("h2", "What it will do") +
             performed.changes;
  Html fields = Hidden("command", form.command) + Hidden("mark", mark);
  for (const Assignment& each : selection) fields += Hidden("of", each.name + "=" + each.value);
  if (!visit.readOnly())
    content += ChangingForm(visit, "/delete", {{"class", "actions"}},
                            fields + Element("button", {{"type", "submit"}, {"class", "main"}}, "Delete it"));
  return Page(visit, TitleOf(form, selection), Notice("note", "Nothing is done yet.") + content);
}

Answer Delete(const Visit& visit, const Request& request) {
  const FormDefinition& form = Deletable(request.form);
  const std::vector<Assignment> selection = SelectionOf(request.form);
  const std::string title = TitleOf(form, selection);
  const Html back = Element("p", {{"class", "actions"}},
                            Link(Address("/records", {{"command", form.command}}), "Records of " + form.command) + " " +
                                Link("/history", "Undo"));
  const auto exchange = visit.Write();
  try {
    const Performed performed = PerformOn(*exchange, Deletion(form, selection), OneLine(request.form["mark"]));
    if (!performed.done)
      return Page(visit, title, ProblemList("The exchange refuses this", "error", performed.problems, false) + back,
                  Conflict);
    return Page(visit, title,
                Notice("done", "Done, and kept as state " + std::to_string(performed.state.value_or(0)) + ".") +
                    ProblemList("What to know", "warning", performed.problems, false) + performed.changes + back);
  } catch (const workbench::StalePlan&) {
    return Page(visit, title, ChangesSince(visit, request.form["mark"]) + back, Conflict);
  }
}

}  // namespace cordboard::web
