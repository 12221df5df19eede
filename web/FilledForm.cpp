#include "web/FilledForm.h"

#include "script/Conversions.h"
#include "web/FormFields.h"
#include "web/Selecting.h"
#include "workbench/text/Separated.h"

namespace cordboard::web {

namespace {

using workbench::Assignment;
using workbench::Filling;
using workbench::FormDefinition;
using workbench::Problem;

Html Templates(const SentForm& sent, Filling& filling) {
  const auto& [command, name] = sent.form().templates;
  if (command.empty() || sent.IsEdit()) return {};
  const FormDefinition& templates = *workbench::FindForm(command);
  const RowSet names = SelectRecords(filling.session().exchange(), templates, "DISTINCT [" + name + "]", {}, "");
  if (names.IsEmpty()) return {};
  Html options = Element("option", {{"value", ""}}, "none");
  for (std::size_t row = 0; row < names.RowCount(); ++row) {
    const std::string each = Joined(names[0][row]);
    Attributes attributes = {{"value", each}};
    if (each == sent.from()) attributes.emplace_back("selected", "");
    options += Element("option", attributes, each);
  }
  return Element("div", {{"class", "field"}},
                 Element("label", {{"for", "from"}}, "From the template") +
                     Element("select", {{"id", "from"}, {"name", "from"}}, options));
}

Html Identity(const SentForm& sent) {
  Html hidden = Hidden("command", sent.form().command) + Hidden("mark", sent.mark());
  if (sent.IsEdit()) hidden += Hidden("edit", "1");
  for (const Assignment& each : sent.selection()) hidden += Hidden("of", each.name + "=" + each.value);
  return hidden + Hidden("given", workbench::Separated(sent.given(), ",", &Assignment::name));
}

Html Button(const std::string& address, const std::string& kind, const std::string& text) {
  return Element("button", {{"type", "submit"}, {"formaction", address}, {"class", kind}}, text);
}

}  // namespace

Html FilledForm(const Visit& visit, const SentForm& sent, Filling& filling, const std::vector<Problem>& errors,
                const std::vector<Problem>& warnings) {
  const auto [fields, shown] = WriteFields(sent, filling, errors, warnings);
  // The first button of a form is the one that the enter key means.
  Html content =
      Element("button", {{"type", "submit"}, {"class", "default"}, {"tabindex", "-1"}, {"aria-hidden", "true"}});
  content += Identity(sent) + Hidden("shown", shown.Encoded());
  Html buttons = Button("/try", "main", "Show what it will do");
  if (!visit.readOnly())
    buttons += Button("/act", "other",
                      sent.IsEdit()        ? "Change at once"
                      : sent.form().single ? "Set at once"
                                           : "Add at once");
  buttons += Button("/form", "other check", "Check");
  content += Templates(sent, filling) + fields + Element("div", {{"class", "actions"}}, buttons);
  return ChangingForm(visit, "/try", {{"id", "form"}, {"class", "form"}, {"novalidate", ""}}, content);
}

Html HiddenForm(const SentForm& sent) {
  Fields shown;
  Html values;
  for (const Assignment& given : sent.given()) {
    shown.Add(given.name, given.value);
    values += Hidden("v." + given.name, given.value);
    if (given.value.empty() && sent.form().IsSecret(given.name)) values += Hidden("clear", given.name);
  }
  return Identity(sent) + Hidden("from", sent.from()) + Hidden("shown", shown.Encoded()) + values;
}

std::string TitleOf(const SentForm& sent) {
  const std::string record = Named(sent.form(), sent.selection());
  if (!sent.IsEdit()) return sent.form().command + (sent.form().single ? ": set" : ": add");
  return sent.form().command + ": change" + (record.empty() ? "" : " " + record);
}

}  // namespace cordboard::web
