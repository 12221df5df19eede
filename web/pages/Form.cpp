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
Answer Shown(const Visit& visit, SentForm sent, workbench::Exchange& exchange, bool isPart) {
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

}  // namespace

Answer OpenForm(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  return Shown(visit, SentForm(request.query), *exchange, false);
}

Answer CheckForm(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  return Shown(visit, SentForm(request.form), *exchange, request.wantsPart);
}

}  // namespace cordboard::web
