#include <algorithm>
#include <filesystem>

#include "web/ChangedRecords.h"
#include "web/Frame.h"
#include "web/States.h"
#include "web/pages/Pages.h"
#include "workbench/plans/Comparison.h"
#include "workbench/plans/ToldPlan.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Escaped.h"

namespace cordboard::web {

namespace {

namespace fs = std::filesystem;
using workbench::Exchange;

// The names of the other exchanges of the folder. Nothing but these is opened, whatever an address says.
std::vector<std::string> Others(const Visit& visit) {
  std::vector<std::string> names;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(fs::absolute(visit.file()).parent_path(), ignored)) {
    const bool isExchange = entry.path().extension() == ".cbx" && entry.is_regular_file(ignored);
    if (isExchange && entry.path().filename() != visit.Name()) names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

// "" is this exchange as it is now, "@3" as it stood at state 3, all else another one of the folder.
std::unique_ptr<Exchange> Open(const Visit& visit, const std::string& name) {
  if (name.empty()) return visit.Read();
  if (name.starts_with('@')) {
    if (const auto state = StateNumberOf({{"state", name.substr(1)}}, "state")) return visit.ReadAsOf(*state);
  }
  const std::vector<std::string> others = Others(visit);
  if (std::ranges::find(others, name) == others.end())
    throw Failed(NotFound, "There is no exchange " + name + " beside this one.");
  return Exchange::OpenForReading(fs::absolute(visit.file()).parent_path() / name);
}

std::string InWords(const Visit& visit, const std::string& name) {
  if (name.empty()) return visit.Name() + " as it is now";
  return name.starts_with('@') ? visit.Name() + " at state " + name.substr(1) : name;
}

Html Question(const Visit& visit, const std::string& first, const std::string& second) {
  const auto exchange = visit.Read();
  std::vector<std::pair<std::string, std::string>> choices = {{"", "as it is now"}};
  for (const auto& [number, words] : StatesToChoose(*exchange)) choices.emplace_back("@" + number, words);
  for (const std::string& other : Others(visit)) choices.emplace_back(other, other);
  return Element(
      "form", {{"action", "/compare"}, {"class", "actions"}},
      Choice("first", "From", choices, first) + Choice("second", "to", choices, second) + Element("button", "Compare"));
}

// What no record tells. Tables, such as which positions are taken, follow from the records where these differ.
Html TheRest(Exchange& first, Exchange& second, bool recordsDiffer) {
  const std::vector<std::string> others = OtherDifferences(first, second);
  Html content;
  for (const std::string& other : others) content += Notice("note", other);
  if (recordsDiffer || !others.empty()) return content;
  for (const workbench::TableDifference& table : DifferentTables(first, second))
    content += Notice("note", "the table " + table.table + " differs in " + workbench::Counted(table.rows, "row") +
                                  ", though no record does");
  return content;
}

Html Differences(Exchange& first, Exchange& second) {
  workbench::RecordComparison comparison(first, second);
  std::vector<workbench::RecordChange> changes;
  for (const workbench::FormDefinition* form : workbench::Forms())
    for (workbench::RecordChange& change : comparison.ChangesOf(*form)) changes.push_back(std::move(change));
  const std::string count =
      changes.empty() ? "The records are the same in both."
                      : workbench::Counted(changes.size(), "record") + " differ" + (changes.size() == 1 ? "s." : ".");
  return TheRest(first, second, !changes.empty()) + Element("p", {{"role", "status"}}, count) +
         (changes.empty() ? Html() : ChangedRecords(changes));
}

std::string TextOfPlan(const Visit& visit, const Request& request) {
  const std::string& from = request.query["first"];
  const std::string& to = request.query["second"];
  const auto first = Open(visit, from);
  const auto second = Open(visit, to);
  for (const std::string& other : OtherDifferences(*first, *second))
    throw Failed(Conflict, other + ", and no plan changes that.");
  workbench::ExportedPlan plan = PlanInto(*first, *second);
  plan.header = workbench::Escaped("# What turns " + InWords(visit, from) + " into " + InWords(visit, to)) + "\n";
  return Written(plan);
}

}  // namespace

Answer Compare(const Visit& visit, const Request& request) {
  const Fields& query = request.query;
  const bool isAsked = query.Has("first") || query.Has("second");
  const std::string first = isAsked ? query["first"] : "@" + std::to_string(std::max(visit.firstState(), 0));
  const std::string& second = query["second"];
  Html content = Question(visit, first, second);
  if (isAsked) {
    const auto one = Open(visit, first);
    const auto other = Open(visit, second);
    const Fields both = {{"first", first}, {"second", second}};
    content +=
        Element("h2", "From " + InWords(visit, first) + " to " + InWords(visit, second)) + Differences(*one, *other);
    if (OtherDifferences(*one, *other).empty())
      content += Element("p", Link(Address("/between", both), "The plan that turns the one into the other"));
  }
  return Page(visit, "Compare", content);
}

Answer PlanBetween(const Visit& visit, const Request& request) {
  const std::string plan = TextOfPlan(visit, request);
  const Fields both = {{"first", request.query["first"]}, {"second", request.query["second"]}};
  const Html ways = Element("ul", {{"class", "actions"}},
                            Element("li", Link(Address("/between.txt", both), "Download the plan, with secrets")) +
                                Element("li", Link(Address("/compare", both), "In what the two differ")));
  return Page(visit, "The plan between two exchanges", ways + AsLines(workbench::ToldPlan(plan)));
}

Answer PlanBetweenAsText(const Visit& visit, const Request& request) {
  return AsFile("between.plan", TextOfPlan(visit, request));
}

}  // namespace cordboard::web
