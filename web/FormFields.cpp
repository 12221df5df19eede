#include "web/FormFields.h"

#include <algorithm>
#include <utility>

#include "script/Conversions.h"
#include "web/Markdown.h"
#include "web/Told.h"
#include "workbench/actions/NextValues.h"
#include "workbench/text/Separated.h"

namespace cordboard::web {

namespace {

using workbench::Assignment;
using workbench::Filling;
using workbench::Folding;
using workbench::Form;
using workbench::FormDefinition;
using workbench::ParameterDefinition;
using workbench::Problem;

// The fields of a form while they are written down.
class Writer {
 public:
  Writer(const SentForm& sent, Filling& filling, const std::vector<Problem>& errors,
         const std::vector<Problem>& warnings)
      : sent_(sent), filling_(filling), form_(filling.form()), errors_(errors), warnings_(warnings) {}

  // Digits stand in a group with the whole that they make.
  FormFields AllFields() {
    Html fields;
    std::vector<std::string> groups;
    for (const ParameterDefinition& parameter : definition().parameters) {
      const std::string group = GroupOf(parameter.name);
      if (group.empty()) {
        fields += Field(parameter);
      } else if (std::ranges::find(groups, group) == groups.end()) {
        groups.push_back(group);
        fields += Group(group);
      }
    }
    return {std::move(fields), std::move(shown_)};
  }

 private:
  const FormDefinition& definition() const { return form_.definition(); }

  // The outermost whole that a parameter is a part of, or is itself; nothing for one that has nothing to do with
  // digits.
  std::string GroupOf(const std::string& name) const {
    std::string whole = definition().FoldingOf(name) != nullptr ? name : "";
    for (const Folding* folding = definition().FoldingWith(name); folding != nullptr;
         folding = definition().FoldingWith(whole))
      whole = folding->parameter;
    return whole;
  }

  Html Group(const std::string& whole) {
    Html own;
    Html parts;
    bool isOpen = definition().Find(whole) == nullptr;
    for (const ParameterDefinition& parameter : definition().parameters) {
      if (GroupOf(parameter.name) != whole) continue;
      if (parameter.name == whole) {
        own = Field(parameter);
      } else {
        parts += Field(parameter);
        isOpen = isOpen || sent_.Find(parameter.name) != nullptr || !ProblemsOf(errors_, parameter.name).empty();
      }
    }
    if (parts.IsEmpty()) return own;
    Attributes attributes = {{"class", "parts"}, {"id", "parts." + whole}};
    if (isOpen) attributes.emplace_back("open", "");
    return Element("fieldset", Element("legend", whole) + own +
                                   Element("details", attributes, Element("summary", "The parts of " + whole) + parts));
  }

  static std::vector<Problem> ProblemsOf(const std::vector<Problem>& problems, const std::string& name) {
    std::vector<Problem> own;
    std::ranges::copy_if(problems, std::back_inserter(own),
                         [&](const Problem& problem) { return problem.parameter == name; });
    return own;
  }

  // What the field has in it. A value that is refused stays as it was typed; a secret that is stored is not told.
  std::string ValueOf(const ParameterDefinition& parameter) const {
    const Assignment* given = sent_.Find(parameter.name);
    if (given == nullptr) return parameter.secret ? "" : Joined(form_.Get(parameter.name));
    const bool isRefused = !ProblemsOf(errors_, parameter.name).empty();
    const std::string now = isRefused || IsNext(definition(), *given) ? "" : Joined(form_.Get(parameter.name));
    return now.empty() ? given->value : now;
  }

  bool IsFixed(const ParameterDefinition& parameter) const { return sent_.IsEdit() && parameter.addOnly; }

  Html Field(const ParameterDefinition& parameter) {
    const std::string& name = parameter.name;
    if (!parameter.IsIn(filling_.session().exchange().release()) || !form_.IsInDefinition(name)) return {};
    const std::string id = "v." + name;
    const std::string value = ValueOf(parameter);
    const std::vector<Problem> errors = ProblemsOf(errors_, name);
    shown_.Add(name, value);
    Attributes input = {{"id", id},
                        {"name", id},
                        {"value", value},
                        {"type", parameter.secret ? "password" : "text"},
                        {"autocomplete", "off"},
                        {"autocapitalize", "none"},
                        {"spellcheck", "false"},
                        {"aria-describedby", "about." + name}};
    if (form_.IsMandatory(name)) input.emplace_back("aria-required", "true");
    if (!errors.empty()) input.emplace_back("aria-invalid", "true");
    if (IsFixed(parameter)) input.emplace_back("readonly", "");
    const bool canBeCleared = parameter.secret && sent_.IsEdit() && !IsFixed(parameter);
    const bool hasList = (parameter.list || parameter.fixed) && !parameter.secret && !IsFixed(parameter);
    Html field = Input(parameter, input, hasList);
    if (canBeCleared) field += Clearing(name);
    field += Element("div", {{"id", "about." + name}}, About(parameter, errors));
    return Element("div", {{"class", errors.empty() ? "field" : "field wrong"}}, Label(parameter, id) + field);
  }

