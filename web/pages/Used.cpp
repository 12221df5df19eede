#include "web/Frame.h"
#include "web/Selecting.h"
#include "web/pages/Pages.h"
#include "workbench/actions/Uses.h"

namespace cordboard::web {

namespace {

using workbench::Holder;
using workbench::Use;

Html Question(const std::string& value, const std::string& thing) {
  std::vector<std::pair<std::string, std::string>> things = {{"", "anything"}};
  for (const workbench::Thing& each : workbench::ShippedReferences().things())
    things.emplace_back(each.name, each.name);
  const Attributes typed = {{"type", "search"}, {"id", "value"}, {"name", "value"}, {"value", value}, {"required", ""}};
  return Element("form", {{"action", "/used"}, {"role", "search"}, {"class", "actions"}},
                 Element("label", {{"for", "value"}}, "Who refers to") + Element("input", typed) +
                     Choice("thing", "as", things, thing) + Element("button", "Find"));
}

// To the record itself, where its command edits it.
std::string AddressOf(const Holder& holder) {
  const workbench::FormDefinition* form = workbench::FindForm(holder.record->command);
  if (form == nullptr) return "";
  if (!form->edits) return Address("/records", {{"command", form->command}});
  return Address("/form", FieldsOf(*form, {{"CMDID", std::to_string(holder.CmdId)}}));
}

Html Shown(const Use& use, const std::string& value) {
  Html list;
  for (const auto& [reference, holder] : use.holders) {
    const std::string address = AddressOf(holder);
    const std::string words = InWords(*reference, holder);
    list += Element("li", address.empty() ? Html(words) : Link(address, words));
  }
  return Element("h2", InWords(use, value)) +
         (use.holders.empty() ? Element("p", "Nothing refers to it.") : Element("ul", list));
}

}  // namespace

Answer Used(const Visit& visit, const Request& request) {
  const std::string& value = request.query["value"];
  const std::string& thing = request.query["thing"];
  if (!thing.empty()) {
    if (const std::string unknown = workbench::UnknownThing(thing); !unknown.empty()) throw Failed(NotFound, unknown);
  }
  Html content = Element("p", "Everything that refers to a number, a position, a category or another thing.") +
                 Question(value, thing);
  if (value.empty()) return Page(visit, "Used by", content);
  const auto exchange = visit.Read();
  const std::vector<Use> uses = FindUses(*exchange, value, thing);
  for (const Use& use : uses) content += Shown(use, value);
  if (uses.empty()) content += Notice("note", "There is no " + workbench::NoUse(value, thing) + ".");
  return Page(visit, "Used by", content, uses.empty() ? NotFound : Ok);
}

}  // namespace cordboard::web
