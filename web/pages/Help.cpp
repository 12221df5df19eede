#include "web/Frame.h"
#include "web/Markdown.h"
#include "web/Selecting.h"
#include "web/pages/Pages.h"
#include "workbench/forms/CommandPage.h"
#include "workbench/forms/ParameterTexts.h"
#include "workbench/forms/Unknown.h"

namespace cordboard::web {

namespace {

using workbench::FormDefinition;
using workbench::ParameterDefinition;

std::string AddressOfHelp(const std::string& command, const std::string& parameter = "") {
  Fields query = {{"command", command}};
  if (!parameter.empty()) query.Add("parameter", parameter);
  return Address("/help", query);
}

// A parameter of the form, or a command, leads to its page.
LinkTarget LinksOf(const FormDefinition& form) {
  return [&form](const std::string& typed) {
    if (form.Find(typed) != nullptr) return AddressOfHelp(form.command, typed);
    const bool isOther = typed != form.command && workbench::FindForm(typed) != nullptr;
    return isOther ? AddressOfHelp(typed) : std::string();
  };
}

Html Ways(const FormDefinition& form, const std::string& parameter) {
  const Fields command = {{"command", form.command}};
  Html links;
  if (!parameter.empty()) links += Element("li", Link(AddressOfHelp(form.command), "All of " + form.command));
  links += Element("li", Link(Address("/records", command), "Records"));
  if (form.adds) links += Element("li", Link(Address("/form", command), form.single ? "Form" : "Add a record"));
  return Element("ul", {{"class", "actions"}}, links);
}

Html OfCommand(const FormDefinition& form) {
  const LinkTarget links = LinksOf(form);
  Html content = AsHtml(workbench::Page(form), "Parameters of " + form.command, links);
  const std::string notes = workbench::Notes(form);
  return notes.empty() ? content : content + Element("h2", "Notes") + AsHtml(notes, "Notes", links);
}

Html FixedValues(const FormDefinition& form, const ParameterDefinition& parameter) {
  const auto lists = FixedListsOf(form, parameter);
  Html content;
  for (const workbench::FixedList* list : lists) {
    std::vector<std::vector<Html>> rows;
    for (const auto& [value, description] : list->values) rows.push_back({value, description});
    content += Table("Fixed values, " + HoldsFor(*list), {"Value", "Meaning"}, rows);
  }
  if (!parameter.list && !parameter.fixed) return content + Element("p", "There is no list of its values.");
  return content + Element("p", std::string(lists.empty() ? "Its values follow from what the exchange holds. " : "") +
                                    "The form lists those that are possible now.");
}

Html OfParameter(const FormDefinition& form, const ParameterDefinition& parameter) {
  const LinkTarget links = LinksOf(form);
  Html content = Element("p", LineAsHtml(parameter.title, links));
  const std::string traits = Traits(form, parameter);
  if (!traits.empty()) content += Element("p", LineAsHtml(traits, links));
  for (const std::string& companion : Companions(form, parameter)) content += Element("p", companion);
  return content + FixedValues(form, parameter);
}

}  // namespace

Answer Help(const Visit& visit, const Request& request) {
  const FormDefinition& form = FormOf(request.query);
  const std::string& name = request.query["parameter"];
  const Html ways = Ways(form, name);
  if (name.empty()) return Page(visit, form.command + ": " + form.title, ways + OfCommand(form));
  const ParameterDefinition* parameter = form.Find(name);
  if (parameter == nullptr) throw Failed(NotFound, UnknownParameter(form, name));
  return Page(visit, form.command + " " + name, ways + OfParameter(form, *parameter));
}

}  // namespace cordboard::web
