#include "workbench/plans/PlanOrder.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "workbench/actions/Generation.h"
#include "workbench/exchange/References.h"

namespace cordboard::workbench {

namespace {

using Commands = std::set<std::string>;

// The commands whose records define the thing, under its own name or as what it is as well.
void AddDefining(const Thing* thing, Commands& commands) {
  for (; thing != nullptr; thing = thing->of) {
    if (thing->definedBy != nullptr) commands.insert(thing->definedBy->command);
  }
}

// These take the number of a route that nobody has, and leave it free.
const Commands beforeRoutes = {"RODAI", "ROCAI_IMPORT"};

Commands CommandsBefore(const FormDefinition& form) {
  Commands before = form.command == "ROCAI" ? beforeRoutes : Commands();
  for (const FormDefinition* table : form.OfEachTable()) {
    for (const std::string& column : table->columns) {
      if (const Reference* reference = ShippedReferences().Find(table->table, column))
        AddDefining(reference->thing, before);
    }
  }
  before.erase(form.command);
  return before;
}

std::vector<const FormDefinition*> FormsInOrderOfLines() {
  std::vector<const FormDefinition*> forms;
  for (const char* database : {"dynamic", "site"})
    for (const std::string& command : GenerationOrder(database)) forms.push_back(FindForm(command));
  for (const FormDefinition* form : Forms()) {
    if (std::ranges::find(forms, form) == forms.end()) forms.push_back(form);
  }
  return forms;
}

// Of commands that refer to each other the first comes first.
std::vector<const FormDefinition*> Ordered() {
  std::vector<const FormDefinition*> left = FormsInOrderOfLines();
  std::vector<const FormDefinition*> ordered;
  std::map<const FormDefinition*, Commands> before;
  for (const FormDefinition* form : left) before[form] = CommandsBefore(*form);
  Commands done;
  const auto isDone = [&done](const std::string& command) { return done.contains(command); };
  while (!left.empty()) {
    auto next = std::ranges::find_if(
        left, [&](const FormDefinition* form) { return std::ranges::all_of(before.at(form), isDone); });
    if (next == left.end()) next = left.begin();
    done.insert((*next)->command);
    ordered.push_back(*next);
    left.erase(next);
  }
  return ordered;
}

}  // namespace

const std::vector<const FormDefinition*>& PlanOrder() {
  static const std::vector<const FormDefinition*> order = Ordered();
  return order;
}

}  // namespace cordboard::workbench
