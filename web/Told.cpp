#include "web/Told.h"

#include "web/Frame.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::web {

using workbench::Problem;

std::string InWords(const workbench::Assignment& taken) {
  using workbench::AsRanges, workbench::Elements, workbench::Separated;
  return "next: " + taken.name + "=" + Separated(AsRanges(Elements(taken.value)), "&");
}

Html ProblemList(const std::string& heading, const std::string& kind, const std::vector<Problem>& problems,
                 bool withFields) {
  if (problems.empty()) return {};
  Html items;
  for (const Problem& problem : problems) {
    const std::string where = problem.parameter + (problem.value.empty() ? "" : "=" + problem.value);
    Html item;
    if (!problem.parameter.empty())
      item += (withFields ? Link("#v." + problem.parameter, where) : Html(where)) + Html(": ");
    items += Element("li", item + InWords(problem));
  }
  return Notice(kind, Element("h2", heading) + Element("ul", items));
}

}  // namespace cordboard::web
