#include "web/Frame.h"
#include "web/pages/Pages.h"
#include "workbench/actions/Records.h"
#include "workbench/forms/Families.h"

namespace cordboard::web {

namespace {

using workbench::Exchange;
using workbench::FormDefinition;

std::vector<Html> Row(Exchange& exchange, const FormDefinition& form) {
  const auto [records, blank] = CountRecords(exchange, form);
  const Html ways =
      form.adds ? Link(Address("/form", {{"command", form.command}}), form.single ? "Change" : "Add") : Html();
  return {Link(Address("/records", {{"command", form.command}}), form.command), form.title,
          std::to_string(records) + (blank == 0 ? "" : " and " + std::to_string(blank) + " blank"), ways};
}

}  // namespace

Answer Commands(const Visit& visit, const Request&) {
  const auto exchange = visit.Read();
  Html content = Element("p", "Release " + exchange->release() + ", " + visit.file());
  for (const workbench::Family& family : workbench::Families()) {
    std::vector<std::vector<Html>> rows;
    for (const FormDefinition* form : FormsOf(family)) rows.push_back(Row(*exchange, *form));
    content += Element("section", Table(family.title, {"Command", "What it sets up", "Records", ""}, rows));
  }
  return Page(visit, "Commands", content);
}

}  // namespace cordboard::web
