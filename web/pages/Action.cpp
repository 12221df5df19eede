// What an action of a form will do, and doing it.
#include "web/FilledForm.h"
#include "web/Performing.h"
#include "web/Selecting.h"
#include "web/Since.h"
#include "web/Told.h"
#include "web/pages/Pages.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/plans/ToldPlan.h"

namespace cordboard::web {

namespace {

using workbench::Exchange;
using workbench::Filling;
using workbench::Problem;

Html Button(const std::string& kind, const std::string& text) {
  return Element("button", {{"type", "submit"}, {"class", kind}}, text);
}

// What was done or is going to be: the line, what became of the records, what to know.
Html Told(const Performed& performed) {
  Html told = ProblemList("What to know", "warning", performed.problems, false);
  for (const workbench::Assignment& taken : performed.taken) told += Element("p", InWords(taken));
  return told + performed.changes + Element("h2", "As a line of a plan") + AsLines(workbench::ToldPlan(performed.line));
}

// The form once more, with what is wrong in front and at its fields.
Answer Again(const Visit& visit, SentForm sent, Exchange& exchange, const Html& notice,
             const std::vector<Problem>& problems, int status = Conflict) {
  workbench::Session session(exchange);
  Filling filling = sent.Fill(session);
  sent.SetMark(MarkOf(exchange));
  const Html form = FilledForm(visit, sent, filling, problems, filling.warnings());
  return Page(visit, TitleOf(sent), notice + Element("div", {{"id", "filled"}}, form), status);
}

Answer Refused(const Visit& visit, const SentForm& sent, Exchange& exchange, const std::vector<Problem>& problems) {
  return Again(visit, sent, exchange, ProblemList("The exchange refuses this", "error", problems, true), problems);
}

// An edit that gives nothing is no action yet.
bool IsNothing(const SentForm& sent) { return sent.IsEdit() && sent.given().empty(); }

Answer Nothing(const Visit& visit, const SentForm& sent) {
  return Again(visit, sent, *visit.Read(), Notice("error", "Nothing is changed yet: type a new value first."), {});
}

}  // namespace

Answer TryAction(const Visit& visit, const Request& request) {
  SentForm sent(request.form);
  if (IsNothing(sent)) return Nothing(visit, sent);
  const auto copy = visit.Read();
  // What is shown is what will be done, on the exchange as it now is.
  sent.SetMark(MarkOf(*copy));
  const Performed performed = PerformOn(*copy, sent.Action(), sent.mark());
  if (!performed.done) return Refused(visit, sent, *visit.Read(), performed.problems);
  const Html hidden = HiddenForm(sent);
  Html ways;
  if (!visit.readOnly()) ways += ChangingForm(visit, "/act", {}, hidden + Button("main", "Do it"));
  ways += ChangingForm(visit, "/form", {}, hidden + Button("other", "Back to the form"));
  return visit.Keep(
      Page(visit, TitleOf(sent) + ", what it will do",
           Notice("note", "Nothing is done yet.") + Told(performed) + Element("div", {{"class", "actions"}}, ways)));
}

Answer DoAction(const Visit& visit, const Request& request) {
  const SentForm sent(request.form);
  if (IsNothing(sent)) return Nothing(visit, sent);
  try {
    const auto exchange = visit.Write();
    const Performed performed = PerformOn(*exchange, sent.Action(), sent.mark());
    if (!performed.done) return Refused(visit, sent, *visit.Read(), performed.problems);
    const std::string& command = sent.form().command;
    Html ways = Link(Address("/records", {{"command", command}}), "Records of " + command);
    if (sent.form().adds) ways += " " + Link(Address("/form", {{"command", command}}), "Add another");
    ways += " " + Link("/history", "Undo");
    const std::string done = performed.state ? "Done, and kept as state " + std::to_string(*performed.state) + "."
                                             : "Done; nothing changes.";
    return visit.Keep(Page(visit, TitleOf(sent),
                           Notice("done", done) + Told(performed) + Element("p", {{"class", "actions"}}, ways)));
  } catch (const workbench::StalePlan&) {
    return Again(visit, sent, *visit.Read(), ChangesSince(visit, sent.mark()), {});
  } catch (const workbench::ExchangeError& error) {
    return Again(visit, sent, *visit.Read(), Notice("error", error.what()), {}, Busy);
  } catch (const workbench::StorageError& error) {
    return Again(visit, sent, *visit.Read(), Notice("error", std::string(error.what()) + "; nothing was kept"), {},
                 Busy);
  }
}

}  // namespace cordboard::web
