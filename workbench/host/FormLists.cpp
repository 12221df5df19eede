#include "workbench/host/FormLists.h"

#include <algorithm>

#include "script/Conversions.h"

namespace cordboard::workbench {

bool FormLists::IsBuilding(const std::string& parameter) const {
  return std::ranges::find(building_, parameter) != building_.end();
}

ValueList& FormLists::Named(const std::string& parameter) {
  return IsBuilding(parameter) ? lists_[parameter] : changes_[parameter];
}

const ValueList* FormLists::Fresh(const std::string& parameter) {
  const ParameterDefinition* definition = form_.definition().Find(parameter);
  if (definition == nullptr || !(definition->list || definition->fixed)) return nullptr;
  // A list that asks for itself sees what has been built of it.
  if (IsBuilding(parameter)) return &lists_[parameter];
  lists_.erase(parameter);
  if (!BuildAnew(*definition)) return nullptr;
  ValueList& list = lists_[parameter];
  list.Append(changes_[parameter]);
  if (const auto& narrowing = definition->narrowing) {
    const Value by = form_.Get(narrowing->by);
    if (!by.IsBlank()) list.Subtract({exchange_.Database("dynamic"), narrowing->without, {by}});
  }
  return &list;
}

bool FormLists::BuildAnew(const ParameterDefinition& parameter) {
  if (!parameter.list) {
    lists_[parameter.name].Collect(Fixed(parameter.name, form_.ActiveDefinition(parameter.name)));
    return true;
  }
  struct Building {
    std::vector<std::string>& stack;
    Building(std::vector<std::string>& names, const std::string& name) : stack(names) { stack.push_back(name); }
    ~Building() { stack.pop_back(); }
  };
  const Building building(building_, parameter.name);
  return build_ && build_(parameter.name);
}

std::shared_ptr<const DescribedValues> FormLists::Fixed(const std::string& parameter, int definition) {
  return exchange_.Static().List(form_.definition().command, parameter, definition);
}

// A check may put back the previous value of a parameter that had none: nothing to choose.
void FormLists::Push(const std::string& parameter, const List& values) {
  ValueList& list = Named(parameter);
  for (const Value& value : values) {
    if (!value.IsBlank()) list.Push(Joined(value));
  }
}

}  // namespace cordboard::workbench
