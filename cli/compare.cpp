// cordboard compare: in what two exchanges differ.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/PlanReport.h"
#include "cli/Subcommands.h"
#include "workbench/plans/Comparison.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Escaped.h"

namespace cordboard::cli {

namespace {

using workbench::Exchange;
using workbench::RecordChange;

// How many records were told as added, changed and removed.
struct Counts {
  std::size_t added = 0;
  std::size_t changed = 0;
  std::size_t removed = 0;

  std::size_t All() const { return added + changed + removed; }
};

void Count(const std::vector<RecordChange>& changes, Counts& counts) {
  for (const RecordChange& change : changes) {
    const RecordChange::Kind kind = change.kind();
    ++(kind == RecordChange::Kind::Added     ? counts.added
       : kind == RecordChange::Kind::Changed ? counts.changed
                                             : counts.removed);
  }
}

bool IsWanted(const CompareOptions& options, const std::string& command) {
  return options.commands.empty() || std::ranges::find(options.commands, command) != options.commands.end();
}

// --- Records.

Counts CompareRecords(Exchange& first, Exchange& second, const CompareOptions& options, std::optional<JsonList>& json) {
  workbench::RecordComparison records(first, second);
  Counts counts;
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    if (!IsWanted(options, form->command)) continue;
    const std::vector<RecordChange> changes = records.ChangesOf(*form);
    Count(changes, counts);
    if (json) {
      for (const nlohmann::json& change : ToJson(changes)) json->Add(change);
    } else {
      PrintChanges(changes);
    }
  }
  return counts;
}

// What no record tells: plants and releases, and tables, such as which positions are taken. Those follow from the
// records where these differ. Gives whether there is anything.
bool TellTheRest(Exchange& first, Exchange& second, bool recordsDiffer) {
  const std::vector<std::string> others = workbench::OtherDifferences(first, second);
  for (const std::string& other : others) Note("note", other);
  const std::vector<workbench::TableDifference> tables = workbench::DifferentTables(first, second);
  if (others.empty() && !recordsDiffer) {
    for (const workbench::TableDifference& table : tables)
      Note("note", "the table " + table.table + " differs in " + workbench::Counted(table.rows, "row") +
                       ", though no record does");
  }
  return !others.empty() || !tables.empty();
}

std::string InWords(const Counts& counts) {
  if (counts.All() == 0) return "the same in both";
  return std::to_string(counts.added) + " added, " + std::to_string(counts.changed) + " changed, " +
         std::to_string(counts.removed) + " removed";
}

int TellRecords(Exchange& first, Exchange& second, const CompareOptions& options) {
  std::optional<JsonList> json;
  if (options.json) json.emplace("changes");
  const Counts counts = CompareRecords(first, second, options, json);
  const bool restDiffers = options.commands.empty() && TellTheRest(first, second, counts.All() > 0);
  json ? json->End() : Note("records", InWords(counts));
  return counts.All() > 0 || restDiffers ? Different : Done;
}

// --- Lines.

int TellLines(Exchange& first, Exchange& second, const CompareOptions& options) {
  const workbench::DifferentLines different = workbench::CompareLines(first, second, options.commands);
  for (const auto& [command, problem] : different.problems) Error({.command = command}, problem);
  nlohmann::json data = nlohmann::json::array();
  for (const workbench::DifferentLine& line : different.lines) {
    if (options.json) {
      data.push_back({{"command", line.command}, {"text", line.text}, {"change", line.inSecond ? "added" : "removed"}});
    } else {
      std::cout << (line.inSecond ? '+' : '-') << Printed(line.text) << '\n';
    }
  }
  if (options.json) PrintJson({{"lines", std::move(data)}});
  return different.lines.empty() && different.problems.empty() ? Done : Different;
}

// --- The plan.

nlohmann::json ToJson(const workbench::PlanBetween& plan) {
  nlohmann::json lines = nlohmann::json::array();
  for (const auto& [command, text] : plan.lines) lines.push_back({{"command", command}, {"text", text}});
  nlohmann::json untold = nlohmann::json::array();
  for (const auto& [command, text, reason] : plan.untold)
    untold.push_back({{"command", command}, {"text", text}, {"reason", reason}});
  return {{"lines", std::move(lines)}, {"refusals", std::move(untold)}};
}

int TellPlan(Exchange& first, Exchange& second, const CompareOptions& options) {
  if (!options.commands.empty())
    throw Exit{Usage, "with --plan no commands are given: records build on those of other commands"};
  const std::vector<std::string> others = workbench::OtherDifferences(first, second);
  for (const std::string& other : others) Error(other + ", and no plan changes that");
  if (!others.empty()) return Different;
  workbench::ExportedPlan plan = workbench::PlanInto(first, second);
  plan.header =
      "# What turns " + workbench::Escaped(options.first) + " into " + workbench::Escaped(options.second) + "\n";
  if (!plan.plan.untold.empty())
    Warning(workbench::Counted(plan.plan.untold.size(), "difference") +
            " cannot be brought about by any line; comments at the end of the plan tell them, and why");
  for (const workbench::TableDifference& table : plan.different)
    Warning("with the plan the table " + table.table + " still differs, in " + workbench::Counted(table.rows, "row"));
  if (options.json) {
    PrintJson(ToJson(plan.plan));
  } else {
    std::cout << Written(plan);
  }
  return plan.plan.untold.empty() && plan.different.empty() ? Done : Different;
}

}  // namespace

int Compare(const CompareOptions& options) {
  for (const std::string& command : options.commands) FormOf(command);
  const auto first = OpenToRead(options.first);
  const auto second = OpenToRead(options.second);
  if (options.lines) return TellLines(*first, *second, options);
  return options.plan ? TellPlan(*first, *second, options) : TellRecords(*first, *second, options);
}

}  // namespace cordboard::cli
