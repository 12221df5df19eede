#include "cli/PlanReport.h"

#include <iostream>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using workbench::Assignment;
using workbench::ColumnChange;
using workbench::LineReport;
using workbench::PlanResult;
using workbench::Problem;
using workbench::RecordChange;
using workbench::Separated;

// As many of one cause are told in full.
constexpr std::size_t toldOfOneCause = 3;

void Tell(const LineReport& report, const Problem& problem) {
  const Place place{.command = report.command, .file = report.file, .line = report.line};
  report.refused ? Error(place, problem) : Warning(place, problem);
}

void TellUntold(const PlanResult& result) {
  const auto text = [](const workbench::ProblemCount& count) {
    return std::to_string(count.untold) + " more after the first " + std::to_string(count.told) + " are not told";
  };
  if (result.errors.untold > 0) Error(text(result.errors));
  if (result.warnings.untold > 0) Warning(text(result.warnings));
}

// --- Causes.

// The message with a sign in the place of the value and of each number.
std::string WithoutValues(std::string message, const std::string& value) {
  for (std::size_t at = 0; !value.empty() && (at = message.find(value, at)) != message.npos; ++at)
    message.replace(at, value.size(), "#");
  std::string general;
  for (const char c : message) {
    const char sign = c >= '0' && c <= '9' ? '#' : c;
    if (sign != '#' || !general.ends_with('#')) general += sign;
  }
  return general;
}

std::string CauseOf(const LineReport& report, const Problem& problem) {
  return std::string(report.refused ? "error" : "warning") + '\n' + report.command + '\n' + problem.parameter + '\n' +
         WithoutValues(problem.message, problem.value);
}

std::string Where(const LineReport& report) { return report.file + ":" + std::to_string(report.line); }

// What there is besides those that are told.
struct Rest {
  std::size_t met = 0;
  const LineReport* first = nullptr;
  const LineReport* last = nullptr;
};

void TellRest(const Rest& rest) {
  std::string text = "and " + std::to_string(rest.met - toldOfOneCause) + " more like the last: " + Where(*rest.first);
  if (rest.last != rest.first) text += " to " + Where(*rest.last);
  rest.last->refused ? Error(text) : Warning(text);
}

// --- What lines did.

const char* InWords(RecordChange::Kind kind) {
  switch (kind) {
    case RecordChange::Kind::Added: return "added";
    case RecordChange::Kind::Changed: return "changed";
    case RecordChange::Kind::Removed: break;
  }
  return "removed";
}

std::string Written(const Assignment& assignment) {
  return assignment.name + "=" + workbench::WrittenValue(assignment.value);
}

std::string Written(const ColumnChange& column, RecordChange::Kind kind) {
  const auto value = [](const std::string& text) { return text.empty() ? "-" : workbench::WrittenValue(text); };
  if (kind == RecordChange::Kind::Changed) return column.name + " " + value(column.before) + " -> " + value(column.now);
  return column.name + "=" + value(kind == RecordChange::Kind::Added ? column.now : column.before);
}

std::string Written(const RecordChange& change) {
  std::string text = change.command();
  const std::string key = Separated(change.Key(), ",", [](const Assignment& each) { return Written(each); });
  text += (key.empty() ? "" : " " + key) + " " + InWords(change.kind());
  const std::string columns =
      Separated(change.Columns(), ", ", [&](const ColumnChange& column) { return Written(column, change.kind()); });
  return columns.empty() ? text : text + ": " + columns;
}

nlohmann::json OrNull(const std::string& text) { return text.empty() ? nlohmann::json(nullptr) : nlohmann::json(text); }

nlohmann::json ToJson(const RecordChange& change) {
  nlohmann::json record = nlohmann::json::object();
  for (const auto& [name, value] : change.Key()) record[name] = value;
  nlohmann::json columns = nlohmann::json::array();
  for (const auto& [name, before, now] : change.Columns())
    columns.push_back({{"name", name}, {"old", OrNull(before)}, {"new", OrNull(now)}});
  return {{"command", change.command()},
          {"change", InWords(change.kind())},
          {"record", std::move(record)},
          {"columns", std::move(columns)}};
}

}  // namespace

void TellProblems(const PlanResult& result) {
  for (const LineReport& report : result.reports) {
    for (const Problem& problem : report.problems) Tell(report, problem);
    Debug(report.debugLines);
  }
  TellUntold(result);
}

void TellByCause(const PlanResult& result) {
  std::map<std::string, Rest> causes;
  for (const LineReport& report : result.reports) {
    for (const Problem& problem : report.problems) {
      Rest& rest = causes[CauseOf(report, problem)];
      if (++rest.met == toldOfOneCause + 1) rest.first = &report;
      rest.last = &report;
    }
  }
  std::map<std::string, std::size_t> told;
  for (const LineReport& report : result.reports) {
    bool isTold = false;
    for (const Problem& problem : report.problems) {
      const std::string cause = CauseOf(report, problem);
      const std::size_t number = ++told[cause];
      isTold = isTold || number <= toldOfOneCause;
      if (number <= toldOfOneCause) Tell(report, problem);
      if (number == toldOfOneCause && causes[cause].first != nullptr) TellRest(causes[cause]);
    }
    if (isTold) Debug(report.debugLines);
  }
  TellUntold(result);
}

std::string ChangesInWords(const LineReport& report) {
  const std::string where = report.file.empty() ? "" : Where(report) + ": ";
  std::string text;
  const auto add = [&](std::string what) { text.append(Printed(what.insert(0, where))).append("\n"); };
  for (const auto& [name, value] : report.taken) add(std::string(name).append("=next took ").append(value));
  for (const RecordChange& change : report.changes) add(Written(change));
  return text;
}

void PrintChanges(const LineReport& report) { std::cout << ChangesInWords(report); }

void AddChanges(nlohmann::json& document, const LineReport& report) {
  for (const auto& [name, value] : report.taken)
    document["taken"].push_back({{"file", report.file},
                                 {"line", report.line},
                                 {"command", report.command},
                                 {"parameter", name},
                                 {"values", value}});
  for (const RecordChange& change : report.changes) {
    nlohmann::json& told = document["changes"].emplace_back(ToJson(change));
    told.update({{"file", report.file}, {"line", report.line}});
  }
}

void PrintChanges(const std::vector<RecordChange>& changes) {
  for (const RecordChange& change : changes) std::cout << Printed(Written(change)) << '\n';
}

nlohmann::json ToJson(const std::vector<RecordChange>& changes) {
  nlohmann::json told = nlohmann::json::array();
  for (const RecordChange& change : changes) told.push_back(ToJson(change));
  return told;
}

void TellCommands(const PlanResult& result) {
  for (const auto& [command, counts] : result.commands) {
    std::string text;
    const auto add = [&text](std::size_t count, const char* what) {
      if (count > 0) text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + what;
    };
    add(counts.added, "added");
    add(counts.changed, "changed");
    add(counts.removed, "removed");
    add(counts.standing, "standing");
    Note(command, text);
  }
}

nlohmann::json CommandsOf(const PlanResult& result) {
  nlohmann::json commands = nlohmann::json::array();
  for (const auto& [command, counts] : result.commands)
    commands.push_back({{"command", command},
                        {"added", counts.added},
                        {"changed", counts.changed},
                        {"removed", counts.removed},
                        {"standing", counts.standing}});
  return commands;
}

}  // namespace cordboard::cli
