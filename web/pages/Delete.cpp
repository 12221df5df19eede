// Deleting a record: who refers to it, what that will do, and doing it.
#include "web/Frame.h"
#include "web/Performing.h"
#include "web/Selecting.h"
#include "web/Since.h"
#include "web/Told.h"
#include "web/pages/Pages.h"
#include "workbench/actions/Called.h"
#include "workbench/actions/Reasons.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/plans/ToldPlan.h"

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

Html Ways(const FormDefinition& form, const Html& last) {
  return Element("p", {{"class", "actions"}},
                 Link(Address("/records", {{"command", form.command}}), "Records of " + form.command) + " " + last);
}

// Who names the record, what goes with it, and the button.
Answer Question(const Visit& visit, const FormDefinition& form, const std::vector<Assignment>& asked,
                const Html& notice, int status) {
  const auto copy = visit.Read();
  const std::vector<Assignment> selection = SelectionForLines(*copy, form, asked);
  const std::string title = TitleOf(form, selection);
  const Html named = notice + Referring(*copy, RecordOf(*copy, form, selection));
  const std::string mark = MarkOf(*copy);
  const Performed performed = PerformOn(*copy, Deletion(form, selection), mark);
  if (!performed.done) {
    const Html refusal = ProblemList("The exchange refuses this", "error", performed.problems, false);
    return Page(visit, title, refusal + named + Ways(form, {}), Conflict);
  }
  Html fields = Hidden("command", form.command) + Hidden("mark", mark);
  for (const Assignment& each : selection) fields += Hidden("of", each.name + "=" + each.value);
  Html button;
  if (!visit.readOnly())
    button = ChangingForm(visit, "/delete", {{"class", "actions"}},
                          fields + Element("button", {{"type", "submit"}, {"class", "main"}}, "Delete it"));
  return Page(visit, title,
              Notice("note", "Nothing is done yet.") + named +
                  ProblemList("What to know", "warning", performed.problems, false) + Element("h2", "What it will do") +
                  performed.changes + Element("h2", "As a line of a plan") +
                  AsLines(workbench::ToldPlan(performed.line)) + button + Ways(form, {}),
              status);
}

}  // namespace

Answer ConfirmDelete(const Visit& visit, const Request& request) {
  return Question(visit, Deletable(request.query), SelectionOf(request.query), {}, Ok);
}

Answer Delete(const Visit& visit, const Request& request) {
  const FormDefinition& form = Deletable(request.form);
  const std::vector<Assignment> selection = SelectionOf(request.form);
  const std::string title = TitleOf(form, selection);
  const std::string& mark = OneLine(request.form["mark"]);
  try {
    const auto exchange = visit.Write();
    const Performed performed = PerformOn(*exchange, Deletion(form, selection), mark);
    const Html told = ProblemList(performed.done ? "What to know" : "The exchange refuses this",
                                  performed.done ? "warning" : "error", performed.problems, false);
    if (!performed.done) return Page(visit, title, told + Ways(form, {}), Conflict);
    const std::string done = "Done, and kept as state " + std::to_string(performed.state.value_or(0)) + ".";
    return visit.Keep(
        Page(visit, title, Notice("done", done) + told + performed.changes + Ways(form, Link("/history", "Undo"))));
  } catch (const workbench::StalePlan&) {
    return Question(visit, form, selection, ChangesSince(visit, mark), Conflict);
  } catch (const workbench::StorageError& error) {
    return Question(visit, form, selection, Notice("error", std::string(error.what()) + "; nothing was kept"), Busy);
  }
}

}  // namespace cordboard::web
