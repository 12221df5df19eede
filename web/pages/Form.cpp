// The form of a command: to add a record, or to change one.
#include "web/FilledForm.h"
#include "web/Performing.h"
#include "web/Selecting.h"
#include "web/pages/Pages.h"

namespace cordboard::web {

namespace {

Html Help(const SentForm& sent) {
  const workbench::FormDefinition& form = sent.form();
  return Element("p", Html(form.help + " ") + Link(Address("/help", {{"command", form.command}}), "Help") + " " +
                          Link(Address("/records", {{"command", form.command}}), "Records"));
}

// The form as it now is. One that was opened on another state of the exchange says so: what is valid may be another.
Answer Filled(const Visit& visit, SentForm sent, workbench::Exchange& exchange, bool isPart) {
  workbench::Session session(exchange);
  workbench::Filling filling = sent.Fill(session);
  Html content;
  const std::string now = MarkOf(exchange);
  if (sent.mark().empty()) sent.SetMark(now);
  content += Element("div", {{"id", "news"}, {"role", "status"}},
                     sent.mark() == now ? Html()
                                        : Element("p", {{"class", "notice note"}},
                                                  "The exchange has changed "
                                                  "since this form was opened. Each value is checked as the "
                                                  "exchange now is."));
  content += FilledForm(visit, sent, filling, filling.problems(), filling.warnings());
  if (isPart) return {.body = content.markup()};
  return Page(visit, TitleOf(sent), Help(sent) + Element("div", {{"id", "filled"}}, content));
}

// A record by what a line of a plan finds it by: its identifier is another one in another exchange. The one record of
// the whole exchange is changed where it stands.
void SelectForLines(SentForm& sent, workbench::Exchange& exchange) {
  const workbench::FormDefinition& form = sent.form();
  if (form.single && form.edits && (sent.IsEdit() || StandingRecord(exchange, form))) return sent.Select({});
  if (sent.IsEdit()) sent.Select(SelectionForLines(exchange, form, sent.selection()));
}

}  // namespace

Answer OpenForm(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  SentForm sent(request.query);
  SelectForLines(sent, *exchange);
  return Filled(visit, std::move(sent), *exchange, false);
}

Answer CheckForm(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  return Filled(visit, SentForm(request.form), *exchange, request.wantsPart);
}

}  // namespace cordboard::web
