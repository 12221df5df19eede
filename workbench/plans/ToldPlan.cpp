#include "workbench/plans/ToldPlan.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "workbench/plans/PlanLine.h"
#include "workbench/text/Counted.h"

namespace cordboard::workbench {

namespace {

// Gives whether there was anything to hide.
bool Hide(const FormDefinition& form, std::vector<Assignment>& assignments) {
  bool hides = false;
  for (Assignment& each : assignments) {
    std::string told = form.Told(each);
    hides = hides || told != each.value;
    each.value = std::move(told);
  }
  return hides;
}

// Nothing for a line that cannot be read. A comment may hold a line that was left out of a plan.
std::optional<std::string> Told(const std::string& line) try {
  if (line.starts_with("# ")) {
    const auto within = ReadableLine(line.substr(2)) ? Told(line.substr(2)) : std::nullopt;
    return within ? "# " + *within : line;
  }
  auto action = ParsePlanLine(line);
  if (!action) return line;
  const FormDefinition* form = FindForm(action->command);
  if (form == nullptr) return std::nullopt;
  const bool selectsBySecret = Hide(*form, action->selection);
  return Hide(*form, action->values) || selectsBySecret ? WrittenLine(*action) : line;
} catch (const PlanLineError&) {
  return std::nullopt;
}

}  // namespace

std::string ToldPlan(const std::string& text) {
  std::string told;
  std::size_t untold = 0;
  const auto tellUntold = [&] {
    if (untold > 0) told += "# " + Counted(untold, "line") + " not shown: no lines of a plan\n";
    untold = 0;
  };
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    const auto shown = Told(line);
    if (!shown) {
      ++untold;
      continue;
    }
    tellUntold();
    told += *shown + "\n";
  }
  tellUntold();
  return told;
}

// It may hold values that the form does not know (LineForm).
std::string ToldLine(const std::string& line) {
  const FormDefinition* form = FindForm(line.substr(0, line.find(':')));
  if (form == nullptr || std::ranges::none_of(form->parameters, &ParameterDefinition::secret)) return line;
  auto action = ReadableLine(line);
  if (!action) return form->command + ":" + hiddenValue;
  bool hides = false;
  for (auto& [name, value] : action->values) {
    if (!form->IsSecret(name)) continue;
    value = hiddenValue;
    hides = true;
  }
  return hides ? WrittenLine(*action) : line;
}

}  // namespace cordboard::workbench
