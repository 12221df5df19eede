#include "workbench/history/Undo.h"

#include <functional>

#include "web/ChangedRecords.h"
#include "web/Frame.h"
#include "web/Selecting.h"
#include "web/States.h"
#include "web/pages/Pages.h"
#include "workbench/actions/Changes.h"
#include "workbench/history/History.h"
#include "workbench/text/Separated.h"

namespace cordboard::web {

namespace {

using workbench::Connection;
using workbench::State;

// On a copy: what the work would do to the records.
Html Tried(workbench::Exchange& copy, const std::function<void(Connection&)>& work) {
  workbench::Changes changes(copy);
  work(copy.Dynamic());
  return ChangedRecords(changes.Take());
}

// What the page was made of is sent along: whoever presses the button has seen that, and nothing that came later.
Html Question(const Visit& visit, const std::string& address, const Html& hidden, int newest, const char* button) {
  if (visit.readOnly()) return Element("p", "This exchange is only read here: nothing can be changed.");
  const Html message = Element("label", {{"for", "message"}}, "What for (the history keeps it)") +
                       Element("input", {{"id", "message"}, {"name", "message"}, {"maxlength", "200"}});
  return ChangingForm(visit, address, {{"class", "actions"}},
                      hidden + Hidden("newest", std::to_string(newest)) + message + Element("button", button) +
                          Link("/history", "Leave it as it is"));
}

Html Listed(const workbench::History& history, const std::vector<int>& numbers) {
  Html list;
  for (auto number = numbers.rbegin(); number != numbers.rend(); ++number)
    list += Element("li", LinkTo(history.Find(*number)));
  return Element("ul", list);
}

std::string WhatHasCome(const std::vector<State>& states, int newest) {
  std::vector<State> later = states;
  std::erase_if(later, [newest](const State& state) { return state.number <= newest; });
  if (later.empty()) return "The file has another history now.";
  return "There came " +
         workbench::Separated(later, "; ",
                              [](const State& state) {
                                return "state " + std::to_string(state.number) + ", " + Named(state.note.kind) +
                                       " by " + state.user + " at " + state.time;
                              }) +
         ".";
}

// Does the work where the exchange still is what the page showed.
Answer Done(const Visit& visit, const Fields& form, const std::function<State(Connection&)>& work) {
  const auto newest = StateNumberOf(form, "newest");
  if (!newest) throw Failed(BadRequest, "The form does not say which state it has shown.");
  const auto exchange = visit.Write();
  workbench::Transaction transaction(*exchange);
  const workbench::History history(exchange->Dynamic());
  if (history.states().empty() || history.states().back().number != *newest)
    throw Failed(Conflict, "Nothing was done: the exchange is another now than the page has shown. " +
                               WhatHasCome(history.states(), *newest));
  const State made = work(exchange->Dynamic());
  transaction.Commit();
  return Answer::Elsewhere(AddressOf(made));
}

}  // namespace

Answer AskUndo(const Visit& visit, const Request& request) {
  const auto copy = visit.Read();
  const workbench::History history(copy->Dynamic());
  const std::vector<int> taken = history.TakenWith(StateNumberOf(request.query, "number"), true);
  const Html hidden = Hidden("number", std::to_string(taken.front()));
  const Html content =
      Element("p", taken.size() == 1 ? "This state is taken back:" : "These states are taken back, the newest first:") +
      Listed(history, taken) + Question(visit, "/undo", hidden, history.states().back().number, "Take back");
  return Page(visit, "Undo", content + Element("h2", "What that will do") + Tried(*copy, [&](Connection& exchange) {
                               Undo(exchange, taken.front(), true, "");
                             }));
}

Answer DoUndo(const Visit& visit, const Request& request) {
  const auto number = StateNumberOf(request.form, "number");
  return Done(visit, request.form, [&](Connection& exchange) {
    return workbench::Undo(exchange, number, true, OneLine(request.form["message"]));
  });
}

Answer AskRedo(const Visit& visit, const Request&) {
  const auto copy = visit.Read();
  const workbench::History history(copy->Dynamic());
  const Html content = Element("p", "What this undo has taken back is brought again:") +
                       Listed(history, {history.LastUndo().number}) +
                       Question(visit, "/redo", {}, history.states().back().number, "Bring again");
  return Page(visit, "Redo", content + Element("h2", "What that will do") + Tried(*copy, [](Connection& exchange) {
                               Redo(exchange, "");
                             }));
}

Answer DoRedo(const Visit& visit, const Request& request) {
  return Done(visit, request.form,
              [&](Connection& exchange) { return workbench::Redo(exchange, OneLine(request.form["message"])); });
}

}  // namespace cordboard::web
