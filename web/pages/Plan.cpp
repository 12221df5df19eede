#include "web/Frame.h"
#include "web/States.h"
#include "web/pages/Pages.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/plans/ToldPlan.h"
#include "workbench/text/Escaped.h"

namespace cordboard::web {

namespace {

using workbench::State;

std::string PlanOf(workbench::Exchange& exchange, const std::vector<State>& states) {
  std::string plan;
  for (const State& state : states) {
    for (const auto& [name, text] : PlansOf(exchange, state.number)) plan += workbench::WithoutFirstLine(text);
  }
  return plan;
}

}  // namespace

Answer Plan(const Visit& visit, const Request&) {
  const auto exchange = visit.Read();
  const std::vector<State> states = visit.Own(*exchange);
  if (states.empty())
    return Page(visit, "This visit", Element("p", "Nothing has been changed on these pages since the visit began."));
  Html list;
  for (const State& state : states) list += Element("li", LinkTo(state));
  Html ways = Element("li", Link("/plan.txt", "Download the plan, with secrets"));
  if (visit.firstState() >= 0)
    ways += Element(
        "li", Link(Address("/lines", {{"since", std::to_string(visit.firstState())}}), "Lines that came and went"));
  return Page(visit, "This visit",
              Element("p", "What was done on these pages since the visit began, and holds:") + Element("ul", list) +
                  Element("ul", {{"class", "actions"}}, ways) + Element("h2", "The plan that does it again") +
                  AsLines(workbench::ToldPlan(PlanOf(*exchange, states))));
}

Answer PlanAsText(const Visit& visit, const Request&) {
  const auto exchange = visit.Read();
  const std::string head = "# What was changed on the pages of " + workbench::Escaped(visit.Name()) + "\n";
  return AsFile("visit.plan", head + PlanOf(*exchange, visit.Own(*exchange)));
}

}  // namespace cordboard::web
