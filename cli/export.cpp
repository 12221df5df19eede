// cordboard export: the exchange as a plan that makes it again.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/plans/Export.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/plans/PlanTable.h"
#include "workbench/text/Counted.h"

namespace cordboard::cli {

namespace {

using workbench::ExportedPlan;

// Leaves out what is of other commands. The tables that differ do so by whatever command.
void KeepAlone(ExportedPlan& exported, const std::vector<std::string>& commands) {
  if (commands.empty()) return;
  const auto isOther = [&](const auto& each) { return std::ranges::find(commands, each.command) == commands.end(); };
  std::erase_if(exported.plan.lines, isOther);
  std::erase_if(exported.plan.untold, isOther);
}

// A line as a message tells it: with *** for a secret.
std::string Told(const std::string& line) {
  auto action = workbench::ReadableLine(line);
  if (!action) return "a record";
  const workbench::FormDefinition& form = FormOf(action->command);
  for (auto* values : {&action->selection, &action->values}) {
    for (workbench::Assignment& each : *values) each.value = form.Told(each);
  }
  return WrittenLine(*action);
}

void WarnOf(const workbench::UntoldRecord& record) {
  Warning({.command = record.command},
          {.message = "no line makes this record again: " + record.reason + ": " + Told(record.text)});
}

// What is not made again: each record in the document; a reader finds them in the plan.
void TellUntold(const ExportedPlan& exported, bool json) {
  const auto& untold = exported.plan.untold;
  if (json) std::ranges::for_each(untold, WarnOf);
  if (!json && !untold.empty())
    Warning(workbench::Counted(untold.size(), "record") +
            " cannot be made again by any line; comments at the end of the plan tell them, and why");
  for (const workbench::TableDifference& each : exported.different)
    Warning("in an exchange that is made from the plan the table " + each.table + " differs, in " +
            workbench::Counted(each.rows, "row"));
}

void WriteText(workbench::Exchange& exchange, const ExportOptions& options, const std::string& text) {
  if (options.output.empty()) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) std::cout << Printed(line) << '\n';
    return;
  }
  WriteOutput(options.output, text);
  WarnOfReaders(exchange, options.output);
  Note("export", "written to " + options.output);
}

// The records of one command. What no row of a table can hold is told.
int ExportTable(workbench::Exchange& exchange, const ExportOptions& options) {
  const workbench::FormDefinition& form = FormOf(options.table);
  ExportedPlan exported = workbench::ExportPlan(exchange, form.command);
  KeepAlone(exported, {form.command});
  std::vector<workbench::UserAction> adds;
  std::size_t told = exported.plan.untold.size();
  for (const auto& [command, text] : exported.plan.lines) {
    auto action = workbench::ParsePlanLine(text);
    if (action->kind == workbench::UserAction::Kind::Add) {
      adds.push_back(std::move(*action));
    } else {
      Warning({.command = command}, {.message = "a row cannot hold what has to be done besides: " + Told(text)});
      ++told;
    }
  }
  std::ranges::for_each(exported.plan.untold, WarnOf);
  WriteText(exchange, options, WrittenTable(form, adds));
  return told == 0 ? Done : Refused;
}

}  // namespace

int Export(const ExportOptions& options) {
  const auto exchange = OpenToRead(options.file);
  CheckOutput(options.file, options.output);
  for (const std::string& command : options.commands) FormOf(command);
  if (!options.table.empty()) return ExportTable(*exchange, options);
  ExportedPlan exported = workbench::ExportPlan(*exchange);
  KeepAlone(exported, options.commands);
  TellUntold(exported, options.json);
  if (options.json) {
    nlohmann::json lines = nlohmann::json::array();
    for (const auto& line : exported.plan.lines) lines.push_back({{"command", line.command}, {"text", line.text}});
    PrintJson({{"lines", lines}, {"release", exchange->release()}});
  } else {
    WriteText(*exchange, options, Written(exported));
  }
  return exported.plan.untold.empty() && exported.different.empty() ? Done : Refused;
}

}  // namespace cordboard::cli
