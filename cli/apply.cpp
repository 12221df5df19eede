// cordboard apply: performs the actions of plan files, all or nothing.

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <list>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/AllOrNothing.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/PlanReport.h"
#include "cli/PlanStream.h"
#include "cli/Progress.h"
#include "cli/Subcommands.h"
#include "workbench/history/History.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanTable.h"
#include "workbench/plans/SavedPlan.h"

namespace cordboard::cli {

namespace {

using workbench::PlanResult;

bool IsTyped(const std::vector<std::string>& plans) {
  return std::ranges::find(plans, "-") != plans.end() && isatty(STDIN_FILENO) == 1;
}

// Several plans become one, each under its name.
workbench::PlanOptions::Read GatherInto(workbench::SavedPlan& saved, bool several) {
  return [&saved, several, last = std::string()](const std::string& file, const std::string& line) mutable {
    if (several && file != last) saved.Add("# " + file);
    last = file;
    saved.Add(line);
  };
}

// What is saved is what was shown: nothing where a line is refused.
void Save(workbench::Exchange& exchange, const workbench::SavedPlan& saved, const PlanResult& result,
          const ApplyOptions& options) {
  if (result.refused == 0 && result.done == 0)
    return Warning(options.save + " was not written: no line of the plan is an action");
  if (result.refused > 0) return Warning(options.save + " was not written: a plan is saved when all of it can be done");
  const workbench::History history(exchange.Dynamic());
  const int state = history.states().empty() ? 0 : history.states().back().number;
  const std::string name = std::filesystem::path(options.file).filename().string();
  const std::string how = "tried on state " + std::to_string(state) + " of " + name;
  WriteOutput(options.save, saved.Written(how + (options.ensure ? " with --ensure" : ""), result.key));
}

// Applies the plan and tells meanwhile, where somebody looks on: how far it is, or that lines are awaited.
PlanResult ApplyAndTell(workbench::Session& session, const std::vector<workbench::PlanFile>& files,
                        const ApplyOptions& options, workbench::SavedPlan& saved, nlohmann::json& document) {
  workbench::PlanOptions how{.dryRun = options.dryRun,
                             .keepGoing = options.keepGoing,
                             .strict = options.strict,
                             .ensure = options.ensure,
                             .message = options.message};
  if (!options.save.empty()) how.read = GatherInto(saved, files.size() > 1);
  std::optional<Progress> progress;
  if (!options.json && IsTyped(options.plans)) {
    Note("standard input", "type the lines of the plan; Ctrl-D on a line of its own ends it");
  } else if (!options.json) {
    progress.emplace(options.plans);
    how.progress = [&progress](std::size_t lines) { progress->Reached(lines); };
  }
  if (options.verbose) {
    how.done = [&](const workbench::LineReport& report) {
      if (options.json) return AddChanges(document, report);
      if (progress) progress->Clear();
      PrintChanges(report);
      FlushOutput();
    };
  }
  return ApplyPlan(session, files, how);
}

std::string Summary(const PlanResult& result, bool dryRun) {
  std::string counts = std::to_string(result.done) + " done, " + std::to_string(result.refused) + " refused";
  if (result.kept) return counts;
  return counts + (dryRun ? "; nothing was kept, since this is a dry run" : "; nothing was kept");
}

void CheckSave(const ApplyOptions& options) {
  CheckOutput(options.file, options.save);
  std::error_code ignored;
  for (const std::string& plan : options.plans)
    if (std::filesystem::equivalent(plan, options.save, ignored))
      throw Exit{Usage, "the plan cannot be saved over " + plan + ", from which it is read"};
}

workbench::ReadAction ReaderOf(const ApplyOptions& options) {
  if (options.command.empty()) return workbench::ParsePlanLine;
  return [reader = workbench::TableReader(FormOf(options.command))](std::string_view line) mutable {
    return reader.Read(line);
  };
}

}  // namespace

int Apply(const ApplyOptions& options) {
  // A dry run is performed on a copy: it needs no right to write, and keeps nobody out.
  if (!options.save.empty()) CheckSave(options);
  const auto exchange = options.dryRun ? OpenToRead(options.file) : OpenToWrite(options.file, options.wait);
  std::list<PlanStream> open;
  std::vector<workbench::PlanFile> files;
  for (const std::string& plan : options.plans)
    files.push_back({plan == "-" ? "standard input" : plan, open.emplace_back(OpenPlan(plan)), ReaderOf(options)});

  const bool warned = WarnOfReaders(*exchange, options.file);
  workbench::Session session(*exchange);
  nlohmann::json document;
  if (options.verbose) document = {{"changes", nlohmann::json::array()}, {"taken", nlohmann::json::array()}};
  workbench::SavedPlan saved;
  const PlanResult result = AllOrNothing([&] { return ApplyAndTell(session, files, options, saved, document); });
  if (!options.save.empty()) Save(*exchange, saved, result, options);
  if (!warned) WarnOfReaders(*exchange, options.file);
  if (options.json) {
    TellProblems(result);
    document.update({{"done", result.done}, {"refused", result.refused}, {"kept", result.kept}});
    document["commands"] = CommandsOf(result);
    document["state"] = result.state ? nlohmann::json(*result.state) : nlohmann::json(nullptr);
    PrintJson(std::move(document));
    if (FlushOutput() == 0) return result.refused == 0 ? Done : Refused;
    // What was kept is told all the same.
    TellOnStandardError();
  } else {
    TellByCause(result);
  }
  Note("plan", Summary(result, options.dryRun));
  if (result.kept || options.dryRun) TellCommands(result);
  return result.refused == 0 ? Done : Refused;
}

}  // namespace cordboard::cli