  // What is stored is not in the field of a secret, and cannot be emptied there.
  Html Clearing(const std::string& name) const {
    Attributes box = {{"type", "checkbox"}, {"name", "clear"}, {"value", name}, {"id", "clear." + name}};
    const Assignment* given = sent_.Find(name);
    if (given != nullptr && given->value.empty()) box.emplace_back("checked", "");
    return Element("label", {{"class", "clear"}}, Element("input", box) + " clear what is stored");
  }

  Html Label(const ParameterDefinition& parameter, const std::string& id) const {
    Html text = Element("span", {{"class", "name"}}, parameter.name) + " " +
                LineAsHtml(parameter.title, [](const std::string&) { return std::string(); });
    if (form_.IsMandatory(parameter.name)) text += " " + Element("span", {{"class", "mark"}}, "has to be given");
    // Who goes from field to field by keys comes by it with F1.
    const std::string help = Address("/help", {{"command", definition().command}, {"parameter", parameter.name}});
    return Element("label", {{"for", id}}, text) + Element("a",
                                                           {{"class", "help"},
                                                            {"href", help},
                                                            {"target", "_blank"},
                                                            {"rel", "noopener"},
                                                            {"tabindex", "-1"},
                                                            {"aria-label", "Help on " + parameter.name},
                                                            {"title", "Help (F1)"}},
                                                           "?");
  }

  Html Input(const ParameterDefinition& parameter, Attributes input, bool hasList) const {
    if (!hasList) return Element("input", input);
    input.emplace_back("data-list", parameter.name);
    const std::string label = "Values of " + parameter.name;
    return Element("div", {{"class", "choice"}},
                   Element("input", input) + Element("button",
                                                     {{"type", "submit"},
                                                      {"formaction", "/values"},
                                                      {"name", "parameter"},
                                                      {"value", parameter.name},
                                                      {"class", "open"},
                                                      {"aria-label", label},
                                                      {"title", label}},
                                                     "\u25BE"));
  }

  Html About(const ParameterDefinition& parameter, const std::vector<Problem>& errors) const {
    Html about;
    const auto tell = [&](const char* kind, const std::string& text) {
      about += Element("p", {{"class", kind}}, text);
    };
    for (const Problem& problem : errors) tell("error", InWords(problem));
    for (const Problem& problem : ProblemsOf(warnings_, parameter.name)) tell("warning", InWords(problem));
    for (const Assignment& taken : filling_.taken())
      if (taken.name == parameter.name) tell("note", InWords(taken));
    if (const std::string takes = Takes(parameter); !takes.empty()) tell("note", takes);
    return about;
  }

  // What may be typed besides one value.
  std::string Takes(const ParameterDefinition& parameter) const {
    std::vector<std::string> takes;
    if (form_.TakesSeveral(parameter.name)) takes.push_back("several: 1&2");
    if (form_.TakesRange(parameter.name)) takes.push_back("a range: 1&&9");
    if (parameter.next && !sent_.IsEdit()) takes.push_back("the first free ones: next, next:20");
    if (parameter.secret && sent_.IsEdit()) takes.push_back("what is stored is not shown");
    if (!parameter.otherwise.empty()) takes.push_back("otherwise " + parameter.otherwise);
    if (IsFixed(parameter)) takes.push_back("cannot be changed");
    return workbench::Separated(takes, "; ");
  }

  const SentForm& sent_;
  Filling& filling_;
  const Form& form_;
  const std::vector<Problem>& errors_;
  const std::vector<Problem>& warnings_;
  Fields shown_;
};

}  // namespace

FormFields WriteFields(const SentForm& sent, Filling& filling, const std::vector<Problem>& errors,
                       const std::vector<Problem>& warnings) {
  return Writer(sent, filling, errors, warnings).AllFields();
}

}  // namespace cordboard::web
