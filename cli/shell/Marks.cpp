#include "cli/shell/Marks.h"

#include <algorithm>

#include "script/Text.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli::shell {

namespace {

using workbench::Stretch;

constexpr std::size_t indentation = 2;

}  // namespace

std::vector<Stretch> PlacesOf(const std::string& line, const std::vector<workbench::Problem>& problems) {
  std::vector<Stretch> places;
  try {
    const auto action = workbench::ParsePlanLine(line);
    for (const workbench::Problem& problem : problems) {
      if (problem.parameter.empty() && workbench::FindForm(action->command) != nullptr) continue;
      if (const auto place = workbench::FindInLine(line, problem.parameter, problem.value)) places.push_back(*place);
    }
  } catch (const workbench::PlanLineError& error) {
    if (error.column()) places.push_back({*error.column()});
  }
  return places;
}

std::string MarksUnder(std::size_t prompt, const std::vector<Stretch>& places) {
  std::string marks;
  for (const auto& [column, width] : places) {
    const std::size_t begin = prompt + column - 1;
    marks.resize(std::max(marks.size(), begin + width), ' ');
    std::fill_n(marks.begin() + static_cast<std::ptrdiff_t>(begin), width, '^');
  }
  return marks;
}

std::string Excerpt(const std::string& line, const Stretch& place, std::size_t columns) {
  const std::size_t room = std::max<std::size_t>(columns, indentation + 9) - indentation - 1;
  const std::size_t before = std::min(place.column - 1, room / 3);
  const std::size_t first = Length(line) <= room ? 1 : std::min(place.column - before, Length(line) - room + 1);
  const std::string text = Middle(line, static_cast<std::ptrdiff_t>(first), static_cast<std::ptrdiff_t>(room));
  const std::size_t column = place.column - first + 1;
  const std::size_t width = std::max<std::size_t>(std::min(place.width, room - std::min(room, column - 1)), 1);
  return std::string(indentation, ' ') + text + "\n" + MarksUnder(indentation, {{column, width}});
}

bool MayBeTold(const std::string& line) {
  const auto action = workbench::ReadableLine(line);
  const workbench::FormDefinition* form = action ? workbench::FindForm(action->command) : nullptr;
  if (form == nullptr) return false;
  const auto isTold = [form](const workbench::Assignment& each) {
    return form->Told(each) == each.value && !form->IsSecret(each.name);
  };
  return std::ranges::all_of(action->selection, isTold) && std::ranges::all_of(action->values, isTold);
}

}  // namespace cordboard::cli::shell
